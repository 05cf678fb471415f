#include "store/statements.h"

#include "store/dialect.h"

namespace vellora::statements {
namespace {

// A text value among the pieces of a statement; a QDate stands for itself.
struct Text {
  const QString& value;
};

qsizetype roomFor(QStringView piece) {
  return piece.size();
}
qsizetype roomFor(Text text) {
  return text.value.size() + 4;
}
qsizetype roomFor(QDate) {
  return 12;
}

void append(QString& statement, QStringView piece) {
  statement += piece;
}
void append(QString& statement, Text text) {
  appendTextLiteral(statement, text.value);
}
void append(QString& statement, QDate date) {
  appendDateLiteral(statement, date);
}

// Joins the pieces of a statement in one allocation: the board builds hundreds at a time.
template <typename... Pieces>
QString joined(const Pieces&... pieces) {
  QString statement;
  statement.reserve((roomFor(pieces) + ...));
  (append(statement, pieces), ...);
  return statement;
}

}  // namespace

QString allItems() {
  return u"select * from hd"_qs;
}

QString itemsOfCategory(const QString& category) {
  return joined(u"select * from hd WHERE hdlb = ", Text{category}, u" order by hdbh");
}

QString openItems() {
  return u"select * from hd where sfwc=0 order by hdbh"_qs;
}

QString itemNamed(const QString& name) {
  return joined(u"SELECT * FROM HD  WHERE HDMC=", Text{name});
}

QString itemNumberIs(const QString& number) {
  return joined(u"HDBH=", Text{number});
}

QString itemNameIs(const QString& name) {
  return joined(u"HDMC=", Text{name});
}

QString blocksByStart() {
  return u"select * from SJ order by sj0"_qs;
}

QString blocksByCode() {
  return u"select * from SJ order by sjkh"_qs;
}

QString blockWithCode(const QString& code) {
  return joined(u"SELECT * FROM SJ WHERE SJKH=", Text{code});
}

QString blockCodeIs(const QString& code) {
  return joined(u"SJKH=", Text{code});
}

QString allBlocks() {
  return u"select * from SJ"_qs;
}

QString deleteBlocks() {
  return deleteAllFrom(u"SJ"_qs);
}

QString plansOn(QDate date) {
  return joined(u"SELECT * FROM JH WHERE RQ=", date);
}

QString planOfBlock(QDate date, const QString& code) {
  return joined(u"SELECT * FROM JH  WHERE JH.SJKH=", Text{code}, u" AND JH.RQ=", date);
}

QString plansOfActivity(const QString& name) {
  return joined(u"SELECT * FROM JH WHERE HDMC=", Text{name}, u" ORDER BY RQ,SJKH");
}

QString planOfActivityInBlock(const QString& name, QDate date, const QString& code) {
  return joined(u"SELECT * FROM JH WHERE HDMC=", Text{name}, u" AND RQ=", date, u" AND SJKH=",
                Text{code});
}

QString allPlans() {
  return u"SELECT * FROM JH"_qs;
}

QString deletePlansOfActivity(const QString& name) {
  return joined(u"DELETE * FROM JH WHERE HDMC=", Text{name});
}

QString deletePlanOfBlock(QDate date, const QString& code) {
  return joined(u"DELETE * FROM JH WHERE SJKH=", Text{code}, u" AND RQ=", date);
}

QString deletePlans() {
  return deleteAllFrom(u"JH"_qs);
}

QString memoOn(QDate date) {
  return joined(u"SELECT * FROM BW WHERE RQ=", date);
}

QString deleteMemos() {
  return deleteAllFrom(u"BW"_qs);
}

QString weekNamesAt(QDate date) {
  return joined(u"SELECT * FROM MM WHERE ", date, u">=KSRQ AND ", date, u"<=JSRQ");
}

QString weekNamesByStart() {
  return u"select * from mm order by ksrq"_qs;
}

QString allWeekNames() {
  return u"select * from MM"_qs;
}

QString deleteWeekNames() {
  return deleteAllFrom(u"MM"_qs);
}

QString skinSetting() {
  return u"JM"_qs;
}

QString deleteSkinSetting() {
  return deleteAllFrom(u"JM"_qs);
}

QString minutesByCategory(QDate start, QDate end) {
  return joined(
      u"SELECT HD.HDLB,Sum(Hour([SJ1])*60+Minute([SJ1])-Hour([SJ0])*60-Minute([SJ0])) AS SJ"
      u" FROM HD INNER JOIN (SJ INNER JOIN JH ON SJ.SJKH = JH.SJKH) ON HD.HDMC = JH.HDMC"
      u" WHERE JH.RQ>=",
      start, u" AND JH.RQ <=", end, u" GROUP BY HD.HDLB");
}

QString minutesByActivity(QDate start, QDate end) {
  return joined(
      u"SELECT HD.HDLB,JH.HDMC,"
      u" Sum(Hour([SJ1])*60+Minute([SJ1])-Hour([SJ0])*60-Minute([SJ0])) AS SJ,"
      u" Count(JH.HDMC) AS CS"
      u" FROM HD INNER JOIN (SJ INNER JOIN JH ON SJ.SJKH = JH.SJKH) ON HD.HDMC = JH.HDMC"
      u" WHERE JH.RQ>=",
      start, u" AND JH.RQ <=", end, u" GROUP BY HD.HDLB,JH.HDMC");
}

QString deleteAllFrom(const QString& table) {
  return u"DELETE * FROM [" + table + u']';
}

}  // namespace vellora::statements
