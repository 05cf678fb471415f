#include "backup/table_backup.h"

#include "backup/backup_error.h"
#include "backup/schedule_dump.h"
#include "grid/files/workbook_file.h"
#include "store/store_error.h"
#include "support/schedule_builder.h"
#include "support/store_fault.h"
#include "support/temporary_folder.h"
#include "support/text_output.h"

#include <gtest/gtest.h>
#include <optional>

namespace vellora {
namespace {

const QDate kDay(2007, 3, 5);

class TableBackupTest : public testing::Test {
 protected:
  // 3 blocks, 10 items, 40 entries, 2 memos, 4 week names.
  void fill() {
    schedule_.fullDay(3).items(10).fullPlan(kDay, 13, 3, 10);
    schedule_.plan(kDay.addDays(20), u"00'1"_qs, u"读 '#[书]% 𠮷"_qs, u"一\r\n二\t"_qs, 0);
    schedule_.memo(kDay, QString(300, u'长')).memo(kDay.addDays(1), u""_qs);
    for (int i = 0; i < 4; ++i) schedule_.weekName(kDay, kDay.addDays(i), u"001"_qs);
  }
  void clear() {
    for (const auto& table : backedUpTables()) store_.execute(u"DELETE * FROM "_qs + table);
  }
  void backUp() { BackupTables(store_, workbook_, path_); }
  qint64 restore() { return RestoreTables(store_, workbook_, path_); }
  std::optional<int> refusal() {
    try {
      restore();
    } catch (const BackupError& error) {
      return error.number();
    }
    return {};
  }
  // Changes the backup file as a program would that knows its format.
  template <typename Change>
  void changeFile(Change change) {
    Workbook backup = readWorkbookFile(path_);
    change(backup);
    writeWorkbookFile(backup, path_);
  }

