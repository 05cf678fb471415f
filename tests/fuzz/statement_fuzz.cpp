// Statements, and values within them.

#include "fuzz/fuzz_target.h"
#include "store/statements.h"
#include "support/schedule_builder.h"
#include "support/store_fault.h"

#include <optional>

namespace vellora::test {
namespace {

constexpr qsizetype kLongestName = 255;
const QDate kMonday(2007, 3, 5);

// Of a schedule with one row in every table, so that a statement over many tables ends soon.
ScheduleStore& smallStore() {
  static ScheduleBuilder builder;
  static std::optional<ScheduleStore> store;
  if (!store) {
    builder.block(u"A"_qs, u"08:10:00"_qs, u"09:40:00"_qs).item(u"001"_qs, u"晨跑"_qs);
    builder.plan(kMonday, u"A"_qs, u"晨跑"_qs).memo(kMonday, u"备忘"_qs).skin(u"x.skn"_qs);
    builder.weekName(kMonday, kMonday.addDays(6), u"开学周"_qs);
    store.emplace(builder.path());
  }
  return *store;
}

void requireEveryRow(ScheduleStore& store, const char* promise) {
  for (const QString& table : {u"HD"_qs, u"SJ"_qs, u"JH"_qs, u"BW"_qs, u"MM"_qs, u"JM"_qs}) {
    require(store.open(table).count() == 1, promise);
  }
}

void runOn(ScheduleStore& store, const QString& statement) {
  ScheduleStore::Transaction neverCommitted(store);
  faultOf([&] {
    for (Recordset rows = store.open(statement); !rows.atEnd(); rows.moveNext()) {
      for (int column = 0; column < rows.columnCount(); ++column) rows.text(column);
    }
  });
  requireEveryRow(store, "reading changes nothing");
  faultOf([&] {
    Recordset items = store.open(u"HD"_qs);
    require(items.findFirst(statement) != items.noMatch(), "a find tells whether it found");
  });
  faultOf([&] { store.execute(statement); });
}

// An item is found by its name among others that are named nearly so.
void requireFound(ScheduleStore& store, const QString& name) {
  ScheduleStore::Transaction neverCommitted(store);
  store.execute(statements::deleteAllFrom(u"HD"_qs));
  Recordset items = store.open(statements::allItems());
  for (const auto& other : QStringList{name + u'x', u'\'' + name, name}) {
    items.addNew();
    items.set(u"HDMC", other);
    items.update();
  }
  const Query literal = QString(u"HDMC='" + QString(name).replace(u"'"_qs, u"''"_qs) + u'\'');
  const Query select = QString(u"SELECT * FROM HD WHERE " + literal.text());
  for (const Query& query : {statements::itemNamed(name), select}) {
    Recordset found = store.open(query);
    require(found.count() == 1 && found.text(u"HDMC") == name, "a name finds its own item alone");
  }
  for (const Query& condition : {statements::itemNameIs(name), literal}) {
    items.moveFirst();
    require(items.findFirst(condition) && items.text(u"HDMC") == name,
            "a condition finds the item of its name");
  }
}

// A statement or a condition: refused with a StoreError or carried out, and gone when rolled back.
void fuzzStatement(const QByteArray& input) {
  const QString statement = textOf(input);
  // WITH RECURSIVE may never end, which is its writer's business.
  if (statement.contains(u"WITH"_qs, Qt::CaseInsensitive)) return;
  ScheduleStore& store = smallStore();
  runOn(store, statement);
  requireEveryRow(store, "a change that was not committed is gone");
}

QByteArrayList statementSeeds() {
  const QString day = u"#2007-03-05#"_qs;
  return inUtf8(
      {statements::allItems().text(), statements::openItems().text(),
       u"select * from hd WHERE hdlb = '1-工作' order by hdbh"_qs,
       u"HDBH='001' AND [HDMC]='晨跑' and sfwc=0"_qs,
       u"SELECT * FROM JH WHERE HDMC='O''Neil' AND RQ="_qs + day + u" AND SJKH='A'",
       u"DELETE * FROM JH WHERE SJKH='A' AND RQ="_qs + day,
       QString(statements::minutesByActivity(kMonday, kMonday).text()).replace(u"?"_qs, day),
       statements::deleteAllFrom(u"HD"_qs).text(),
       u"INSERT INTO HD (HDBH,HDMC) VALUES ('002','x')"_qs,
       u"UPDATE SJ SET SJ0=#8:30#, SJ1=#２００７年3月5日 8:05# WHERE SJKH<>'a';"_qs, u"JM"_qs,
       u"HDBH='001'"_qs});
}

// A name stands for itself in a statement, whatever it is.
void fuzzLiteral(const QByteArray& input) {
  const QString text = textOf(input);
  // As UTF-8 can hold it, because that is what the store keeps.
  requireFound(smallStore(), QString::fromUtf8(text.left(kLongestName - 2).toUtf8()));
}

}  // namespace

QList<FuzzTarget> statementTargets() {
  return {{"statement", fuzzStatement, statementSeeds()},
          {"literal", fuzzLiteral,
           inUtf8({u"晨跑"_qs, u"O'Neil's"_qs, u"' OR '1'='1"_qs, u"#2007-03-05#"_qs, u"[HDBH]"_qs,
                   u"两行\r\n\"文字\" \\ -- /* ?1 */"_qs, u"😀"_qs, QString(300, u'\'')})}};
}

}  // namespace vellora::test
