#include "store/schedule_store.h"

#include "store/connection.h"
#include "store/schema.h"
#include "store/statement_cache.h"
#include "store/store_error.h"
#include "store/undo_log.h"

#include <sqlite3.h>

namespace vellora {

ScheduleStore::ScheduleStore(const QString& path, std::chrono::milliseconds patience,
                             std::function<bool()> mayKeepWaiting)
    : connection_(std::make_unique<Connection>(path, patience, std::move(mayKeepWaiting))) {
  requireSchema(*connection_);
  requireWholeFile(*connection_, path);
  addMissingIndices(*connection_);
}

ScheduleStore::~ScheduleStore() = default;

qint64 ScheduleStore::execute(const Query& statement) {
  const auto set = connection_->statements().translated(statement.text());
  set->requireValues(statement);
  PreparedStatement& prepared = set->statement;
  const StatementRun run(prepared);
  set->bind(statement);
  qint64 changed = 0;
  connection_->save([&] {
    while (prepared.step()) {
    }
    changed = sqlite3_changes64(connection_->handle());
  });
  return changed;
}

Recordset ScheduleStore::open(const Query& tableOrSelect) {
  return {*connection_, tableOrSelect};
}

RowCursor ScheduleStore::readOnce(const Query& tableOrSelect) {
  return {*connection_, tableOrSelect};
}

UndoLog& ScheduleStore::undoLog() {
  if (!undo_log_) {
    undo_log_ = std::make_unique<UndoLog>(*this, *connection_);
    connection_->setOnSaved([this] { undo_log_->closeStep(); });
  }
  return *undo_log_;
}

qint64 ScheduleStore::changedRows() const {
  return connection_->changeCount();
}

bool ScheduleStore::isReadOnly() const {
  return connection_->isReadOnly();
}

ScheduleStore::Watch::Watch(ScheduleStore& store, std::function<bool()> mayContinue)
    : connection_(*store.connection_), goesOn_(std::move(mayContinue)) {
  connection_.setProgressHandler(&goesOn_);
}

ScheduleStore::Watch::~Watch() {
  connection_.setProgressHandler(nullptr);
}

ScheduleStore::Transaction::Transaction(ScheduleStore& store)
    : connection_(store.connection_.get()) {
  if (connection_->isInTransaction()) {
    throw StoreError(StoreFault::Other, u"上一次保存还没有结束，不能开始新的保存。"_qs);
  }
  if (connection_->isReadOnly()) throw engineError(SQLITE_READONLY, {});  // BEGIN would not mind
  connection_->requireUnmoved();
  connection_->run("BEGIN IMMEDIATE");
  before_ = connection_->saveCount();
}

ScheduleStore::Transaction::~Transaction() {
  // A full disk or a failing one may have ended the transaction already. Where even rolling back
  // fails, the engine does it from the journal when the file is opened next.
  if (connection_ != nullptr && connection_->isInTransaction()) connection_->tryRun("ROLLBACK");
}

void ScheduleStore::Transaction::commit() {
  if (connection_ == nullptr) return;
  try {
    connection_->run("COMMIT");
  } catch (const StoreError& failure) {
    const StoreError known = connection_->outcome(failure, before_);
    if (known.fault() == StoreFault::SavedDespiteError) connection_->saved();
    throw StoreError(known);
  }
  connection_->saved();
  connection_ = nullptr;
}

ScheduleStore::ReadTransaction::ReadTransaction(ScheduleStore& store)
    : connection_(store.connection_.get()) {
  if (connection_->isInTransaction()) {
    connection_ = nullptr;
    return;
  }
  connection_->requireUnmoved();
  connection_->run("BEGIN");
}

ScheduleStore::ReadTransaction::~ReadTransaction() {
  if (connection_ != nullptr) connection_->tryRun("ROLLBACK");  // nothing to save, cannot fail
}

ScheduleCheck::ScheduleCheck(const QString& path)
    : connection_(std::make_unique<Connection>(path, std::chrono::milliseconds(0))) {}

ScheduleCheck::~ScheduleCheck() = default;

bool ScheduleCheck::isSound() {
  return vellora::isSound(*connection_);
}

void ScheduleCheck::interrupt() {
  sqlite3_interrupt(connection_->handle());
}

}  // namespace vellora
