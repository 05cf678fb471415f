#include "store_fixture.h"

namespace vellora {
namespace {

class Dialect : public StoreTest {};

TEST_F(Dialect, ReadsWhatPeopleWrite) {
  const struct {
    QString select;
    QString first;
  } cases[] = {
      {u"SELECT Count(*) FROM JH WHERE RQ=#2007-3-5#"_qs, u"2"_qs},
      {u"SELECT Count(*) FROM JH WHERE RQ=# 2007年3月5日 #"_qs, u"2"_qs},
      {u"SELECT Count(*) FROM SJ where sj1=#9:40#"_qs, u"1"_qs},
      {u"sElEcT HdBh fRoM [hD] wHeRe hd.[HdMc]='读书' AND hdlb>'1'"_qs, u"003"_qs},
      {u"SELECT Count(*) FROM HD WHERE HDMC='读书 '"_qs, u"0"_qs},
      {u"SELECT HDBH FROM HD WHERE HDMC='O''Neil #1'"_qs, u"002"_qs},
      {u"SELECT Hour([SJ0])*100+Minute(SJ0) FROM SJ ORDER BY SJKH;"_qs, u"810"_qs},
      {u"SELECT Hour(RQ) FROM JH"_qs, u"0"_qs},
      {u"SELECT Minute(#2007-3-5 8:05#) FROM SJ"_qs, u"5"_qs},
      {u"SELECT Hour(HDYQ) IS NULL FROM (SELECT NULL AS HDYQ FROM JH)"_qs, u"1"_qs},
  };
  for (const auto& [select, first] : cases) {
    EXPECT_EQ(store.open(select).text(0), first) << select.toStdString();
  }
}

TEST_F(Dialect, RefusesWhatItDoesNotKnow) {
  const struct {
    QString statement;
    StoreFault fault;
  } cases[] = {
      {u""_qs, StoreFault::TableMissing},
      {u"XX"_qs, StoreFault::TableMissing},
      {u"SELECT XX FROM HD"_qs, StoreFault::ColumnMissing},
      {u"SELECT * FORM HD"_qs, StoreFault::Syntax},
      {u"SELECT * FROM HD WHERE HDMC='晨跑"_qs, StoreFault::Syntax},
      {u"SELECT * FROM [HD"_qs, StoreFault::Syntax},
      {u"SELECT * FROM HD WHERE HDMC=\"晨跑\""_qs, StoreFault::Syntax},
      {u"SELECT * FROM HD WHERE HDMC=?"_qs, StoreFault::Syntax},
      {u"SELECT * FROM HD; DELETE * FROM HD"_qs, StoreFault::Syntax},
      {u"SELECT Second(SJ0) FROM SJ"_qs, StoreFault::Syntax},
      {u"DROP TABLE HD"_qs, StoreFault::Syntax},
      {u"DELETE * FROM HD --"_qs, StoreFault::Syntax},
      {u"DELETE * FROM JH WHERE HDMC=?"_qs, StoreFault::Syntax},
      {u"SELECT * FROM JH WHERE RQ=##"_qs, StoreFault::NotADateOrTime},
      {u"SELECT * FROM JH WHERE RQ=#2007-02-30#"_qs, StoreFault::NotADateOrTime},
      {u"SELECT Hour(HDMC) FROM HD"_qs, StoreFault::NotADateOrTime},
  };
  for (const auto& [statement, fault] : cases) {
    const bool changesRows = statement.startsWith(u'D');
    EXPECT_EQ(faultOf([&, text = statement] { changesRows ? store.execute(text) : count(text); }),
              fault)
        << statement.toStdString();
  }
  EXPECT_EQ(faultOf([&] { count(statements::plansOn(QDate())); }), StoreFault::NotADateOrTime);
  EXPECT_EQ(count(u"HD"_qs), 3);
}

TEST_F(Dialect, TheCatalogueFindsTheRowsItNames) {
  using namespace statements;
  const QDate nextDay = kMonday.addDays(1);
  const struct {
    Query statement;
    qsizetype rows;
    QString first;  // in the first column
  } cases[] = {
      {itemsOfCategory(u"3-运动"_qs), 1, u"001"_qs},
      {openItems(), 2, u"001"_qs},
      {blocksByStart(), 2, u"B"_qs},
      {blocksByCode(), 2, u"A"_qs},
      {blockWithCode(u"B"_qs), 1, u"B"_qs},
      {planOfBlock(nextDay, u"A"_qs), 1, u"2007-03-06"_qs},
      {plansOfActivity(u"晨跑"_qs), 2, u"2007-03-05"_qs},
      {planOfActivityInBlock(u"晨跑"_qs, kMonday, u"B"_qs), 0, {}},
      {weekNamesAt(kMonday.addDays(6)), 1, u"2007-03-05"_qs},
      {weekNamesAt(kMonday.addDays(7)), 0, {}},
      {minutesByCategory(kMonday, nextDay), 2, u"1-工作"_qs},
      {minutesByActivity(nextDay, nextDay), 1, u"3-运动"_qs},
  };
  for (const auto& [statement, rows, first] : cases) {
    SCOPED_TRACE(statement.text().toStdString());
    Recordset found = store.open(statement);
    EXPECT_EQ(found.count(), rows);
    EXPECT_TRUE(rows == 0 || found.text(0) == first);
  }
  EXPECT_EQ(store.execute(deletePlanOfBlock(kMonday, u"B"_qs)), 1);
  EXPECT_EQ(store.execute(deletePlansOfActivity(u"晨跑"_qs)), 2);
}

}  // namespace
}  // namespace vellora
