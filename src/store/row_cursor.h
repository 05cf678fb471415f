#pragma once

#include "store/row_reader.h"

#include <memory>

namespace vellora {

class Connection;

// Reads rows once, from the first to the last, straight from the file: the quickest way to look
// something up, and a way through a million rows in a memory that does not grow. From the first
// next() until it has passed the last row or is gone, other programs cannot save. A cursor must not
// outlive its store.
//
// Every operation may throw StoreError.
class RowCursor final : public RowReader {
 public:
  RowCursor(Connection& connection, const QString& tableOrSelect);  // see ScheduleStore::readOnce
  RowCursor(RowCursor&&) noexcept;
  RowCursor& operator=(RowCursor&&) noexcept;
  ~RowCursor() override;

  // Goes to the next row, at first to the first; false when there is none any more. Before the
  // first call and after the last row no row is current.
  bool next();

 private:
  struct State;
  const QList<Column>& columns() const override;
  Cell cell(qsizetype column) override;

  std::unique_ptr<State> state_;
};

}  // namespace vellora
