#include "store/lazy_rows.h"

namespace vellora {
namespace {

// Takes the row that the statement stands on.
void appendCurrentRow(RowArena& rows, const OpenedSet& opened) {
  opened.requireSameColumns();
  rows.begin(opened.rowId());
  for (qsizetype column = 0; column < opened.set().columns.size(); ++column) {
    rows.add(opened.cell(column));
  }
  rows.append();
}

}  // namespace

RowArena& LazyRows::rows() {
  if (!rows_) read();
  return *rows_;
}

void LazyRows::read() {
  PreparedStatement& statement = opened_.start();
  const StatementRun run(statement);
  RowArena& rows = rows_.emplace();
  try {
    while (statement.step()) appendCurrentRow(rows, opened_);
  } catch (...) {
    rows_.reset();
    throw;
  }
}

}  // namespace vellora
