#pragma once

#include "store/schedule_store.h"

#include <QDate>
#include <QString>
#include <QTemporaryDir>

#include <memory>

namespace SQLite {
class Database;
}

namespace vellora::test {

inline const QDate kMonday(2007, 3, 5);

// Builds a schedule in a real file of a temporary folder, which goes with the builder. Rows are
// written past the store, straight into the file, many at a time.
class ScheduleBuilder {
 public:
  ScheduleBuilder();
  ~ScheduleBuilder();

  QString folder() const { return folder_.path(); }
  QString path() const { return folder_.filePath(QStringLiteral("SY.mdb")); }
  ScheduleStore store(std::chrono::milliseconds patience = std::chrono::seconds(5)) const {
    return ScheduleStore(path(), patience);
  }

  // Times are written as they stand: "08:00:00".
  ScheduleBuilder& block(const QString& code, const QString& start, const QString& end,
                         const QString& name = QStringLiteral("时段"));
  ScheduleBuilder& item(const QString& number, const QString& name,
                        const QString& category = QStringLiteral("1-工作"), int completed = 0,
                        qint64 colour = 255);
  ScheduleBuilder& plan(QDate date, const QString& code, const QString& activity,
                        const QString& requirement = QStringLiteral("要求"), int level = 1);
  ScheduleBuilder& memo(QDate date, const QString& text);
  ScheduleBuilder& weekName(QDate first, QDate last, const QString& name);
  ScheduleBuilder& skin(const QString& path);

  // Blocks 001, 002, ... that fill the day in equal lengths.
  ScheduleBuilder& fullDay(int blocks);
  // Items 001 to count, named 活动001 and so on, over the six categories in turn.
  ScheduleBuilder& items(int count);
  // A plan for every one of the blocks of fullDay on every day, the activities of items in turn.
  ScheduleBuilder& fullPlan(QDate first, qint64 days, int blocks, int activities);

  // Anything else, in the engine's own SQL.
  ScheduleBuilder& sql(const QString& statement);

 private:
  ScheduleBuilder& insert(const char* table, const QStringList& values);

  QTemporaryDir folder_;
  std::unique_ptr<SQLite::Database> file_;
};

}  // namespace vellora::test
