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

Column column(const char* type) {
  return describedColumn(u"ZYDJ"_qs, QString::fromLatin1(type), u"等级"_qs);
}

QString storedIn(const char* type, const QVariant& value) {
  return cellText(columnCell(column(type), value).view());
}

TEST(ColumnKinds, ComeFromTheDeclaredType) {
  EXPECT_EQ(column("BOOLEAN").kind, ColumnKind::YesNo);
  EXPECT_EQ(column("smallint").kind, ColumnKind::Int16);
  EXPECT_EQ(column("INTEGER").kind, ColumnKind::Int32);
  EXPECT_EQ(column("DateTime").kind, ColumnKind::DateTime);
  EXPECT_EQ(column("VARCHAR(255)").kind, ColumnKind::Text);
  EXPECT_EQ(column("VARCHAR(255)").mostCharacters, 255);
  EXPECT_EQ(column("varchar ( 50 )").mostCharacters, 50);
  EXPECT_EQ(column("LONGTEXT").kind, ColumnKind::LongText);
  EXPECT_EQ(column("LONGTEXT").mostCharacters, -1);
  EXPECT_EQ(column("DOUBLE").kind, ColumnKind::Other);
  EXPECT_EQ(column("").kind, ColumnKind::Other);
}

TEST(ColumnValues, AreConvertedToWhatTheColumnHolds) {
  const struct {
    const char* type;
    QVariant value;
    QString stored;
  } cases[] = {
      {"INTEGER", 2.5, u"2"_qs},
      {"INTEGER", 3.5, u"4"_qs},
      {"INTEGER", -0.5, u"0"_qs},
      {"INTEGER", u" １2 "_qs, u"12"_qs},
      {"INTEGER", 2147483647.4, u"2147483647"_qs},
      {"INTEGER", true, u"1"_qs},
      {"SMALLINT", -32768, u"-32768"_qs},
      {"BOOLEAN", 7, u"1"_qs},
      {"BOOLEAN", false, u"0"_qs},
      {"DATETIME", u"2007年3月5日"_qs, u"2007-03-05"_qs},
      {"DATETIME", QDate(2007, 3, 5), u"2007-03-05"_qs},
      {"DATETIME", QTime(8, 30), u"08:30:00"_qs},
      {"DATETIME", QDateTime(QDate(2007, 3, 5), QTime(8, 30)), u"2007-03-05 08:30:00"_qs},
      {"VARCHAR(255)", u""_qs, u""_qs},
      {"VARCHAR(255)", 2.50, u"2.5"_qs},
      {"VARCHAR(255)", QString(255, u'长'), QString(255, u'长')},
      {"LONGTEXT", QString(10'000, u'长'), QString(10'000, u'长')},
      {"DOUBLE", 2.25, u"2.25"_qs},
  };
  for (const auto& [type, value, stored] : cases) {
    EXPECT_EQ(storedIn(type, value), stored) << type << ' ' << value.toString().toStdString();
  }
}

TEST(ColumnValues, WhatAColumnCannotHoldIsRefusedByName) {
  const struct {
    const char* type;
    QVariant value;
    StoreFault fault;
  } cases[] = {
      {"SMALLINT", 32768, StoreFault::NumberOutOfRange},
      {"SMALLINT", 32767.5, StoreFault::NumberOutOfRange},
      {"INTEGER", qint64{2147483648}, StoreFault::NumberOutOfRange},
      {"INTEGER", -1e300, StoreFault::NumberOutOfRange},
      {"INTEGER", std::numeric_limits<double>::quiet_NaN(), StoreFault::NotANumber},
      {"INTEGER", std::numeric_limits<double>::infinity(), StoreFault::NotANumber},
      {"INTEGER", u"3级"_qs, StoreFault::NotANumber},
      {"INTEGER", u""_qs, StoreFault::NotANumber},
      {"INTEGER", QDate(2007, 3, 5), StoreFault::NotANumber},
      {"BOOLEAN", u"也许"_qs, StoreFault::NotANumber},
      {"DATETIME", u""_qs, StoreFault::NotADateOrTime},
      {"DATETIME", u"25:00"_qs, StoreFault::NotADateOrTime},
      {"DATETIME", 39146, StoreFault::NotADateOrTime},
      {"VARCHAR(255)", QString(256, u'长'), StoreFault::TextTooLong},
  };
  for (const auto& [type, value, fault] : cases) {
    const auto assign = [&, kind = type, given = value] { columnCell(column(kind), given); };
    EXPECT_EQ(faultOf(assign), fault) << type << ' ' << value.toString().toStdString();
    EXPECT_TRUE(descriptionOf(assign).startsWith(u"“等级”")) << type;
    EXPECT_LT(descriptionOf(assign).size(), 80) << "does not fit a message";
  }
}

TEST(ColumnValues, ACharacterOutsideTheBasicPlaneCountsOnce) {
  const QString smile = u"😀"_qs;
  EXPECT_EQ(storedIn("VARCHAR(255)", smile.repeated(255)), smile.repeated(255));
  EXPECT_EQ(faultOf([&] { storedIn("VARCHAR(255)", smile.repeated(256)); }),
            StoreFault::TextTooLong);
}

}  // namespace
}  // namespace vellora