  test::ScheduleBuilder schedule_;
  ScheduleStore store_ = schedule_.store();
  test::TemporaryFolder folder_;
  QString path_ = folder_.path(u"备份.KTZ"_qs);
  Workbook workbook_;
};

}  // namespace

TEST_F(TableBackupTest, WritesOneNamedSheetPerTableInTheTablesOwnOrder) {
  fill();
  EXPECT_EQ(BackupTables(store_, workbook_, path_), 59);
  const Workbook file = readWorkbookFile(path_);
  EXPECT_EQ(file.SheetCount(), 6);
  for (int k = 0; k < 5; ++k) EXPECT_EQ(file.SheetName(k), backedUpTables()[std::size_t(k)]);
  const Sheet& blocks = file.sheetAt(0);
  EXPECT_EQ(blocks.Rows(), 3);
  EXPECT_EQ(blocks.GetCellText(2, 0), u"00:00:00"_qs);
  EXPECT_EQ(blocks.CellOption(2, 0), 1) << "a time stays text";
  const Sheet& items = file.sheetAt(1);
  EXPECT_EQ(items.GetCellText(0, 0), u"001"_qs);
  EXPECT_FALSE(items.CellNumber(0, 0)) << "a number of an item stays text";
  EXPECT_TRUE(items.CellNumber(4, 0)) << "a colour is a number";
}

TEST_F(TableBackupTest, RestoresEveryRowOfABackup) {
  fill();
  const QStringList before = test::dumpOf(store_);
  ASSERT_EQ(before.size(), 59);
  backUp();
  clear();
  schedule_.memo(kDay, u"后来写的"_qs);
  EXPECT_EQ(restore(), 59);
  EXPECT_EQ(test::dumpOf(store_), before);
}

TEST_F(TableBackupTest, EmptiesATableWhoseSheetIsEmpty) {
  backUp();
  fill();
  EXPECT_EQ(restore(), 0);
  EXPECT_TRUE(test::dumpOf(store_).isEmpty());
}

TEST_F(TableBackupTest, NumbersRowsAnewAndLeavesOtherKindsOut) {
  schedule_.sql(u"DROP TABLE MM"_qs);
  schedule_.sql(
      u"CREATE TABLE MM (id INTEGER PRIMARY KEY, KSRQ DATETIME, JSRQ DATETIME,"
      u" MM VARCHAR(255), Weight DOUBLE, Fixed BOOLEAN, Depth SMALLINT)"_qs);
  schedule_.sql(u"INSERT INTO MM VALUES (7, '2007-03-05', NULL, '周', 2.5, 1, -3)"_qs);
  ScheduleStore store = schedule_.store();
  BackupTables(store, workbook_, path_);
  EXPECT_EQ(workbook_.sheetAt(4).GetCellText(0, 0), QString());
  RestoreTables(store, workbook_, path_);
  RowCursor row = store.readOnce(u"MM"_qs);
  ASSERT_TRUE(row.next());
  EXPECT_EQ(row.number(u"id"), 1);
  EXPECT_FALSE(row.value(2).isValid()) << "an empty date is no value";
  EXPECT_FALSE(row.value(4).isValid());
  EXPECT_EQ(row.number(u"Fixed"), 1);
  EXPECT_EQ(row.number(u"Depth"), -3);
}

TEST_F(TableBackupTest, KeepsTheOldFileWhenATextHasNoValue) {
  fill();
  backUp();
  const QByteArray old = test::bytesOf(path_);
  schedule_.sql(u"UPDATE BW SET Memo = NULL"_qs);
  EXPECT_THROW(backUp(), BackupError);
  EXPECT_EQ(test::bytesOf(path_), old);
  EXPECT_EQ(folder_.names().size(), 1);
}

TEST_F(TableBackupTest, RestoresOnlyTheTablesThatAShortFileHolds) {
  fill();
  Workbook blocksOnly;
  blocksOnly.SetSheetName(u"SJ"_qs, 0);
  writeWorkbookFile(blocksOnly, path_);
  EXPECT_EQ(restore(), 0);
  EXPECT_EQ(test::dumpOf(store_).size(), 56);
}

TEST_F(TableBackupTest, RefusesAWrongCellByPlaceAndChangesNothing) {
  fill();
  backUp();
  changeFile([](Workbook& backup) { backup.sheetAt(4).SetCellText(0, 2, u"二月三十"_qs); });
  clear();
  schedule_.memo(kDay, u"保留"_qs);
  const QStringList before = test::dumpOf(store_);
  const QString reason = test::descriptionOf([this] { restore(); });
  EXPECT_TRUE(reason.startsWith(u"表“MM”第 3 条记录："_qs)) << reason.toStdString();
  EXPECT_EQ(test::dumpOf(store_), before);
}

TEST_F(TableBackupTest, RefusesWorkbooksThatAreNoBackup) {
  fill();
  backUp();
  const QStringList before = test::dumpOf(store_);
  changeFile([](Workbook& backup) { backup.sheetAt(2).SetCols(4); });
  EXPECT_EQ(refusal(), BackupError::kWrongColumns);
  changeFile([](Workbook& backup) { backup.SetSheetName(u"1"_qs, 0); });
  EXPECT_EQ(refusal(), BackupError::kNotABackup);
  EXPECT_EQ(test::dumpOf(store_), before);
}

TEST_F(TableBackupTest, LeavesNoTraceWhereverItIsGivenUp) {
  fill();
  backUp();
  schedule_.memo(kDay, u"新"_qs);
  const QByteArray file = test::bytesOf(path_);
  const QStringList rows = test::dumpOf(store_);
  int step = 0;
  const auto givesUpAt = [&](int last) {
    step = 0;
    return [&step, last](const WorkStep&) { return ++step <= last; };
  };
  int stops = 0;
  for (int last = 0; last < 100; ++last) {
    try {
      RestoreTables(store_, workbook_, path_, givesUpAt(last));
      break;
    } catch (const WorkGivenUp&) {
      ++stops;
      ASSERT_EQ(test::dumpOf(store_), rows) << "restore given up at step " << last;
    }
  }
  EXPECT_GT(stops, 10) << "reading, five tables checked, five stored";
  EXPECT_THROW(BackupTables(store_, workbook_, path_, givesUpAt(2)), WorkGivenUp);
  EXPECT_EQ(test::bytesOf(path_), file);
  EXPECT_EQ(folder_.names().size(), 1);
}

}  // namespace vellora
