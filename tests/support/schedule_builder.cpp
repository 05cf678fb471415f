#include "support/schedule_builder.h"

#include "routine/calendar_text.h"
#include "routine/category.h"
#include "store/schema.h"

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>
#include <stdexcept>
#include <vector>

namespace vellora::test {
namespace {

constexpr const char* kInsertPlan = "INSERT INTO JH VALUES (?,?,?,?,?)";

void bind(SQLite::Statement& statement, int index, const QString& text) {
  statement.bind(index, text.toStdString());
}
void bind(SQLite::Statement& statement, int index, qint64 number) {
  statement.bind(index, static_cast<int64_t>(number));
}

template <typename... Values>
void insert(SQLite::Statement& statement, const Values&... values) {
  int index = 0;
  (bind(statement, ++index, values), ...);
  statement.exec();
  statement.reset();
}

QString numbered(int number) {
  return QString::number(number).rightJustified(3, u'0');
}

QString clockText(int minutes) {
  return QTime(0, 0).addSecs(minutes * 60).toString(u"HH:mm:ss");
}

}  // namespace

class ScheduleBuilder::File {
 public:
  // Waits for a program under test that is still looking through the file.
  explicit File(const QString& path)
      : database_(path.toStdString(), SQLite::OPEN_READWRITE, kPatience) {
    database_.exec("PRAGMA synchronous=OFF");
  }

  SQLite::Database& database() { return database_; }

  template <typename... Values>
  void insertInto(const char* sql, const Values&... values) {
    SQLite::Statement statement(database_, sql);
    insert(statement, values...);
  }

 private:
  static constexpr int kPatience = 5'000;  // milliseconds
  SQLite::Database database_;
};

ScheduleBuilder::ScheduleBuilder() {
  if (!folder_.isValid()) throw std::runtime_error(folder_.errorString().toStdString());
  createSchedule(path());
  file_ = std::make_unique<File>(path());
}

ScheduleBuilder::~ScheduleBuilder() = default;

ScheduleBuilder& ScheduleBuilder::block(const QString& code, const QString& start,
                                        const QString& end, const QString& name) {
  file_->insertInto("INSERT INTO SJ VALUES (?,?,?,?)", code, name, start, end);
  return *this;
}

ScheduleBuilder& ScheduleBuilder::item(const QString& number, const QString& name,
                                       const QString& category, int completed, qint64 colour) {
  file_->insertInto("INSERT INTO HD VALUES (?,?,?,?,?)", number, name, category, qint64{completed},
                    colour);
  return *this;
}

ScheduleBuilder& ScheduleBuilder::plan(QDate date, const QString& code, const QString& activity,
                                       const QString& requirement, int level) {
  file_->insertInto(kInsertPlan, isoDate(date), code, activity, requirement, qint64{level});
  return *this;
}

ScheduleBuilder& ScheduleBuilder::memo(QDate date, const QString& text) {
  file_->insertInto("INSERT INTO BW VALUES (?,?)", isoDate(date), text);
  return *this;
}

ScheduleBuilder& ScheduleBuilder::weekName(QDate first, QDate last, const QString& name) {
  file_->insertInto("INSERT INTO MM VALUES (?,?,?)", isoDate(first), isoDate(last), name);
  return *this;
}

ScheduleBuilder& ScheduleBuilder::skin(const QString& path) {
  file_->insertInto("INSERT INTO JM VALUES (?)", path);
  return *this;
}

ScheduleBuilder& ScheduleBuilder::fullDay(int blocks) {
  const int length = 24 * 60 / blocks;
  for (int i = 0; i < blocks; ++i) {
    block(numbered(i + 1), clockText(i * length), clockText((i + 1) * length - 1));
  }
  return *this;
}

ScheduleBuilder& ScheduleBuilder::items(int count) {
  for (int i = 1; i <= count; ++i) {
    const Category& category = categories()[static_cast<std::size_t>(i % kCategoryCount)];
    item(numbered(i), u"活动" + numbered(i), category.label, 0, category.colour);
  }
  return *this;
}

ScheduleBuilder& ScheduleBuilder::fullPlan(QDate first, qint64 days, int blocks, int activities) {
  SQLite::Transaction transaction(file_->database());
  SQLite::Statement statement(file_->database(), kInsertPlan);
  for (qint64 i = 0; i < days * blocks; ++i) {
    insert(statement, isoDate(first.addDays(i / blocks)),
           numbered(static_cast<int>(i % blocks) + 1),
           u"活动" + numbered(static_cast<int>(i % activities) + 1), QStringLiteral("按时完成"),
           i % 5);
  }
  transaction.commit();
  return *this;
}

ScheduleBuilder& ScheduleBuilder::sql(const QString& statement) {
  file_->database().exec(statement.toStdString());
  return *this;
}

}  // namespace vellora::test
