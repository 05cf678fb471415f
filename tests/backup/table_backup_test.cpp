#include "schedule/backup.h"

#include "schedule/backup_records.h"
#include "grid/files/workbook_file.h"
#include "store/statements.h"
#include "store/store_error.h"
#include "support/failing_disk.h"
#include "support/file_size_limit.h"
#include "support/schedule_builder.h"
#include "support/schedule_dump.h"
#include "support/store_fault.h"
#include "support/temporary_folder.h"
#include "support/text_output.h"

#include <gtest/gtest.h>
#include <sqlite3.h>
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
  void clear() {
    for (const auto& table : backedUpTables()) store_.execute(u"DELETE * FROM "_qs + table);
  }
  void backUp() { BackupTables(store_, workbook_, path_, schedule_.folder()); }
  qint64 restore() { return RestoreTables(store_, workbook_, path_); }
  // The reason of a BackupError; "" without one.
  template <typename Operation>
  static QString refusalOf(Operation operation) {
    try {
      operation();
    } catch (const BackupError& error) {
      return error.description();
    }
    return {};
  }
  QString unfinishedFile() const {
    return folder_.path(folder_.names().filter(u".tmp"_qs).value(0));
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
  EXPECT_EQ(BackupTables(store_, workbook_, path_, schedule_.folder()), 59);
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
  EXPECT_TRUE(store_.open(statements::memoOn(kDay)).text(u"Memo").startsWith(u"\uFEFF\uFEFF长"));
}

