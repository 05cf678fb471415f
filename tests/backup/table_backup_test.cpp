#include "grid/files/workbook_file.h"
#include "schedule/backup.h"
#include "schedule/backup_records.h"
#include "store/statements.h"
#include "support/schedule_builder.h"
#include "support/schedule_dump.h"
#include "support/temporary_folder.h"
#include "support/text_output.h"

#include <functional>
#include <unistd.h>

namespace vellora {
namespace {

const QDate kDay(2007, 3, 5);

class TableBackupTest : public testing::Test {
 protected:
  // 3 blocks, 10 items, 40 entries, 2 memos, 4 week names.
  void fill() {
    schedule_.fullDay(3).items(10).fullPlan(kDay, 13, 3, 10);
    schedule_.plan(kDay.addDays(20), u"00'1"_qs, u"读 '#[书]% 𠮷"_qs, u"一\r\n二\t"_qs, 0);
    schedule_.memo(kDay, u"\uFEFF\uFEFF"_qs + QString(300, u'长')).memo(kDay.addDays(1), u""_qs);
    for (int i = 0; i < 4; ++i) schedule_.weekName(kDay, kDay.addDays(i), u"001"_qs);
  }
  QStringList rows() { return test::dumpOf(store_); }
  qint64 backUp(const WorkProgress& progress = {}) {
    return BackupTables(store_, workbook_, path_, schedule_.folder(), progress);
  }
  qint64 restore() { return RestoreTables(store_, workbook_, path_); }
  // Why it is refused, which leaves tables and files as they were; empty when it is not.
  QString refusalOf(const std::function<void()>& job) {
    const QStringList rowsBefore = rows();
    const QStringList namesBefore = folder_.names();
    const QByteArray fileBefore = test::bytesOf(path_);
    QString reason;
    try {
      job();
      return {};
    } catch (const std::runtime_error& error) {
      reason = QString::fromUtf8(error.what());
    }
    EXPECT_EQ(rows(), rowsBefore);
    EXPECT_EQ(folder_.names(), namesBefore);
    EXPECT_EQ(test::bytesOf(path_), fileBefore);
    return reason;
  }

