// Look-ups and statistics of the store beside the same statements, prepared, on the engine's own
// interface. Both read what a board shows into QStrings and numbers inside one read transaction.

#include "routine/calendar_text.h"
#include "store/schedule_store.h"
#include "store/statements.h"
#include "support/schedule_builder.h"
#include "support/side_by_side.h"

#include <benchmark/benchmark.h>
#include <sqlite3.h>
#include <stdexcept>
#include <vector>

namespace vellora::bench {
namespace {

constexpr int kBlocks = 50;
constexpr int kDays = 7;
constexpr int kActivities = 60;
const QDate kFirstDay(2007, 1, 1);

class RawStatement {
 public:
  RawStatement(sqlite3* connection, const char* sql) {
    if (sqlite3_prepare_v2(connection, sql, -1, &statement_, nullptr) != SQLITE_OK) {
      throw std::runtime_error(sqlite3_errmsg(connection));
    }
  }
  ~RawStatement() { sqlite3_finalize(statement_); }
  RawStatement(const RawStatement&) = delete;
  RawStatement& operator=(const RawStatement&) = delete;

  void bind(int index, const QByteArray& text) {
    sqlite3_bind_text(statement_, index, text.constData(), static_cast<int>(text.size()),
                      SQLITE_STATIC);
  }
  void bind(int index, qint64 number) { sqlite3_bind_int64(statement_, index, number); }
  bool step() { return sqlite3_step(statement_) == SQLITE_ROW; }
  void reset() { sqlite3_reset(statement_); }
  qint64 number(int column) { return sqlite3_column_int64(statement_, column); }
  QString text(int column) {
    const auto* const bytes =
        reinterpret_cast<const char*>(sqlite3_column_text(statement_, column));
    return QString::fromUtf8(bytes, sqlite3_column_bytes(statement_, column));
  }
  QByteArray bytes(int column) {
    const auto* const bytes =
        reinterpret_cast<const char*>(sqlite3_column_text(statement_, column));
    return {bytes, sqlite3_column_bytes(statement_, column)};
  }

 private:
  sqlite3_stmt* statement_ = nullptr;
};

class RawDatabase {
 public:
  explicit RawDatabase(const QString& path) {
    if (sqlite3_open_v2(path.toUtf8().constData(), &connection_,
                        SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr) != SQLITE_OK) {
      throw std::runtime_error(sqlite3_errmsg(connection_));
    }
  }
  ~RawDatabase() { sqlite3_close_v2(connection_); }
  RawDatabase(const RawDatabase&) = delete;
  RawDatabase& operator=(const RawDatabase&) = delete;

  sqlite3* connection() { return connection_; }
  void run(const char* sql) { sqlite3_exec(connection_, sql, nullptr, nullptr, nullptr); }

 private:
  sqlite3* connection_ = nullptr;
};

class Board {
 public:
  Board(const test::ScheduleBuilder& builder, QDate first)
      : store_(builder.path()), raw_(builder.path()) {
    Recordset blocks = store_.open(statements::blocksByCode());
    for (; !blocks.atEnd(); blocks.moveNext()) {
      codes_.push_back(blocks.text(u"SJKH"));
      rawCodes_.push_back(codes_.back().toUtf8());
    }
    for (int day = 0; day < kDays; ++day) {
      days_.push_back(first.addDays(day));
      rawDays_.push_back(isoDate(days_.back()).toUtf8());
    }
  }

  void fillFromStore() {
    const ScheduleStore::ReadTransaction view(store_);
    for (const QDate day : days_) {
      for (const QString& code : codes_) {
        RowCursor plan = store_.readOnce(statements::planOfBlock(day, code));
        if (!plan.next()) continue;
        const QString activity = plan.text(u"HDMC");
        benchmark::DoNotOptimize(plan.text(u"HDYQ"));
        RowCursor item = store_.readOnce(statements::itemNamed(activity));
        if (item.next()) benchmark::DoNotOptimize(item.number(u"FRGB"));
      }
    }
  }

  void fillFromRaw() {
    raw_.run("BEGIN");
    for (const QByteArray& day : rawDays_) {
      for (const QByteArray& code : rawCodes_) lookUpRaw(day, code);
    }
    raw_.run("COMMIT");
  }

 private:
  void lookUpRaw(const QByteArray& day, const QByteArray& code) {
    plan_.bind(1, code);
    plan_.bind(2, day);
    if (plan_.step()) {
      const QByteArray activity = plan_.bytes(2);
      benchmark::DoNotOptimize(QString::fromUtf8(activity));
      benchmark::DoNotOptimize(plan_.text(3));
      item_.bind(1, activity);
      if (item_.step()) benchmark::DoNotOptimize(item_.number(4));
      item_.reset();
    }
    plan_.reset();
  }

