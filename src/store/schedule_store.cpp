#include "store/schedule_store.h"

#include "store/connection.h"
#include "store/schema.h"
#include "store/statement_slices.h"
#include "store/store_error.h"

namespace vellora {

ScheduleStore::ScheduleStore(const QString& path, std::chrono::milliseconds patience)
    : connection_(std::make_unique<Connection>(path, patience)) {
  requireSchema(*connection_);
  addMissingIndices(*connection_);
}

ScheduleStore::~ScheduleStore() = default;

qint64 ScheduleStore::execute(const QString& statement) {
  Literals literals;
  const StatementShape shape = slicedStatement(statement, literals);
  PreparedStatement& prepared =
      connection_->statements().setOf({shape.data(), shape.size()}).statement;
  const StatementRun run(prepared);
  literals.bindTo(prepared);
  const qint64 before = connection_->changeCount();
  while (prepared.step()) {
  }
  return connection_->changeCount() - before;
}

Recordset ScheduleStore::open(const QString& tableOrSelect) {
  return {*connection_, tableOrSelect};
}

RowCursor ScheduleStore::readOnce(const QString& tableOrSelect) {
  return {*connection_, tableOrSelect};
}

bool ScheduleStore::isReadOnly() const {
  return connection_->isReadOnly();
}

ScheduleStore::Transaction::Transaction(ScheduleStore& store)
    : connection_(store.connection_.get()) {
  if (connection_->isInTransaction()) {
    throw StoreError(StoreFault::Other, u"上一次保存还没有结束，不能开始新的保存。"_qs);
  }
  connection_->run("BEGIN IMMEDIATE");
}

ScheduleStore::Transaction::~Transaction() {
  // A full disk or a failing one may have ended the transaction already. Where even rolling back
  // fails, the engine does it from the journal when the file is opened next.
  if (connection_ != nullptr && connection_->isInTransaction()) connection_->tryRun("ROLLBACK");
}

void ScheduleStore::Transaction::commit() {
  if (connection_ == nullptr) return;
  connection_->run("COMMIT");
  connection_ = nullptr;
}

ScheduleStore::ReadTransaction::ReadTransaction(ScheduleStore& store)
    : connection_(store.connection_.get()) {
  if (connection_->isInTransaction()) {
    connection_ = nullptr;
    return;
  }
  connection_->run("BEGIN");
}

ScheduleStore::ReadTransaction::~ReadTransaction() {
  if (connection_ != nullptr) connection_->tryRun("COMMIT");
}

}  // namespace vellora
