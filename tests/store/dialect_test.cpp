#include "store/dialect.h"

#include "store/schedule_store.h"
#include "store/statements.h"
#include "support/schedule_builder.h"
#include "support/store_fault.h"
#include "support/text_output.h"

#include <gtest/gtest.h>

namespace vellora {
namespace {

using test::faultOf;
using test::ScheduleBuilder;

using test::kMonday;

TEST(Literals, KeepTheirMeaningWhateverTheyHold) {
  ScheduleBuilder builder;
  ScheduleStore store(builder.path());
  const QStringList names{
      u"'"_qs,
      u"''"_qs,
      u"' OR '1'='1"_qs,
      u"x'; DROP TABLE HD; --"_qs,
      u"#2007-03-05#"_qs,
      u"[HDBH]"_qs,
      u"]"_qs,
      u"100%_*?"_qs,
      u"两行\r\n文字"_qs,
      u"\"引号\""_qs,
      u"\\"_qs,
      u"?1 :a @b $c"_qs,
      u" 前后空格 "_qs,
      u"😀"_qs,
      u"-- 注释 /* */"_qs,
      QString(10'000, u'\''),
      QString(10'000, u'长'),
      QString(u'a') + QChar(0) + u'b',
      u""_qs,
  };
  Recordset items = store.open(u"HD"_qs);
  for (const QString& name : names) {
    items.addNew();
    items.set(u"HDBH", QString::number(name.size()));
    items.set(u"HDLB", name.left(255));
    items.update();
  }
  for (const QString& name : names) {
    const QString label = name.left(255);
    Recordset found = store.open(statements::itemsOfCategory(label));
    ASSERT_FALSE(found.isEmpty()) << label.toStdString();
    EXPECT_EQ(found.text(u"HDLB"), label);
    EXPECT_TRUE(store.open(statements::itemsOfCategory(name + u'!')).isEmpty());
    const QString condition = u"HDLB='" + QString(label).replace(u"'"_qs, u"''"_qs) + u'\'';
    const QString select = u"SELECT * FROM HD WHERE " + condition;
    EXPECT_EQ(store.open(select).text(u"HDLB"), label);
    EXPECT_TRUE(items.findFirst(condition));
    EXPECT_EQ(items.text(u"HDLB"), label);
  }
  EXPECT_EQ(store.open(u"HD"_qs).count(), names.size());
}

class Dialect : public ::testing::Test {
 protected:
  Dialect() {
    builder.item(u"001"_qs, u"晨跑"_qs)
        .item(u"002"_qs, u"Run"_qs)
        .block(u"A"_qs, u"08:10:59"_qs, u"23:59:00"_qs)
        .plan(kMonday, u"A"_qs, u"晨跑"_qs)
        .plan(kMonday.addDays(1), u"A"_qs, u"晨跑"_qs);
  }

  QString firstText(const QString& select) {
    Recordset rows = store.open(select);
    return rows.isEmpty() ? QString() : rows.text(0);
  }

  ScheduleBuilder builder;
  ScheduleStore store{builder.path()};
};

TEST_F(Dialect, ReadsDateLiteralsInAnyFormThatPeopleType) {
  for (const QString& date :
       {u"2007-03-05"_qs, u"2007-3-5"_qs, u"2007/3/5"_qs, u" 2007年3月5日 "_qs}) {
    EXPECT_EQ(store.open(u"SELECT * FROM JH WHERE RQ=#%1#"_qs.arg(date)).count(), 1)
        << date.toStdString();
  }
  EXPECT_EQ(store.open(u"select * from SJ where sj1=#23:59#"_qs).count(), 1);
  for (const QString& date : {u""_qs, u"2007-02-30"_qs, u"今天"_qs, u"2007-03-05'"_qs}) {
    EXPECT_EQ(faultOf([&] { store.open(u"SELECT * FROM JH WHERE RQ=#%1#"_qs.arg(date)); }),
              StoreFault::NotADateOrTime)
        << date.toStdString();
  }
}

TEST_F(Dialect, ComparesTextsExactlyAndNamesWithoutRegardToCase) {
  EXPECT_EQ(store.open(u"sElEcT * fRoM hD wHeRe HdMc='Run'"_qs).count(), 1);
  EXPECT_EQ(store.open(u"SELECT * FROM [hd] WHERE hd.[hdmc]='run'"_qs).count(), 0);
  EXPECT_EQ(store.open(u"SELECT * FROM HD WHERE HDMC='Run '"_qs).count(), 0);
}

TEST_F(Dialect, TakesHourAndMinuteOfStoredMoments) {
  EXPECT_EQ(firstText(u"SELECT Hour([SJ0])*100+Minute(SJ0) FROM SJ;"_qs), u"810"_qs);
  EXPECT_EQ(firstText(u"SELECT Hour(RQ) FROM JH"_qs), u"0"_qs);
  EXPECT_EQ(firstText(u"SELECT Minute(#2007-3-5 8:05#) FROM SJ"_qs), u"5"_qs);
  builder.sql(u"UPDATE SJ SET SJ0=NULL"_qs);
  EXPECT_FALSE(store.open(u"SELECT Hour(SJ0) FROM SJ"_qs).value(0).isValid());
  builder.sql(u"UPDATE SJ SET SJ0='早上'"_qs);
  Recordset broken = store.open(u"SELECT Hour(SJ0) FROM SJ"_qs);
  EXPECT_EQ(faultOf([&] { broken.count(); }), StoreFault::NotADateOrTime);
}

TEST_F(Dialect, RefusesWhatItDoesNotKnow) {
  const struct {
    QString statement;
    StoreFault fault;
  } cases[] = {
      {u""_qs, StoreFault::TableMissing},
      {u"SELECT * FORM HD"_qs, StoreFault::Syntax},
      {u"SELECT * FROM HD WHERE HDMC='晨跑"_qs, StoreFault::Syntax},
      {u"SELECT * FROM HD WHERE HDMC=#2007-03-05"_qs, StoreFault::Syntax},
      {u"SELECT * FROM [HD"_qs, StoreFault::Syntax},
      {u"SELECT * FROM HD WHERE HDMC=\"晨跑\""_qs, StoreFault::Syntax},
      {u"SELECT * FROM HD WHERE HDMC=?"_qs, StoreFault::Syntax},
      {u"SELECT * FROM HD; DELETE * FROM HD"_qs, StoreFault::Syntax},
      {u"SELECT Second(SJ0) FROM SJ"_qs, StoreFault::Syntax},
      {u"SELECT * FROM XX"_qs, StoreFault::TableMissing},
      {u"SELECT XX FROM HD"_qs, StoreFault::ColumnMissing},
      {u"XX"_qs, StoreFault::TableMissing},
  };
  for (const auto& [statement, fault] : cases) {
    EXPECT_EQ(faultOf([&, text = statement] { store.open(text); }), fault)
        << statement.toStdString();
  }
  for (const QString& statement : {u"DROP TABLE HD"_qs, u"PRAGMA user_version=1"_qs,
                                   u"DELETE * FROM HD --"_qs, u"DELETE * FROM HD /*"_qs}) {
    EXPECT_EQ(faultOf([&] { store.execute(statement); }), StoreFault::Syntax)
        << statement.toStdString();
  }
  EXPECT_EQ(store.open(u"HD"_qs).count(), 2);
}

}  // namespace
}  // namespace vellora
