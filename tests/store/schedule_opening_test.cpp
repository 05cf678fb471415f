#include "store/schedule_store.h"
#include "store/schema.h"
#include "store/statements.h"
#include "support/failing_disk.h"
#include "support/schedule_builder.h"
#include "support/store_fault.h"
#include "support/text_output.h"

#include <QDir>
#include <QFile>

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vellora {
namespace {

using test::descriptionOf;
using test::FailingDisk;
using test::faultOf;
using test::ScheduleBuilder;

using test::kMonday;

QByteArray contentOf(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void writeContent(const QString& path, const QByteArray& content) {
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  ASSERT_EQ(file.write(content), content.size());
}

std::optional<StoreFault> openingFault(const QString& path) {
  return faultOf([&] { const ScheduleStore store(path, std::chrono::milliseconds(5)); });
}

int indexCount(const QString& path) {
  SQLite::Database database(path.toStdString());
  return database.execAndGet("SELECT count(*) FROM sqlite_schema WHERE type='index'").getInt();
}

TEST(Opening, AMissingFileIsNamedAndNotCreated) {
  const QTemporaryDir folder;
  const QString path = folder.filePath(u"SY.mdb"_qs);
  EXPECT_EQ(openingFault(path), StoreFault::FileMissing);
  EXPECT_TRUE(descriptionOf([&] { const ScheduleStore store(path); }).contains(path));
  EXPECT_TRUE(QDir(folder.path()).isEmpty());
  EXPECT_EQ(openingFault(folder.path()), StoreFault::NotADatabase);
}

TEST(Opening, RefusesFilesThatAreNoScheduleAndLeavesThemAsTheyAre) {
  const QTemporaryDir folder;
  const QString path = folder.filePath(u"SY.mdb"_qs);
  for (const QByteArray& content : {QByteArray(), QByteArray("SQLite format 3"),
                                    QByteArray(5'000, 'x'), QByteArray(5'000, '\0')}) {
    writeContent(path, content);
    EXPECT_EQ(openingFault(path), StoreFault::NotADatabase) << content.size();
    EXPECT_EQ(contentOf(path), content);
  }
}

TEST(Opening, ReportsATruncatedOrOverwrittenSchedule) {
  ScheduleBuilder builder;
  builder.fullDay(50).fullPlan(kMonday, 60, 50, 5);
  const QByteArray whole = contentOf(builder.path());
  const QString path = builder.folder() + u"/broken.mdb";
  for (const qsizetype size :
       {qsizetype{512}, qsizetype{4'096}, whole.size() / 2, whole.size() - 1}) {
    writeContent(path, whole.first(size));
    EXPECT_EQ(openingFault(path), StoreFault::Damaged) << size << " of " << whole.size();
    EXPECT_EQ(contentOf(path).size(), size);
  }
  QByteArray overwritten = whole;
  overwritten.replace(whole.size() / 2, 40'000, QByteArray(40'000, '\xA5'));
  writeContent(path, overwritten);
  ScheduleStore store(path);
  EXPECT_EQ(faultOf([&] { store.open(statements::allPlans()).count(); }), StoreFault::Damaged);
  EXPECT_EQ(store.open(statements::allBlocks()).count(), 50) << "what can be read is read";
}

// Bytes 18 and 19 of the file and 44 to 47 tell how it may be written, read and understood.
TEST(Opening, NeitherMisreadsNorChangesAFileOfANewerFormat) {
  const struct {
    int place;
    std::optional<StoreFault> fault;
  } cases[]{{19, StoreFault::NotADatabase}, {47, StoreFault::NotADatabase}, {18, std::nullopt}};
  for (const auto& [place, fault] : cases) {
    ScheduleBuilder builder;
    QByteArray newer = contentOf(builder.path());
    newer[place] = 9;
    const QString path = builder.folder() + u"/newer.mdb";
    writeContent(path, newer);
    EXPECT_EQ(openingFault(path), fault) << place;
    EXPECT_TRUE(fault || ScheduleStore(path).isReadOnly()) << "it can be read, not written";
    EXPECT_EQ(contentOf(path), newer);
  }
}

TEST(Opening, TakesWhatAWriteAheadLogStillHoldsIntoTheOneFile) {
  ScheduleBuilder builder;
  const QString path = builder.folder() + u"/log.mdb";
  builder.sql(u"PRAGMA journal_mode=WAL"_qs).item(u"001"_qs, u"晨跑"_qs);
  ASSERT_TRUE(QFile::copy(builder.path(), path));
  ASSERT_TRUE(QFile::copy(builder.path() + u"-wal", path + u"-wal"));
  EXPECT_EQ(ScheduleStore(path).open(statements::allItems()).count(), 1);
  EXPECT_EQ(contentOf(path).at(18), 1) << "a file with a rollback journal";
  EXPECT_EQ(QDir(builder.folder()).entryList({u"log.mdb-*"_qs}).size(), 0);
}

TEST(Opening, NamesTheTableOrColumnThatIsMissing) {
  for (const SchemaTable& table : schemaTables()) {
    ScheduleBuilder builder;
    const QString name = QString::fromLatin1(table.name);
    const QString column = QString::fromLatin1(table.columns.back().name);
    builder.sql(u"DROP INDEX IF EXISTS BW_RQ"_qs)
        .sql(u"ALTER TABLE %1 RENAME COLUMN %2 TO other"_qs.arg(name, column));
    EXPECT_EQ(openingFault(builder.path()), StoreFault::ColumnMissing);
    const QString lost = descriptionOf([&] { const ScheduleStore store(builder.path()); });
    EXPECT_TRUE(lost.contains(name) && lost.contains(column)) << lost.toStdString();
    builder.sql(u"DROP TABLE "_qs + name);
    EXPECT_EQ(openingFault(builder.path()), StoreFault::TableMissing);
    EXPECT_TRUE(descriptionOf([&] { const ScheduleStore store(builder.path()); }).contains(name));
  }
}

TEST(Opening, RefusesWhatPosesAsATable) {
  for (const char16_t* pose : {u"CREATE VIEW MM AS SELECT RQ KSRQ, RQ JSRQ, Memo MM FROM BW",
                               u"CREATE VIRTUAL TABLE MM USING fts5(KSRQ, JSRQ)"}) {
    ScheduleBuilder builder;
    builder.sql(u"DROP TABLE MM"_qs).sql(QString::fromUtf16(pose));
    EXPECT_EQ(openingFault(builder.path()), StoreFault::TableMissing);
    EXPECT_TRUE(descriptionOf([&] {
                  const ScheduleStore store(builder.path());
                }).contains(u"不是普通的表"_qs));
  }
}

TEST(Opening, DoesNotWaitForAPipeInTheJournalsPlace) {
  ScheduleBuilder builder;
  const QString pipe = builder.path() + u"-journal";
  ASSERT_EQ(mkfifo(pipe.toUtf8().constData(), 0600), 0);
  EXPECT_TRUE(descriptionOf([&] { const ScheduleStore store(builder.path()); }).contains(pipe));
}

TEST(Opening, RunsNothingThatTheFileHolds) {
  ScheduleBuilder builder;
  builder.memo(kMonday, u"备忘"_qs)
      .sql(u"CREATE TRIGGER t AFTER INSERT ON HD BEGIN DELETE FROM BW; END"_qs);
  ScheduleStore store(builder.path());
  EXPECT_EQ(store.execute(u"INSERT INTO HD (HDMC) VALUES ('晨跑')"_qs), 1);
  EXPECT_EQ(store.open(statements::allItems()).count(), 1);
  EXPECT_EQ(store.open(statements::memoOn(kMonday)).count(), 1);
}

TEST(Opening, ReadsAndSavesAScheduleInUtf16) {
  const ScheduleBuilder builder;
  const QString path = builder.folder() + u"/wide.mdb";
  {
    SQLite::Database wide(path.toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
    wide.exec("PRAGMA encoding='UTF-16le'");
    SQLite::Database narrow(builder.path().toStdString());
    SQLite::Statement creation(narrow, "SELECT sql FROM sqlite_schema");
    while (creation.executeStep()) wide.exec(creation.getColumn(0).getString());
  }
  ScheduleStore store(path);
  Recordset items = store.open(u"HD"_qs);
  for (const QString& name : {u"晨跑"_qs, u"a"_qs}) {
    items.addNew();
    items.set(u"HDMC", name);
    items.update();
  }
  EXPECT_EQ(store.open(statements::itemNamed(u"晨跑"_qs)).text(u"HDMC"), u"晨跑"_qs);
}

TEST(Opening, AddsMissingIndicesThatTheLookUpsUse) {
  ScheduleBuilder builder;
  EXPECT_EQ(indexCount(builder.path()), 5);
  for (const char* index : {"JH_RQ_SJKH", "JH_HDMC_RQ_SJKH", "HD_HDMC", "SJ_SJKH", "BW_RQ"}) {
    builder.sql(u"DROP INDEX "_qs + QLatin1String(index));
  }
  EXPECT_EQ(indexCount(builder.path()), 0);
  { const ScheduleStore store(builder.path()); }
  EXPECT_EQ(indexCount(builder.path()), 5);
  SQLite::Database database(builder.path().toStdString());
  SQLite::Statement plan(database, "EXPLAIN QUERY PLAN SELECT * FROM JH WHERE SJKH=? AND RQ=?");
  ASSERT_TRUE(plan.executeStep());
  EXPECT_NE(plan.getColumn(3).getString().find("USING INDEX"), std::string::npos);
}

TEST(Opening, AReadOnlyScheduleCanBeReadButNotSaved) {
  ScheduleBuilder builder;
  builder.item(u"001"_qs, u"晨跑"_qs).sql(u"DROP INDEX HD_HDMC"_qs);
  const QByteArray before = contentOf(builder.path());
  FailingDisk disk;
  disk.makeReadOnly();
  {
    ScheduleStore store(builder.path());
    EXPECT_TRUE(store.isReadOnly());
    Recordset items = store.open(statements::allItems());
    EXPECT_EQ(items.text(u"HDMC"), u"晨跑"_qs);
    EXPECT_EQ(faultOf([&] { store.execute(statements::deletePlans()); }), StoreFault::ReadOnly);
    EXPECT_EQ(faultOf([&] { items.remove(); }), StoreFault::ReadOnly);
    EXPECT_EQ(faultOf([&] { const ScheduleStore::Transaction save(store); }), StoreFault::ReadOnly);
    EXPECT_EQ(items.count(), 1);
  }
  EXPECT_EQ(contentOf(builder.path()), before);
}

TEST(Opening, AFolderWithoutLeaveToWriteMakesTheScheduleReadOnly) {
  if (geteuid() == 0) GTEST_SKIP() << "root may write everywhere";
  ScheduleBuilder builder;
  QFile folder(builder.folder());
  const QFile::Permissions before = folder.permissions();
  folder.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
  {
    ScheduleStore store(builder.path());
    EXPECT_TRUE(store.isReadOnly());
    EXPECT_EQ(faultOf([&] { store.execute(statements::deletePlans()); }), StoreFault::ReadOnly);
  }
  folder.setPermissions(before);
}

TEST(Creating, NeverTouchesAFileThatIsThere) {
  const QTemporaryDir folder;
  const QString path = folder.filePath(u"SY.mdb"_qs);
  writeContent(path, "手写的内容");
  EXPECT_EQ(faultOf([&] { createSchedule(path); }), StoreFault::Other);
  EXPECT_EQ(contentOf(path), QByteArray("手写的内容"));
  EXPECT_EQ(faultOf([&] { createSchedule(folder.filePath(u"无/SY.mdb"_qs)); }),
            StoreFault::InputOutput);
}

}  // namespace
}  // namespace vellora
