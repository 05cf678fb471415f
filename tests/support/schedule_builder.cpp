#include "support/schedule_builder.h"

#include "routine/calendar_text.h"
#include "routine/category.h"
#include "store/schema.h"

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <stdexcept>

namespace vellora::test {
namespace {

// Waits for a program under test that is still looking through the file.
constexpr int kPatience = 5'000;  // milliseconds

QString clockText(int minutes) {
  return QTime(0, 0).addSecs(minutes * 60).toString(u"HH:mm:ss");
}

}  // namespace

ScheduleBuilder::ScheduleBuilder() {
  if (!folder_.isValid()) throw std::runtime_error(folder_.errorString().toStdString());
  createSchedule(path());
  file_ =
      std::make_unique<SQLite::Database>(path().toStdString(), SQLite::OPEN_READWRITE, kPatience);
  sql(u"PRAGMA synchronous=OFF"_qs);
}

ScheduleBuilder::~ScheduleBuilder() = default;

// The columns make numbers of the texts that are some.
ScheduleBuilder& ScheduleBuilder::insert(const char* table, const QStringList& values) {
  const QString places = QStringList(values.size(), u"?"_qs).join(u',');
  SQLite::Statement statement(
      *file_, "INSERT INTO " + std::string(table) + " VALUES (" + places.toStdString() + ')');
  for (int i = 0; i < values.size(); ++i) statement.bind(i + 1, values[i].toStdString());
  statement.exec();
  return *this;
}

ScheduleBuilder& ScheduleBuilder::block(const QString& code, const QString& start,
                                        const QString& end, const QString& name) {
  return insert("SJ", {code, name, start, end});
}

ScheduleBuilder& ScheduleBuilder::item(const QString& number, const QString& name,
                                       const QString& category, int completed, qint64 colour) {
  return insert("HD",
                {number, name, category, QString::number(completed), QString::number(colour)});
}

ScheduleBuilder& ScheduleBuilder::plan(QDate date, const QString& code, const QString& activity,
                                       const QString& requirement, int level) {
  return insert("JH", {isoDate(date), code, activity, requirement, QString::number(level)});
}

ScheduleBuilder& ScheduleBuilder::memo(QDate date, const QString& text) {
  return insert("BW", {isoDate(date), text});
}

ScheduleBuilder& ScheduleBuilder::weekName(QDate first, QDate last, const QString& name) {
  return insert("MM", {isoDate(first), isoDate(last), name});
}

ScheduleBuilder& ScheduleBuilder::skin(const QString& path) {
  return insert("JM", {path});
}

ScheduleBuilder& ScheduleBuilder::fullDay(int blocks) {
  const int length = 24 * 60 / blocks;
  for (int i = 0; i < blocks; ++i) {
    block(u"%1"_qs.arg(i + 1, 3, 10, QChar(u'0')), clockText(i * length),
          clockText((i + 1) * length - 1));
  }
  return *this;
}

ScheduleBuilder& ScheduleBuilder::items(int count) {
  for (int i = 1; i <= count; ++i) {
    const Category& category = categories()[static_cast<std::size_t>(i % kCategoryCount)];
    const QString number = u"%1"_qs.arg(i, 3, 10, QChar(u'0'));
    item(number, u"活动" + number, category.label, 0, category.colour);
  }
  return *this;
}

ScheduleBuilder& ScheduleBuilder::fullPlan(QDate first, qint64 days, int blocks, int activities) {
  const QString statement =
      u"WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i+1 FROM n LIMIT %2*%3) "
      "INSERT INTO JH SELECT date('%1',i/%3||' days'),printf('%03d',mod(i,%3)+1),"
      "printf('活动%03d',mod(i,%4)+1),'按时完成',mod(i,5) FROM n"_qs;
  return sql(statement.arg(isoDate(first)).arg(days).arg(blocks).arg(activities));
}

ScheduleBuilder& ScheduleBuilder::sql(const QString& statement) {
  file_->exec(statement.toStdString());
  return *this;
}

}  // namespace vellora::test