  ScheduleStore store_;
  RawDatabase raw_;
  RawStatement plan_{raw_.connection(), "SELECT * FROM JH WHERE SJKH=? AND RQ=?"};
  RawStatement item_{raw_.connection(), "SELECT * FROM HD WHERE HDMC=?"};
  std::vector<QString> codes_;
  std::vector<QByteArray> rawCodes_;
  std::vector<QDate> days_;
  std::vector<QByteArray> rawDays_;
};

constexpr const char* kRawByCategory =
    "SELECT HD.HDLB, sum(substr(SJ1,1,2)*60+substr(SJ1,4,2)-substr(SJ0,1,2)*60-substr(SJ0,4,2))"
    " FROM HD JOIN JH ON HD.HDMC=JH.HDMC JOIN SJ ON SJ.SJKH=JH.SJKH"
    " WHERE JH.RQ>=? AND JH.RQ<=? GROUP BY HD.HDLB";
constexpr const char* kRawByActivity =
    "SELECT HD.HDLB, JH.HDMC,"
    " sum(substr(SJ1,1,2)*60+substr(SJ1,4,2)-substr(SJ0,1,2)*60-substr(SJ0,4,2)), count(JH.HDMC)"
    " FROM HD JOIN JH ON HD.HDMC=JH.HDMC JOIN SJ ON SJ.SJKH=JH.SJKH"
    " WHERE JH.RQ>=? AND JH.RQ<=? GROUP BY HD.HDLB, JH.HDMC";

void compareSums(SideBySide& table, const test::ScheduleBuilder& builder, const char* what,
                 QString (*statement)(QDate, QDate), const char* rawSql) {
  const QDate last = kFirstDay.addYears(200);
  ScheduleStore store(builder.path());
  RawDatabase raw(builder.path());
  RawStatement rawSums(raw.connection(), rawSql);
  const QByteArray bounds[] = {isoDate(kFirstDay).toUtf8(), isoDate(last).toUtf8()};
  const auto ours = [&] {
    Recordset sums = store.open(statement(kFirstDay, last));
    for (; !sums.atEnd(); sums.moveNext()) benchmark::DoNotOptimize(sums.number(u"SJ"));
  };
  const auto bare = [&] {
    rawSums.bind(1, bounds[0]);
    rawSums.bind(2, bounds[1]);
    while (rawSums.step()) benchmark::DoNotOptimize(rawSums.number(1));
    rawSums.reset();
  };
  table.compare(what, ours, bare, 5);
}

// One pass over the whole plan, as a backup makes it.
void comparePasses(SideBySide& table, const test::ScheduleBuilder& builder) {
  ScheduleStore store(builder.path());
  RawDatabase raw(builder.path());
  RawStatement rows(raw.connection(), "SELECT * FROM JH");
  const auto ours = [&] {
    RowCursor cursor = store.readOnce(statements::allPlans());
    while (cursor.next()) {
      for (const int column : {0, 1, 2, 3}) benchmark::DoNotOptimize(cursor.text(column));
      benchmark::DoNotOptimize(cursor.number(4));
    }
  };
  const auto bare = [&] {
    while (rows.step()) {
      for (const int column : {0, 1, 2, 3}) benchmark::DoNotOptimize(rows.text(column));
      benchmark::DoNotOptimize(rows.number(4));
    }
    rows.reset();
  };
  table.compare("one pass over 1,000,000 entries", ours, bare, 5);
}

constexpr int kRestored = 20'000;

// Adds entries as a restore does; both take them back again.
void compareRestores(SideBySide& table) {
  const test::ScheduleBuilder builder;
  ScheduleStore store(builder.path());
  RawDatabase raw(builder.path());
  RawStatement insert(raw.connection(), "INSERT INTO JH VALUES (?,?,?,?,?)");
  const QString texts[] = {isoDate(kFirstDay), u"001"_qs, u"活动001"_qs, u"按时完成"_qs};
  const QByteArray bytes[] = {texts[0].toUtf8(), texts[1].toUtf8(), texts[2].toUtf8(),
                              texts[3].toUtf8()};
  const auto ours = [&] {
    const ScheduleStore::Transaction restore(store);
    Recordset plans = store.open(u"JH"_qs);
    for (int i = 0; i < kRestored; ++i) {
      plans.addNew();
      for (int column = 0; column < 4; ++column) plans.set(plans.columnName(column), texts[column]);
      plans.set(u"ZYDJ", i % 5);
      plans.update();
    }
  };
  const auto bare = [&] {
    raw.run("BEGIN IMMEDIATE");
    for (int i = 0; i < kRestored; ++i) {
      for (int column = 0; column < 4; ++column) insert.bind(column + 1, bytes[column]);
      insert.bind(5, i % 5);
      insert.step();
      insert.reset();
    }
    raw.run("ROLLBACK");
  };
  table.compare("adding 20,000 entries", ours, bare, 7);
}

void compareFills(SideBySide& table, const char* what, qint64 days) {
  test::ScheduleBuilder builder;
  builder.fullDay(kBlocks).items(kActivities).fullPlan(kFirstDay, days, kBlocks, kActivities);
  Board board(builder, kFirstDay.addDays(days / 2));
  table.compare(
      what, [&] { board.fillFromStore(); }, [&] { board.fillFromRaw(); }, 301);
  if (days < 20'000) return;
  compareSums(table, builder, "minutes by category, 1,000,000 entries",
              statements::minutesByCategory, kRawByCategory);
  compareSums(table, builder, "minutes by activity, 1,000,000 entries",
              statements::minutesByActivity, kRawByActivity);
  comparePasses(table, builder);
}

}  // namespace
}  // namespace vellora::bench

int main() {
  using namespace vellora::bench;
  SideBySide table;
  compareFills(table, "board fill, 10 years (182,500 entries)", 3'650);
  compareFills(table, "board fill, 20 years (365,000 entries)", 7'300);
  compareFills(table, "board fill, 1,000,000 entries", 20'000);
  compareRestores(table);
  table.print();
}
