#include "store/column.h"

#include "support/store_fault.h"
#include "support/text_output.h"

#include <QDateTime>

#include <gtest/gtest.h>
#include <limits>

namespace vellora {
namespace {

using test::descriptionOf;
using test::faultOf;

// A value and what becomes of it in a column of the declared type: its stored text or a fault.
struct ColumnCase {
  const char* type;
  QVariant value;
  QString stored;
  std::optional<StoreFault> fault = {};
};

QList<ColumnCase> columnCases() {
  const QString smile = u"😀"_qs;
  const QDate day(2007, 3, 5);
  return {
      {"INTEGER", 2.5, u"2"_qs},
      {"INTEGER", 3.5, u"4"_qs},
      {"integer", -0.5, u"0"_qs},
      {"INTEGER", u" １2 "_qs, u"12"_qs},
      {"INTEGER", 2147483647.4, u"2147483647"_qs},
      {"smallint", -32768, u"-32768"_qs},
      {"BOOLEAN", 7, u"1"_qs},
      {"DateTime", u"2007年3月5日"_qs, u"2007-03-05"_qs},
      {"DATETIME", QTime(8, 30), u"08:30:00"_qs},
      {"DATETIME", QDateTime(day, QTime(8, 30)), u"2007-03-05 08:30:00"_qs},
      {"VARCHAR(255)", 2.50, u"2.5"_qs},
      {"varchar ( 50 )", smile.repeated(50), smile.repeated(50)},
      {"LONGTEXT", QString(10'000, u'长'), QString(10'000, u'长')},
      {"DOUBLE", 2.25, u"2.25"_qs},
      {"SMALLINT", 32767.5, {}, StoreFault::NumberOutOfRange},
      {"INTEGER", qint64{2147483648}, {}, StoreFault::NumberOutOfRange},
      {"INTEGER", -1e300, {}, StoreFault::NumberOutOfRange},
      {"INTEGER", std::numeric_limits<double>::quiet_NaN(), {}, StoreFault::NotANumber},
      {"INTEGER", std::numeric_limits<double>::infinity(), {}, StoreFault::NotANumber},
      {"INTEGER", u"3级"_qs, {}, StoreFault::NotANumber},
      {"INTEGER", u""_qs, {}, StoreFault::NotANumber},
      {"INTEGER", day, {}, StoreFault::NotANumber},
      {"BOOLEAN", u"也许"_qs, {}, StoreFault::NotANumber},
      {"DATETIME", u""_qs, {}, StoreFault::NotADateOrTime},
      {"DATETIME", 39146, {}, StoreFault::NotADateOrTime},
      {"VARCHAR(255)", smile.repeated(256), {}, StoreFault::TextTooLong},
  };
}

TEST(Column, ConvertsAValueOrRefusesItByName) {
  for (const auto& [type, value, stored, fault] : columnCases()) {
    SCOPED_TRACE(type + (' ' + value.toString().toStdString()));
    const Column column = describedColumn(u"ZYDJ"_qs, QString::fromLatin1(type), u"等级"_qs);
    QString text;
    const auto store = [&, given = value] { text = cellText(columnCell(column, given).view()); };
    EXPECT_EQ(faultOf(store), fault);
    EXPECT_EQ(text, stored);
    if (!fault) continue;
    EXPECT_TRUE(descriptionOf(store).startsWith(u"“等级”"));
    EXPECT_LT(descriptionOf(store).size(), 80) << "does not fit a message";
  }
}

}  // namespace
}  // namespace vellora
