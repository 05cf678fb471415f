#pragma once

#include "store/opened_set.h"
#include "store/row_arena.h"

#include <optional>

namespace vellora {

// The rows of one statement, read all at once when they are first asked for.
class LazyRows {
 public:
  LazyRows(Connection& connection, const QString& tableOrSelect)
      : opened_(connection, tableOrSelect) {}

  Connection& connection() const { return opened_.connection(); }
  const PreparedSet& set() const { return opened_.set(); }
  bool isRead() const { return rows_.has_value(); }

  // Reads the rows when that has not been done. A failure leaves them unread.
  RowArena& rows();

 private:
  void read();

  OpenedSet opened_;
  std::optional<RowArena> rows_;
};

}  // namespace vellora
