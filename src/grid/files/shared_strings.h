#pragma once

#include "grid/files/biff_stream.h"

#include <QHash>

#include <vector>

namespace vellora {

// The texts of all cells of a binary Excel file, each once.
class SharedStrings {
 public:
  // The text's number, from 0. At most 65,535 UTF-16 units.
  quint32 numberOf(const QString& text);
  // The records SST and, for readers that look up single texts, EXTSST.
  void write(BiffStream& stream) const;

 private:
  QHash<QString, quint32> numbers_;
  std::vector<QString> texts_;
  quint32 uses_ = 0;
};

}  // namespace vellora
