#include "fuzz/fuzz_target.h"
#include "fuzz/small_schedule.h"
#include "store/dialect.h"
#include "store/moment.h"
#include "store/statement_shape.h"
#include "store/statements.h"
#include "store/store_error.h"
#include "store/tokens.h"

#include <cstring>

namespace vellora::test {
namespace {

constexpr qsizetype kLongestName = 255;

// The first bytes as a day, near enough to today that most have four-digit years, and the rest.
QDate dayOf(Bytes bytes) {
  std::int32_t days = 0;
  std::memcpy(&days, bytes.data(), std::min(bytes.size(), sizeof days));
  return QDate::fromJulianDay(days);
}

Bytes afterDay(Bytes bytes) {
  return bytes.subspan(std::min(bytes.size(), sizeof(std::int32_t)));
}

// The only token of a literal.
Token onlyToken(const QString& literal) {
  TokenReader reader(literal);
  const Token token = reader.next();
  require(reader.next().kind == Token::Kind::End, "a literal is one token");
  return token;
}

void requireMeaning(const QString& text, QDate day) {
  const QString quoted = textLiteral(text);
  const Token token = onlyToken(quoted);
  require(token.kind == Token::Kind::Text && unquoted(token.text) == text,
          "a text literal means its text");
  const QString dated = dateLiteral(day);
  const Token date = onlyToken(dated);
  require(date.kind == Token::Kind::Date, "a date literal is a date");
  const bool isReadable = day.year() >= 1 && day.year() <= 9999;
  require(readDate(date.text) == (isReadable ? std::optional(day) : std::nullopt),
          "a date literal means its day");
}

void requireShapes(const QString& text, QDate day) {
  const auto shapes = [](const QString& value, QDate date) {
    return QStringList{StatementShape(statements::itemsOfCategory(value)).text(),
                       StatementShape(statements::planOfActivityInBlock(value, date, value)).text(),
                       StatementShape(statements::deletePlanOfBlock(date, value)).text(),
                       StatementShape(statements::minutesByActivity(date, date)).text()};
  };
  require(shapes(text, day) == shapes(u"x"_qs, QDate(2007, 3, 5)), "no value changes a statement");
}

void addItem(Recordset& items, const QString& name) {
  items.addNew();
  items.set(u"HDMC", name);
  items.update();
}

// An item is found by its name among others that are named nearly so.
void requireFound(ScheduleStore& store, const QString& name) {
  ScheduleStore::Transaction neverCommitted(store);
  store.execute(statements::deleteAllFrom(u"HD"_qs));
  Recordset items = store.open(statements::allItems());
  for (const auto& other : QStringList{name + u'x', u'\'' + name, name}) addItem(items, other);
  Recordset found = store.open(statements::itemNamed(name));
  require(found.count() == 1 && found.text(u"HDMC") == name, "a name finds its own item alone");
  require(items.findFirst(statements::itemNameIs(name)) && items.text(u"HDMC") == name,
          "a condition finds the item of its name");
}

}  // namespace

// Four bytes of a day, then a name: whatever they are, they stand for themselves in a statement.
void fuzzLiteral(Bytes bytes) {
  static SmallSchedule schedule;
  const QDate day = dayOf(bytes);
  const QString text = textOf(afterDay(bytes));
  requireMeaning(text, day);
  requireShapes(text, day);
  // As UTF-8 can hold it, because that is what the store keeps.
  const QString name = QString::fromUtf8(text.left(kLongestName - 2).toUtf8());
  requireFound(schedule.store(), name);
}

std::vector<QByteArray> literalSeeds() {
  const std::int32_t day = 2'454'165;  // 2007-03-05
  const QByteArray start(reinterpret_cast<const char*>(&day), sizeof day);
  std::vector<QByteArray> seeds;
  for (const QString& name :
       {u"晨跑"_qs, u"O'Neil's"_qs, u"' OR '1'='1"_qs, u"#2007-03-05#"_qs, u"[HDBH]"_qs,
        u"两行\r\n\"文字\" \\ -- /* ?1 */"_qs, u"😀"_qs, QString(300, u'\'')}) {
    seeds.push_back(start + name.toUtf8());
  }
  return seeds;
}

}  // namespace vellora::test
