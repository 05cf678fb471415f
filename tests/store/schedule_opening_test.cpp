#include "store/schema.h"
#include "store_fixture.h"

#include <QDir>
#include <QFile>

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <sys/stat.h>

namespace vellora {
namespace {

class Opening : public StoreTest {
 protected:
  static QByteArray contentOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }
  static std::optional<StoreFault> openingFault(const QString& path) {
    return faultOf([&] { const ScheduleStore opened(path, kHardlyPatient); });
  }
  QString openingReason() const {
    return descriptionOf([&] { const ScheduleStore opened(builder.path(), kHardlyPatient); });
  }
  int indexCount() const {
    SQLite::Database database(builder.path().toStdString());
    return database.execAndGet("SELECT count(*) FROM sqlite_schema WHERE type='index'").getInt();
  }

  QString copy = builder.folder() + u"/copy.mdb";
};

// Bytes 18 and 19 of the file and 44 to 47 tell how it may be written, read and understood.
TEST_F(Opening, TakesNoFileForWhatItIsNotAndLeavesItAsItIs) {
  builder.fullPlan(kMonday.addDays(7), 60, 50, 5);
  const QByteArray whole = contentOf(builder.path());
  const auto changedAt = [&](int place) { return QByteArray(whole).replace(place, 1, "\x09"); };
  const struct {
    QByteArray content;
    std::optional<StoreFault> fault;
  } cases[] = {
      {{}, StoreFault::NotADatabase},
      {"SQLite format 3", StoreFault::NotADatabase},
      {QByteArray(5'000, '\0'), StoreFault::NotADatabase},
      {changedAt(19), StoreFault::NotADatabase},
      {changedAt(47), StoreFault::NotADatabase},
      {changedAt(18), {}},
      {whole.first(512), StoreFault::Damaged},
      {whole.first(whole.size() / 2), StoreFault::Damaged},
      {whole.chopped(1), StoreFault::Damaged},
  };
  for (const auto& [content, fault] : cases) {
    QFile file(copy);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
    file.close();
    EXPECT_EQ(openingFault(copy), fault) << content.size();
    EXPECT_EQ(contentOf(copy), content);
    if (fault) continue;
    ScheduleStore newer(copy);
    EXPECT_EQ(newer.open(statements::openItems()).count(), 2);
    EXPECT_EQ(faultOf([&] { const ScheduleStore::Transaction save(newer); }), StoreFault::ReadOnly);
    EXPECT_EQ(faultOf([&] { newer.execute(statements::deletePlans()); }), StoreFault::ReadOnly);
  }
  EXPECT_EQ(openingFault(builder.folder()), StoreFault::NotADatabase);
  EXPECT_EQ(openingFault(builder.folder() + u"/none.mdb"), StoreFault::FileMissing);
  EXPECT_FALSE(QFile::exists(builder.folder() + u"/none.mdb"));
}

TEST_F(Opening, NamesWhatIsMissingOrPosesAsATable) {
  const struct {
    const char16_t* change;
    StoreFault fault;
    const char16_t* named;
  } cases[] = {
      {u"ALTER TABLE MM RENAME COLUMN MM TO other", StoreFault::ColumnMissing, u"MM"},
      {u"DROP TABLE MM", StoreFault::TableMissing, u"MM"},
      {u"CREATE VIEW MM AS SELECT RQ KSRQ, RQ JSRQ, Memo MM FROM BW", StoreFault::TableMissing,
       u"不是普通的表"},
      {u"DROP VIEW MM", StoreFault::TableMissing, u"MM"},
      {u"CREATE VIRTUAL TABLE MM USING fts5(KSRQ, JSRQ)", StoreFault::TableMissing,
       u"不是普通的表"},
  };
  for (const auto& [change, fault, named] : cases) {
    builder.sql(QString::fromUtf16(change));
    EXPECT_EQ(openingFault(builder.path()), fault);
    EXPECT_TRUE(openingReason().contains(QString::fromUtf16(named)));
  }
}

TEST_F(Opening, RunsAndWaitsForNothingThatLiesInTheFileOrBesideIt) {
  builder.sql(u"CREATE TRIGGER t AFTER INSERT ON HD BEGIN DELETE FROM SJ; END"_qs);
  ScheduleStore opened(builder.path());
  EXPECT_EQ(opened.execute(u"INSERT INTO HD (HDMC) VALUES ('写作')"_qs), 1);
  EXPECT_EQ(opened.open(statements::allBlocks()).count(), 2);
  const QString pipe = builder.path() + u"-journal";
  ASSERT_EQ(mkfifo(pipe.toUtf8().constData(), 0600), 0);
  EXPECT_TRUE(openingReason().contains(pipe));
}

TEST_F(Opening, TakesWhatAWriteAheadLogStillHoldsIntoTheOneFile) {
  ScheduleBuilder logged;
  logged.sql(u"PRAGMA journal_mode=WAL"_qs).item(u"001"_qs, u"晨跑"_qs);
  ASSERT_TRUE(QFile::copy(logged.path(), copy));
  ASSERT_TRUE(QFile::copy(logged.path() + u"-wal", copy + u"-wal"));
  EXPECT_EQ(ScheduleStore(copy).open(statements::allItems()).count(), 1);
  EXPECT_EQ(contentOf(copy).at(18), 1) << "a file with a rollback journal";
  EXPECT_TRUE(QDir(builder.folder()).entryList({u"copy.mdb-*"_qs}).isEmpty());
}

TEST_F(Opening, AddsMissingIndicesWhenNobodyElseIsWriting) {
  for (const char* index : {"JH_RQ_SJKH", "JH_HDMC_RQ_SJKH", "HD_HDMC", "SJ_SJKH", "BW_RQ"}) {
    builder.sql(u"DROP INDEX "_qs + QLatin1String(index));
  }
  {
    const ScheduleStore::Transaction save(store);
    EXPECT_EQ(openingFault(builder.path()), std::nullopt);
    EXPECT_EQ(indexCount(), 0);
  }
  EXPECT_EQ(openingFault(builder.path()), std::nullopt);
  EXPECT_EQ(indexCount(), 5);
}

TEST_F(Opening, CreatingNeverTouchesAFileThatIsThere) {
  const QByteArray before = contentOf(builder.path());
  EXPECT_EQ(faultOf([&] { createSchedule(builder.path()); }), StoreFault::Other);
  EXPECT_EQ(contentOf(builder.path()), before);
  EXPECT_EQ(faultOf([&] { createSchedule(copy + u"/SY.mdb"); }), StoreFault::InputOutput);
}

}  // namespace
}  // namespace vellora
