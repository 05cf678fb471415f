#include "backup/backup_path.h"

#include "schedule/backup_records.h"
#include "grid/files/file_error.h"
#include "support/text_output.h"

#include <gtest/gtest.h>

namespace vellora {

TEST(BackupPath, NamesTheFileAfterTheDay) {
  EXPECT_EQ(backupFileName(QDate(2007, 3, 5)), u"日程表备份2007-03-05.KTZ"_qs);
}

TEST(BackupPath, PutsOneSeparatorBetweenFolderAndName) {
  EXPECT_EQ(joinedPath(u"/"_qs, u"a.KTZ"_qs), u"/a.KTZ"_qs);
  EXPECT_EQ(joinedPath(u"/备份"_qs, u"a.KTZ"_qs), u"/备份/a.KTZ"_qs);
  EXPECT_EQ(joinedPath(u"C:\\"_qs, u"a.KTZ"_qs), u"C:\\a.KTZ"_qs);
}

TEST(BackupPath, UnderstandsBothSeparatorsAndRefusesWhatIsNoPlace) {
  EXPECT_EQ(systemPath(u" \\备份\\a.KTZ"_qs, u"/home/x"_qs), u"/home/x/备份/a.KTZ"_qs);
  EXPECT_EQ(systemPath(u"/tmp/a\\b.KTZ"_qs, u"/home/x"_qs), u"/tmp/a\\b.KTZ"_qs);
  for (const auto& text : {u""_qs, u"a.KTZ"_qs, u"/tmp/"_qs, u"\\备份\\"_qs}) {
    EXPECT_THROW(systemPath(text, u"/home/x"_qs), BackupError) << text.toStdString();
  }
  EXPECT_THROW(systemPath(u"D:\\a.KTZ"_qs, u"/home/x"_qs), FileError);
}

}  // namespace vellora