  test::ScheduleBuilder schedule_;
  ScheduleStore store_ = schedule_.store();
  test::TemporaryFolder folder_;
  QString path_ = folder_.path(u"备份.KTZ"_qs);
  Workbook workbook_;
};

}  // namespace

TEST_F(TableBackupTest, RestoresEveryRowFromOneNamedSheetPerTable) {
  fill();
  const QStringList before = rows();
  EXPECT_EQ(backUp(), 59);
  const Workbook file = readWorkbookFile(path_);
  for (int k = 0; k < 5; ++k) {
    EXPECT_EQ(file.SheetName(k),
              (QStringList{u"SJ"_qs, u"HD"_qs, u"JH"_qs, u"BW"_qs, u"MM"_qs})[k]);
  }
  EXPECT_EQ(file.sheetAt(0).GetCellText(2, 0), u"00:00:00"_qs);
  EXPECT_EQ(file.sheetAt(0).CellOption(2, 0), 1) << "a time stays text";
  EXPECT_FALSE(file.sheetAt(1).CellNumber(0, 0)) << "a number of an item stays text";
  EXPECT_TRUE(file.sheetAt(1).CellNumber(4, 0)) << "a colour is a number";
  schedule_.sql(u"DELETE FROM JH"_qs).sql(u"UPDATE SJ SET SJKH = 'x'"_qs).memo(kDay, u"后来"_qs);
  EXPECT_EQ(restore(), 59);
  EXPECT_EQ(rows(), before);
  EXPECT_TRUE(store_.open(statements::memoOn(kDay)).text(u"Memo").startsWith(u"\uFEFF\uFEFF长"));
}

TEST_F(TableBackupTest, EmptiesOnlyTheTablesWhoseSheetsAreThere) {
  fill();
  Workbook blocksOnly;
  blocksOnly.SetSheetName(u"SJ"_qs, 0);
  writeWorkbookFile(blocksOnly, path_);
  EXPECT_EQ(restore(), 0);
  EXPECT_EQ(rows().size(), 56);
}

TEST_F(TableBackupTest, IsNeverWrittenOverTheProgramsOwnFiles) {
  const QDir program(schedule_.folder());
  program.mkdir(u"甲"_qs);
  const QString link = folder_.path(u"link"_qs);
  const QString hard = folder_.path(u"hard"_qs);
  ASSERT_TRUE(QFile::link(schedule_.path(), link));
  ASSERT_EQ(::link(qPrintable(schedule_.path()), qPrintable(hard)), 0);
  for (const QString& path :
       {schedule_.path(), program.filePath(u"甲/../SY.mdb"_qs), link, hard,
        program.filePath(u"甲/../SY.mdb-journal"_qs), program.filePath(u"JH.ZRT"_qs),
        program.filePath(u"KTZ0.SKN"_qs), program.filePath(u"vellora"_qs)}) {
    const bool wasThere = QFile::exists(path);
    EXPECT_THROW(BackupTables(store_, workbook_, path, program.path()), FileError)
        << path.toStdString();
    EXPECT_EQ(QFile::exists(path), wasThere);
  }
  EXPECT_EQ(BackupTables(store_, workbook_, program.filePath(u"a.KTZ"_qs), program.path()), 0);
}

TEST_F(TableBackupTest, NumbersRowsAnewAndLeavesOtherKindsOut) {
  schedule_.sql(u"DROP TABLE MM"_qs)
      .sql(
          u"CREATE TABLE MM (id INTEGER PRIMARY KEY, KSRQ DATETIME, JSRQ DATETIME,"
          u" MM VARCHAR(255), Weight DOUBLE, Fixed BOOLEAN, Depth SMALLINT)"_qs)
      .sql(u"INSERT INTO MM VALUES (7, '2007-03-05', NULL, '周', 2.5, 1, -3)"_qs);
  ScheduleStore store = schedule_.store();
  BackupTables(store, workbook_, path_, schedule_.folder());
  RestoreTables(store, workbook_, path_);
  RowCursor row = store.readOnce(u"MM"_qs);
  ASSERT_TRUE(row.next());
  EXPECT_EQ(row.number(u"id"), 1);
  for (const int col : {2, 4}) EXPECT_FALSE(row.value(col).isValid()) << col;
  EXPECT_EQ(row.number(u"Fixed"), 1);
  EXPECT_EQ(row.number(u"Depth"), -3);
}

TEST_F(TableBackupTest, KeepsTheOldFileWhenAValueCouldNotBeRestored) {
  fill();
  backUp();
  const std::pair<QString, QString> kChanges[]{
      {u"BW SET Memo=NULL"_qs, u"表“备忘录”第 1 条记录的“备忘内容”没有值。"_qs},
      {u"JH SET RQ='2007-02-30' WHERE rowid=2"_qs,
       u"表“活动计划”第 2 条记录的“日期”不是日期或时间：“2007-02-30”。"_qs},
      {u"HD SET FRGB='红'"_qs, u"表“活动项目”第 1 条记录的“颜色”不是整数：“红”。"_qs},
      {u"HD SET SFWC=40000"_qs, u"表“活动项目”第 1 条记录的“状态”超出了范围：“40000”。"_qs},
      {u"SJ SET SJKM=printf('%.256c','0')"_qs,
       u"表“时间划分”第 1 条记录的“时间块名称”太长：“"_qs + QString(30, u'0') + u"…”。"_qs},
  };
  for (const auto& [change, reason] : kChanges) {
    schedule_.sql(u"UPDATE "_qs + change);
    EXPECT_EQ(refusalOf([this] { backUp(); }), reason);
  }
}

// The disk keeps nothing of what was written, or another cell.
TEST_F(TableBackupTest, KeepsTheOldFileWhenTheNewOneReadsBackWrong) {
  fill();
  backUp();
  const QString otherPath = folder_.path(u"别的"_qs);
  workbook_.sheetAt(2).SetCellText(3, 39, u"别的"_qs);
  writeWorkbookFile(workbook_, otherPath);
  for (const QByteArray& kept : {QByteArray(), test::bytesOf(otherPath)}) {
    const auto keep = [&](const WorkStep& step) {
      const QString unfinished = folder_.names().filter(u".tmp"_qs).value(0);
      if (step.what.contains(u"核对")) test::writeBytes(folder_.path(unfinished), kept);
      return true;
    };
    EXPECT_EQ(refusalOf([&] { backUp(keep); }),
              u"文件“%1”写好后，读回的内容与日程表不一致。"_qs.arg(path_));
  }
}

TEST_F(TableBackupTest, RefusesWhatIsNoBackupOfThisScheduleAndChangesNothing) {
  fill();
  backUp();
  schedule_.memo(kDay, u"保留"_qs);
  const auto put = [](int sheet, int col, int row, const QString& text) {
    return [=](Workbook& backup) { backup.sheetAt(sheet).SetCellText(col, row, text); };
  };
  const std::pair<std::function<void(Workbook&)>, QString> kChanges[]{
      {put(4, 0, 2, u"二月三十"_qs),
       u"表“每周命名”第 3 条记录：“开始时间”要填日期或时间，“二月三十”不是。"_qs},
      {put(2, 4, 5, u"3000000000"_qs),
       u"表“活动计划”第 6 条记录：“等级”只能存 -2147483648 到 2147483647 的数，3000000000 "
       u"超出了范围。"_qs},
      {put(1, 1, 0, QString(256, u'长')),
       u"表“活动项目”第 1 条记录：“名称”最多存 255 个字，这里有 256 个字。"_qs},
      {[](Workbook& backup) { backup.sheetAt(2).SetCols(4); },
       u"备份中的表“活动计划”有 4 列，日程表需要 5 列。"_qs},
      {[](Workbook& backup) { backup.SetSheetName(u"1"_qs, 0); },
       u"文件“%1”不是日程表的备份：第 1 张工作表不是“SJ”。"_qs.arg(path_)},
  };
  for (const auto& [change, reason] : kChanges) {
    Workbook backup = workbook_;
    change(backup);
    writeWorkbookFile(backup, path_);
    EXPECT_EQ(refusalOf([this] { restore(); }), reason);
  }
}

}  // namespace vellora
