// All that writes files for the user.

#include "file_messages.h"
#include "grid/files/excel_writer.h"
#include "grid/files/export_file.h"
#include "grid/files/html_writer.h"
#include "grid/files/workbook_file.h"
#include "grid/print/print_preview.h"
#include "support/temporary_folder.h"
#include "support/text_output.h"

#include <QFileInfo>
#include <QPageLayout>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vellora {
namespace {

Sheet smallList() {
  Sheet sheet;
  sheet.SetCols(1);
  sheet.SetRows(60);
  for (int row = 0; row < 60; ++row) sheet.SetCellText(0, row, u"第%1条"_qs.arg(row));
  return sheet;
}

using Writer = void (*)(const QString& path);

constexpr Writer kExports[]{
    [](const QString& path) { writeHtmlFile(smallList(), {}, u"表"_qs, path); },
    [](const QString& path) { writeExcelFile(smallList(), {}, u"表"_qs, path); },
    [](const QString& path) {
      savePdf(smallList(), {}, PrintHeadings::HeadingStrip, paperOf({}), u"表"_qs, path);
    }};
constexpr Writer kWriteHtml = kExports[0];

void writeData(const QString& path) {
  Workbook book;
  book.sheet() = smallList();
  writeWorkbookFile(book, path);
}

// An ordinary user's rights, also when the tests run as root.
class OrdinaryUser {
 public:
  explicit OrdinaryUser(bool isMeant)
      : changed_(isMeant && geteuid() == 0 && seteuid(kNobody) == 0) {}
  ~OrdinaryUser() { EXPECT_TRUE(!changed_ || seteuid(0) == 0); }
  OrdinaryUser(const OrdinaryUser&) = delete;
  OrdinaryUser& operator=(const OrdinaryUser&) = delete;

 private:
  static constexpr uid_t kNobody = 65'534;
  bool changed_;
};

}  // namespace

TEST(Writers, SayWhyNothingCanBeWrittenAndLeaveTheOldFile) {
  const test::TemporaryFolder folder;
  const QString path = folder.path(u"表.out"_qs);
  test::writeBytes(path, "old");
  const QString noFile = u"路径有误，该处不是普通文件"_qs;
  const QString closed = u"没有权限"_qs;
  const struct {
    QString target, why;
    bool isClosed = false;
  } cases[]{{folder.path(u"没有/x"_qs), u"文件或文件夹不存在"_qs},
            {path + u"/x", noFile},
            {folder.path(u"."_qs), noFile},
            {u"/dev/full"_qs, noFile},
            {folder.path(QString(300, u'x')), u"文件名太长"_qs},
            {path, closed, true},
            {folder.path(u"新"_qs), closed, true}};
  const QByteArray place = QFile::encodeName(folder.path(u"."_qs));
  for (const Writer write : {kExports[0], kExports[1], kExports[2], Writer(writeData)}) {
    for (const auto& c : cases) {
      ASSERT_EQ(::chmod(place.constData(), c.isClosed ? 0555 : 0755), 0);
      QString said;
      {
        const OrdinaryUser user(c.isClosed);
        said = test::messageOf([&] { write(c.target); });
      }
      EXPECT_EQ(said, u"无法写入文件“%1”：%2。"_qs.arg(c.target, c.why));
    }
    ASSERT_EQ(::chmod(place.constData(), 0755), 0);
    EXPECT_EQ(test::bytesOf(path), "old");
    EXPECT_EQ(folder.names(), QStringList{u"表.out"_qs});
  }
}

TEST(Exports, NeverReplaceThePlannersOwnFiles) {
  const QDir program(QCoreApplication::applicationDirPath());
  for (const char16_t* name : {u"SY.mdb", u"SY.mdb-journal", u"JH.ZRT", u"vellora.ini"}) {
    const QString path = program.filePath(QString::fromUtf16(name));
    for (const Writer write : kExports) {
      EXPECT_EQ(test::messageOf([&] { write(path); }),
                u"无法写入文件“%1”：它是日程表程序自己的文件，请换一个文件名。"_qs.arg(path));
      EXPECT_FALSE(QFile::exists(path));
    }
  }
}

TEST(SafeFile, RemovesWhatAKilledProgramLeftAndNothingElse) {
  const test::TemporaryFolder folder;
  test::writeBytes(folder.path(u".vellora-1a2b.tmp"_qs), "half of a backup");
  test::writeBytes(folder.path(u".vellora-1a2b.txt"_qs), "the user's");
  SafeFile other(folder.path(u"别的"_qs));
  other.write(QByteArray(200'000, 'x'));
  kWriteHtml(folder.path(u"表"_qs));
  EXPECT_EQ(folder.names().size(), 3) << "the other's unfinished file too";
  other.commit();
  EXPECT_EQ(folder.names(), (QStringList{u".vellora-1a2b.txt"_qs, u"别的"_qs, u"表"_qs}));
}

TEST(SafeFile, KeepsPermissionsAndFollowsLinks) {
  const test::TemporaryFolder folder;
  const QString path = folder.path(u"表"_qs);
  const QString link = folder.path(u"link"_qs);
  test::writeBytes(path, "old");
  ASSERT_EQ(::chmod(QFile::encodeName(path).constData(), 0600), 0);
  ASSERT_TRUE(QFile::link(path, link));
  kWriteHtml(link);
  EXPECT_TRUE(QFileInfo(link).isSymLink());
  EXPECT_TRUE(test::bytesOf(path).endsWith("</html>\n"));
  EXPECT_EQ(QFile::permissions(path) & (QFile::ReadGroup | QFile::ReadOther), QFile::Permissions());
}

}  // namespace vellora
