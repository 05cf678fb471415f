#include "fuzz/fuzz_target.h"
#include "fuzz/small_schedule.h"
#include "store/literals.h"
#include "store/statement_shape.h"
#include "store/statements.h"
#include "store/store_error.h"
#include "store/tokens.h"
#include "store/translation.h"
#include "support/store_fault.h"

namespace vellora::test {
namespace {

constexpr qsizetype kRows = 6;  // of a small schedule

// A statement as the engine would get it, or why it is refused.
struct Reading {
  std::optional<StoreFault> fault;
  QByteArray sql;
  QString table;
  bool isWholeTable = false;
  friend bool operator==(const Reading&, const Reading&) = default;
};

Reading readingOf(QStringView statement) {
  Reading reading;
  reading.fault = faultOf([&] {
    const Translation translation = translated(statement);
    reading = {{}, translation.sql, translation.table, translation.isWholeTable};
  });
  return reading;
}

// What stands inside literals must not matter to anything but the literals.
void requireShapeToTellAll(const QString& statement) {
  const StatementShape shape(statement);
  const Reading reading = readingOf(statement);
  require(reading == readingOf(shape.text()), "the inside of a literal changes no statement");
  if (reading.fault) return;
  Literals literals;
  bool isTaken = false;
  const auto fault = faultOf([&] { isTaken = shape.takeLiterals(statement, literals); });
  require(isTaken || fault == StoreFault::NotADateOrTime, "a statement has its own shape");
}

// WITH RECURSIVE may never end, which is its writer's business.
bool mayBeEndless(const QString& statement) {
  return statement.contains(u"WITH"_qs, Qt::CaseInsensitive);
}

qsizetype rowCount(ScheduleStore& store) {
  qsizetype rows = 0;
  for (const QString& table : {u"HD"_qs, u"SJ"_qs, u"JH"_qs, u"BW"_qs, u"MM"_qs, u"JM"_qs}) {
    rows += store.open(table).count();
  }
  return rows;
}

void readAll(Recordset& rows) {
  for (; !rows.atEnd(); rows.moveNext()) {
    for (int column = 0; column < rows.columnCount(); ++column) rows.text(column);
  }
}

void runOn(ScheduleStore& store, const QString& statement) {
  ScheduleStore::Transaction neverCommitted(store);
  faultOf([&] {
    Recordset rows = store.open(statement);
    readAll(rows);
  });
  require(rowCount(store) == kRows, "reading changes nothing");
  faultOf([&] {
    Recordset items = store.open(u"HD"_qs);
    require(items.findFirst(statement) != items.noMatch(), "a find tells whether it found");
  });
  faultOf([&] { store.execute(statement); });
}

}  // namespace

// A statement or a condition: refused with a StoreError or carried out, and gone when rolled back.
void fuzzStatement(Bytes bytes) {
  static SmallSchedule schedule;
  const QString statement = textOf(bytes);
  requireShapeToTellAll(statement);
  if (mayBeEndless(statement)) return;
  ScheduleStore& store = schedule.store();
  runOn(store, statement);
  require(rowCount(store) == kRows, "a change that was not committed is gone");
}

std::vector<QByteArray> statementSeeds() {
  const QDate day(2007, 3, 5);
  const QString statements[]{
      statements::itemsOfCategory(u"1-工作"_qs),
      statements::openItems(),
      statements::itemNumberIs(u"001"_qs) + u" AND [HDMC]='晨跑' and sfwc=0"_qs,
      statements::planOfActivityInBlock(u"O'Neil"_qs, day, u"A"_qs),
      statements::deletePlanOfBlock(day, u"A"_qs),
      statements::weekNamesAt(day),
      statements::minutesByCategory(day, day.addDays(6)),
      statements::minutesByActivity(day, day.addDays(6)),
      statements::deleteAllFrom(u"HD"_qs),
      u"INSERT INTO HD (HDBH,HDMC) VALUES ('002','x')"_qs,
      u"UPDATE SJ SET SJ0=#8:30#, SJ1=#２００７年3月5日 8:05# WHERE SJKH<>'a';"_qs,
      u"JM"_qs,
      u"HDBH='001'"_qs,
  };
  std::vector<QByteArray> seeds;
  for (const QString& statement : statements) seeds.push_back(statement.toUtf8());
  return seeds;
}

}  // namespace vellora::test
