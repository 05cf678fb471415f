#pragma once

#include "support/raw_database.h"

#include <QDate>

#include <vector>

namespace vellora::bench {

// The look-ups of a board's fill, prepared, in one read transaction: every block of seven days, and
// for each planned one its activity.
class RawBoard {
 public:
  RawBoard(const QString& path, QDate first);

  void fill();

 private:
  void lookUp(const QByteArray& day, const QByteArray& code);

  RawDatabase database_;
  RawStatement plan_{database_.connection(), "SELECT * FROM JH WHERE SJKH=? AND RQ=?"};
  RawStatement item_{database_.connection(), "SELECT * FROM HD WHERE HDMC=?"};
  std::vector<QByteArray> codes_;
  std::vector<QByteArray> days_;
};

}  // namespace vellora::bench
