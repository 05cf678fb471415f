#include "store/statements.h"

namespace vellora::statements {

Query allItems() {
  return u"select * from hd"_qs;
}

Query itemsOfCategory(const QString& category) {
  return {u"select * from hd WHERE hdlb = ? order by hdbh"_qs, {category}};
}

Query openItems() {
  return u"select * from hd where sfwc=0 order by hdbh"_qs;
}

Query itemNamed(const QString& name) {
  return {u"SELECT * FROM HD  WHERE HDMC=?"_qs, {name}};
}

Query itemNumbered(const QString& number) {
  return {u"SELECT * FROM HD WHERE HDBH=?"_qs, {number}};
}

Query itemNumberIs(const QString& number) {
  return {u"HDBH=?"_qs, {number}};
}

Query itemNameIs(const QString& name) {
  return {u"HDMC=?"_qs, {name}};
}

Query blocksByStart() {
  return u"select * from SJ order by sj0"_qs;
}

Query blocksByCode() {
  return u"select * from SJ order by sjkh"_qs;
}

Query blockWithCode(const QString& code) {
  return {u"SELECT * FROM SJ WHERE SJKH=?"_qs, {code}};
}

Query blockCodeIs(const QString& code) {
  return {u"SJKH=?"_qs, {code}};
}

Query allBlocks() {
  return u"select * from SJ"_qs;
}

Query deleteBlocks() {
  return deleteAllFrom(u"SJ"_qs);
}

Query plansOn(QDate date) {
  return {u"SELECT * FROM JH WHERE RQ=?"_qs, {date}};
}

Query plansBetween(QDate first, QDate last) {
  return {u"SELECT * FROM JH WHERE RQ>=? AND RQ<=?"_qs, {first, last}};
}

Query planOfBlock(QDate date, const QString& code) {
  return {u"SELECT * FROM JH  WHERE JH.SJKH=? AND JH.RQ=?"_qs, {code, date}};
}

Query plansOfActivity(const QString& name) {
  return {u"SELECT * FROM JH WHERE HDMC=? ORDER BY RQ,SJKH"_qs, {name}};
}

Query planOfActivityInBlock(const QString& name, QDate date, const QString& code) {
  return {u"SELECT * FROM JH WHERE HDMC=? AND RQ=? AND SJKH=?"_qs, {name, date, code}};
}

Query allPlans() {
  return u"SELECT * FROM JH"_qs;
}

Query plansInBlock(const QString& code) {
  return {u"SELECT * FROM JH WHERE SJKH=?"_qs, {code}};
}

Query plansInBothBlocks(const QString& code, const QString& other) {
  return {
      u"SELECT * FROM JH WHERE SJKH=? AND RQ IN (SELECT RQ FROM JH WHERE SJKH=?) ORDER BY RQ"_qs,
      {code, other}};
}

Query moveToBlock(const QString& from, const QString& to) {
  return {u"UPDATE JH SET SJKH=? WHERE SJKH=?"_qs, {to, from}};
}

Query renamePlans(const QString& from, const QString& to) {
  return {u"UPDATE JH SET HDMC=? WHERE HDMC=?"_qs, {to, from}};
}

Query deletePlansOfActivity(const QString& name) {
  return {u"DELETE * FROM JH WHERE HDMC=?"_qs, {name}};
}

Query deletePlanOfBlock(QDate date, const QString& code) {
  return {u"DELETE * FROM JH WHERE SJKH=? AND RQ=?"_qs, {code, date}};
}

Query deletePlans() {
  return deleteAllFrom(u"JH"_qs);
}

Query allMemos() {
  return {u"SELECT * FROM BW"_qs};
}

Query memoOn(QDate date) {
  return {u"SELECT * FROM BW WHERE RQ=?"_qs, {date}};
}

Query memosBetween(QDate first, QDate last) {
  return {u"SELECT * FROM BW WHERE RQ>=? AND RQ<=?"_qs, {first, last}};
}

Query deleteMemos() {
  return deleteAllFrom(u"BW"_qs);
}

Query weekNamesAt(QDate date) {
  return {u"SELECT * FROM MM WHERE ?>=KSRQ AND ?<=JSRQ"_qs, {date, date}};
}

Query weekNamesByStart() {
  return u"select * from mm order by ksrq"_qs;
}

Query allWeekNames() {
  return u"select * from MM"_qs;
}

Query deleteWeekNames() {
  return deleteAllFrom(u"MM"_qs);
}

Query skinSetting() {
  return u"JM"_qs;
}

Query deleteSkinSetting() {
  return deleteAllFrom(u"JM"_qs);
}

Query minutesByCategory(QDate start, QDate end) {
  return {
      u"SELECT HD.HDLB,Sum(Hour([SJ1])*60+Minute([SJ1])-Hour([SJ0])*60-Minute([SJ0])) AS SJ"
      u" FROM HD INNER JOIN (SJ INNER JOIN JH ON SJ.SJKH = JH.SJKH) ON HD.HDMC = JH.HDMC"
      u" WHERE JH.RQ>=? AND JH.RQ <=? GROUP BY HD.HDLB"_qs,
      {start, end}};
}

Query minutesByActivity(QDate start, QDate end) {
  return {
      u"SELECT HD.HDLB,JH.HDMC,"
      u" Sum(Hour([SJ1])*60+Minute([SJ1])-Hour([SJ0])*60-Minute([SJ0])) AS SJ,"
      u" Count(JH.HDMC) AS CS"
      u" FROM HD INNER JOIN (SJ INNER JOIN JH ON SJ.SJKH = JH.SJKH) ON HD.HDMC = JH.HDMC"
      u" WHERE JH.RQ>=? AND JH.RQ <=? GROUP BY HD.HDLB,JH.HDMC"_qs,
      {start, end}};
}

Query minutesByDay(QDate start, QDate end) {
  return {
      u"SELECT JH.RQ,HD.HDLB,Sum(Hour([SJ1])*60+Minute([SJ1])-Hour([SJ0])*60-Minute([SJ0])) AS SJ"
      u" FROM HD INNER JOIN (SJ INNER JOIN JH ON SJ.SJKH = JH.SJKH) ON HD.HDMC = JH.HDMC"
      u" WHERE JH.RQ>=? AND JH.RQ <=? GROUP BY JH.RQ,HD.HDLB"_qs,
      {start, end}};
}

Query deleteAllFrom(const QString& table) {
  return QString(u"DELETE * FROM [" + table + u']');
}

}  // namespace vellora::statements
