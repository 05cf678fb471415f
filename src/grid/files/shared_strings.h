#pragma once

#include "grid/files/biff_stream.h"
#include "routine/work_step.h"

#include <QHash>

#include <vector>

namespace vellora {

// The texts of all cells of a binary Excel file. A sheet keeps equal texts of its cells in one
// place, so a text is recognised by its place, which costs far less than comparing; an equal text
// from elsewhere is written again.
class SharedStrings {
 public:
  // The number, from 0, of a cell's text that is not empty; at most 65,535 UTF-16 units. Keeps the
  // text alive, so that its place stays its own.
  quint32 numberOf(const QString& text);
  // The records SST and, for readers that look up single texts, EXTSST. Throws
  // WorkGivenUp.
  void write(BiffStream& stream, const WorkProgress& progress = {}) const;

 private:
  QHash<const QChar*, quint32> numbers_;  // by place
  std::vector<QString> texts_;
  quint32 uses_ = 0;
};

}  // namespace vellora
