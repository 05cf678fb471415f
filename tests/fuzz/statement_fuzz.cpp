// Values within statements.

#include "fuzz/fuzz_target.h"
#include "store/statements.h"
#include "support/schedule_builder.h"

namespace vellora::test {
namespace {

constexpr qsizetype kLongestName = 255;

ScheduleStore& emptyStore() {
  static ScheduleBuilder builder;
  static ScheduleStore store(builder.path());
  return store;
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

// A name stands for itself in a statement, whatever it is.
void fuzzLiteral(const QByteArray& input) {
  const QString text = textOf(input);
  // As UTF-8 can hold it, because that is what the store keeps.
  requireFound(emptyStore(), QString::fromUtf8(text.left(kLongestName - 2).toUtf8()));
}

}  // namespace

QList<FuzzTarget> statementTargets() {
  return {{"literal", fuzzLiteral,
           inUtf8({u"晨跑"_qs, u"O'Neil's"_qs, u"' OR '1'='1"_qs, u"#2007-03-05#"_qs, u"[HDBH]"_qs,
                   u"两行\r\n\"文字\" \\ -- /* ?1 */"_qs, u"😀"_qs, QString(300, u'\'')})}};
}

}  // namespace vellora::test