TEST_F(TableBackupTest, IsNeverWrittenOverTheProgramsOwnFiles) {
  fill();
  const QDir program(schedule_.folder());
  program.mkdir(u"甲"_qs);
  ASSERT_TRUE(QFile::link(schedule_.path(), folder_.path(u"link"_qs)));
  ASSERT_EQ(
      ::link(schedule_.path().toUtf8().constData(), folder_.path(u"hard"_qs).toUtf8().constData()),
      0);
  for (const QString& path :
       {schedule_.path(), program.filePath(u"甲/../SY.mdb"_qs), folder_.path(u"link"_qs),
        folder_.path(u"hard"_qs), program.filePath(u"甲/../SY.mdb-journal"_qs),
        program.filePath(u"JH.ZRT"_qs), program.filePath(u"KTZ0.SKN"_qs),
        program.filePath(u"vellora"_qs)}) {
    const bool wasThere = QFile::exists(path);
    EXPECT_THROW(BackupTables(store_, workbook_, path, schedule_.folder()), FileError)
        << path.toStdString();
    EXPECT_EQ(QFile::exists(path), wasThere);
  }
  EXPECT_EQ(BackupTables(store_, workbook_, program.filePath(u"a.KTZ"_qs), program.path()), 59);
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
  BackupTables(store, workbook_, path_, schedule_.folder());
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

TEST_F(TableBackupTest, KeepsTheOldFileWhenAValueCouldNotBeRestored) {
  fill();
  backUp();
  const QByteArray old = test::bytesOf(path_);
  const struct {
    QString change;
    QString reason;
  } cases[]{
      {u"UPDATE BW SET Memo=NULL"_qs, u"表“备忘录”第 1 条记录的“备忘内容”没有值。"_qs},
      {u"UPDATE JH SET RQ='2007-02-30' WHERE rowid=2"_qs,
       u"表“活动计划”第 2 条记录的“日期”不是日期或时间：“2007-02-30”。"_qs},
      {u"UPDATE HD SET FRGB='红'"_qs, u"表“活动项目”第 1 条记录的“颜色”不是整数：“红”。"_qs},
      {u"UPDATE HD SET SFWC=40000"_qs, u"表“活动项目”第 1 条记录的“状态”超出了范围：“40000”。"_qs},
      {u"UPDATE SJ SET SJKM='"_qs + QString(256, u'长') + u"'"_qs,
       u"表“时间划分”第 1 条记录的“时间块名称”太长：“"_qs + QString(30, u'长') + u"”。"_qs},
  };
  for (const auto& [change, reason] : cases) {
    schedule_.sql(change);
    EXPECT_EQ(refusalOf([this] { backUp(); }), reason);
    EXPECT_EQ(test::bytesOf(path_), old);
    EXPECT_EQ(folder_.names().size(), 1);
  }
}

// The disk keeps something else than what was written: nothing at all, another workbook, one with
// another cell.
TEST_F(TableBackupTest, KeepsTheOldFileWhenTheNewOneReadsBackWrong) {
  fill();
  backUp();
  const QByteArray old = test::bytesOf(path_);
  Workbook other = readWorkbookFile(path_);
  other.sheetAt(2).SetCellText(3, 39, u"别的"_qs);
  const QString otherPath = folder_.path(u"别的"_qs);
  writeWorkbookFile(other, otherPath);
  const QByteArray otherCell = test::bytesOf(otherPath);
  writeWorkbookFile(Workbook(), otherPath);
  for (const QByteArray& kept : {QByteArray(), test::bytesOf(otherPath), otherCell}) {
    const QString reason = refusalOf([&] {
      BackupTables(store_, workbook_, path_, schedule_.folder(), [&](const WorkStep& step) {
        if (step.what.contains(u"核对")) test::writeBytes(unfinishedFile(), kept);
        return true;
      });
    });
    EXPECT_EQ(reason, u"文件“%1”写好后，读回的内容与日程表不一致。"_qs.arg(path_));
    EXPECT_EQ(test::bytesOf(path_), old);
    EXPECT_EQ(folder_.names().size(), 2);
  }
}

TEST_F(TableBackupTest, LeavesFileAndTablesWholeWhenTheDiskIsFull) {
  fill();
  backUp();
  const QByteArray old = test::bytesOf(path_);
  {
    const test::FileSizeLimit full(200);
    EXPECT_THROW(backUp(), FileError);
  }
  EXPECT_EQ(test::bytesOf(path_), old);
  EXPECT_EQ(folder_.names().size(), 1);

  schedule_.memo(kDay, u"新"_qs);
  const QStringList rows = test::dumpOf(store_);
  {
    test::FailingDisk disk;
    ScheduleStore store = schedule_.store();
    disk.failWritesAfter(2, SQLITE_FULL);
    EXPECT_EQ(test::faultOf([&] { RestoreTables(store, workbook_, path_); }), StoreFault::DiskFull);
  }
  EXPECT_EQ(test::dumpOf(store_), rows);
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
  clear();
  schedule_.memo(kDay, u"保留"_qs);
  const QStringList before = test::dumpOf(store_);
  const struct {
    int sheet, col, row;
    QString text;
    QString reason;
  } cases[]{
      {4, 0, 2, u"二月三十"_qs,
       u"表“每周命名”第 3 条记录：“开始时间”要填日期或时间，“二月三十”不是。"_qs},
      {2, 4, 5, u"3000000000"_qs,
       u"表“活动计划”第 6 条记录：“等级”只能存 -2147483648 到 2147483647 的数，3000000000 超出了范围。"_qs},
      {1, 1, 0, QString(256, u'长'),
       u"表“活动项目”第 1 条记录：“名称”最多存 255 个字，这里有 256 个字。"_qs},
  };
  for (const auto& c : cases) {
    const Workbook whole = readWorkbookFile(path_);
    changeFile(
        [&c](Workbook& backup) { backup.sheetAt(c.sheet).SetCellText(c.col, c.row, c.text); });
    EXPECT_EQ(test::descriptionOf([this] { restore(); }), c.reason);
    EXPECT_EQ(test::dumpOf(store_), before);
    writeWorkbookFile(whole, path_);
  }
}

TEST_F(TableBackupTest, TakesTheNumberThatATextBeginsWith) {
  schedule_.plan(kDay, u"001"_qs, u"读书"_qs, QString(), 7);
  backUp();
  const std::pair<const char16_t*, int> cases[]{{u"-3", -3}, {u"12级", 12}, {u"级", 0}, {u"", 0}};
  for (const auto& [text, number] : cases) {
    changeFile([&, cell = QString::fromUtf16(text)](Workbook& backup) {
      backup.sheetAt(2).SetCellText(4, 0, cell);
    });
    restore();
    RowCursor row = store_.readOnce(u"JH"_qs);
    ASSERT_TRUE(row.next());
    EXPECT_EQ(row.number(u"ZYDJ"), number);
  }
}

// Neither a file that was cut off or changed anywhere, nor one that is none at all.
TEST_F(TableBackupTest, KeepsTheTablesWhateverIsWrongWithTheFile) {
  schedule_.fullDay(1).memo(kDay, u"旧"_qs);
  backUp();
  const QByteArray whole = test::bytesOf(path_);
  schedule_.memo(kDay, u"新"_qs);
  const QStringList rows = test::dumpOf(store_);
  const auto refuses = [&](const QByteArray& bytes) {
    test::writeBytes(path_, bytes);
    EXPECT_THROW(restore(), FileError);
    return test::dumpOf(store_) == rows;
  };
  for (qsizetype size = 0; size < whole.size(); ++size) {
    ASSERT_TRUE(refuses(whole.first(size))) << "cut off after byte " << size;
  }
  for (qsizetype bit = 0; bit < whole.size() * 8; ++bit) {
    QByteArray flipped = whole;
    flipped[bit / 8] = static_cast<char>(flipped[bit / 8] ^ 1 << bit % 8);
    ASSERT_TRUE(refuses(flipped)) << "bit " << bit;
  }
}

TEST_F(TableBackupTest, RefusesWorkbooksThatAreNoBackup) {
  fill();
  backUp();
  const QStringList before = test::dumpOf(store_);
  changeFile([](Workbook& backup) { backup.sheetAt(2).SetCols(4); });
  EXPECT_EQ(refusalOf([this] { restore(); }), u"备份中的表“活动计划”有 4 列，日程表需要 5 列。"_qs);
  changeFile([](Workbook& backup) { backup.SetSheetName(u"1"_qs, 0); });
  EXPECT_EQ(refusalOf([this] { restore(); }),
            u"文件“%1”不是日程表的备份：第 1 张工作表不是“SJ”。"_qs.arg(path_));
  EXPECT_EQ(test::dumpOf(store_), before);
}

TEST_F(TableBackupTest, LeavesNoTraceWhereverItIsGivenUp) {
  fill();
  backUp();
  schedule_.memo(kDay, u"新"_qs);
  // Gives the work up at its first step, then at its second, and so on; tells how often.
  const auto stops = [this](auto job) {
    const QByteArray file = test::bytesOf(path_);
    const QStringList rows = test::dumpOf(store_);
    for (int last = 0; last < 100; ++last) {
      int step = 0;
      try {
        job([&](const WorkStep&) { return ++step <= last; });
        return last;
      } catch (const WorkGivenUp&) {
        EXPECT_EQ(test::dumpOf(store_), rows) << "given up at step " << last;
        EXPECT_EQ(test::bytesOf(path_), file) << "given up at step " << last;
        EXPECT_EQ(folder_.names().size(), 1) << "given up at step " << last;
      }
    }
    return 100;
  };
  const auto restore = [this](const auto& step) { RestoreTables(store_, workbook_, path_, step); };
  const auto backUp = [this](const auto& step) {
    BackupTables(store_, workbook_, path_, schedule_.folder(), step);
  };
  EXPECT_EQ(stops(restore), 11) << "the file read; five tables emptied and filled";
  EXPECT_EQ(stops(backUp), 7) << "five tables read; the file read back and compared";
}

}  // namespace vellora
