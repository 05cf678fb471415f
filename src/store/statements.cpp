#include "store/statements.h"

#include "store/statement_pieces.h"

namespace vellora::statements {

using namespace std::string_view_literals;

QString allItems() {
  return u"select * from hd"_qs;
}

QString itemsOfCategory(const QString& category) {
  return joinedPieces(u"select * from hd WHERE hdlb = "sv, TextLiteral{category},
                      u" order by hdbh"sv);
}

QString openItems() {
  return u"select * from hd where sfwc=0 order by hdbh"_qs;
}

QString itemNamed(const QString& name) {
  return joinedPieces(u"SELECT * FROM HD  WHERE HDMC="sv, TextLiteral{name});
}

QString itemNumberIs(const QString& number) {
  return joinedPieces(u"HDBH="sv, TextLiteral{number});
}

QString itemNameIs(const QString& name) {
  return joinedPieces(u"HDMC="sv, TextLiteral{name});
}

QString blocksByStart() {
  return u"select * from SJ order by sj0"_qs;
}

QString blocksByCode() {
  return u"select * from SJ order by sjkh"_qs;
}

QString blockWithCode(const QString& code) {
  return joinedPieces(u"SELECT * FROM SJ WHERE SJKH="sv, TextLiteral{code});
}

QString blockCodeIs(const QString& code) {
  return joinedPieces(u"SJKH="sv, TextLiteral{code});
}

QString allBlocks() {
  return u"select * from SJ"_qs;
}

QString deleteBlocks() {
  return deleteAllFrom(u"SJ"_qs);
}

QString plansOn(QDate date) {
  return joinedPieces(u"SELECT * FROM JH WHERE RQ="sv, date);
}

QString plansBetween(QDate first, QDate last) {
  return joinedPieces(u"SELECT * FROM JH WHERE RQ>="sv, first, u" AND RQ<="sv, last);
}

QString planOfBlock(QDate date, const QString& code) {
  return joinedPieces(u"SELECT * FROM JH  WHERE JH.SJKH="sv, TextLiteral{code}, u" AND JH.RQ="sv,
                      date);
}

QString plansOfActivity(const QString& name) {
  return joinedPieces(u"SELECT * FROM JH WHERE HDMC="sv, TextLiteral{name}, u" ORDER BY RQ,SJKH"sv);
}

QString planOfActivityInBlock(const QString& name, QDate date, const QString& code) {
  return joinedPieces(u"SELECT * FROM JH WHERE HDMC="sv, TextLiteral{name}, u" AND RQ="sv, date,
                      u" AND SJKH="sv, TextLiteral{code});
}

QString allPlans() {
  return u"SELECT * FROM JH"_qs;
}

QString deletePlansOfActivity(const QString& name) {
  return joinedPieces(u"DELETE * FROM JH WHERE HDMC="sv, TextLiteral{name});
}

QString deletePlanOfBlock(QDate date, const QString& code) {
  return joinedPieces(u"DELETE * FROM JH WHERE SJKH="sv, TextLiteral{code}, u" AND RQ="sv, date);
}

QString deletePlans() {
  return deleteAllFrom(u"JH"_qs);
}

QString memoOn(QDate date) {
  return joinedPieces(u"SELECT * FROM BW WHERE RQ="sv, date);
}

QString deleteMemos() {
  return deleteAllFrom(u"BW"_qs);
}

QString weekNamesAt(QDate date) {
  return joinedPieces(u"SELECT * FROM MM WHERE "sv, date, u">=KSRQ AND "sv, date, u"<=JSRQ"sv);
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
  return joinedPieces(
      u"SELECT HD.HDLB,Sum(Hour([SJ1])*60+Minute([SJ1])-Hour([SJ0])*60-Minute([SJ0])) AS SJ"
      u" FROM HD INNER JOIN (SJ INNER JOIN JH ON SJ.SJKH = JH.SJKH) ON HD.HDMC = JH.HDMC"
      u" WHERE JH.RQ>="sv,
      start, u" AND JH.RQ <="sv, end, u" GROUP BY HD.HDLB"sv);
}

QString minutesByActivity(QDate start, QDate end) {
  return joinedPieces(
      u"SELECT HD.HDLB,JH.HDMC,"
      u" Sum(Hour([SJ1])*60+Minute([SJ1])-Hour([SJ0])*60-Minute([SJ0])) AS SJ,"
      u" Count(JH.HDMC) AS CS"
      u" FROM HD INNER JOIN (SJ INNER JOIN JH ON SJ.SJKH = JH.SJKH) ON HD.HDMC = JH.HDMC"
      u" WHERE JH.RQ>="sv,
      start, u" AND JH.RQ <="sv, end, u" GROUP BY HD.HDLB,JH.HDMC"sv);
}

QString deleteAllFrom(const QString& table) {
  return u"DELETE * FROM [" + table + u']';
}

}  // namespace vellora::statements
