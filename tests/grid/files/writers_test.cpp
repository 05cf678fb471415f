// All that writes files for the user: each replaces the old file whole or leaves it as it was.

#include "file_messages.h"
#include "grid/files/excel_writer.h"
#include "grid/files/export_file.h"
#include "grid/files/html_writer.h"
#include "grid/files/workbook_file.h"
#include "grid/print/print_preview.h"
#include "support/file_size_limit.h"
#include "support/temporary_folder.h"
#include "support/text_output.h"

#include <QFileInfo>
#include <QPageLayout>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vellora {
namespace {

Workbook longList() {
  Workbook book;
  book.sheet().SetCols(1);
  book.sheet().SetRows(600);
  for (int row = 0; row < 600; ++row) book.sheet().SetCellText(0, row, u"第%1条"_qs.arg(row));
  return book;
}

const Workbook kBook = longList();

std::function<void()> pulseOf(const WorkProgress& progress) {
  return [&progress] { report(progress, {u"……"_qs}); };
}

struct Writer {
  const char* name;
  void (*write)(const QString& path, const WorkProgress& progress);
  bool isExport;
};

const Writer kWriters[]{{"HTML",
                         [](const QString& path, const WorkProgress& progress) {
                           writeHtmlFile(kBook.sheet(), {}, u"表"_qs, path, progress);
                         },
                         true},
                        {"Excel",
                         [](const QString& path, const WorkProgress& progress) {
                           writeExcelFile(kBook.sheet(), {}, u"表"_qs, path, progress);
                         },
                         true},
                        {"PDF",
                         [](const QString& path, const WorkProgress& progress) {
                           savePdf(kBook.sheet(), {}, PrintHeadings::HeadingStrip, paperOf({}),
                                   u"表"_qs, path, progress);
                         },
                         true},
                        {"workbook",
                         [](const QString& path, const WorkProgress& progress) {
                           writeWorkbookFile(kBook, path, pulseOf(progress));
                         },
                         false},
                        {"workbook read back before it is kept",
                         [](const QString& path, const WorkProgress& progress) {
                           SafeFile file(path);
                           writeWorkbook(kBook, file, pulseOf(progress));
                           EXPECT_TRUE(holdsWorkbook(file.sync(), kBook, pulseOf(progress)));
                           file.commit();
                         },
                         false}};

// An ordinary user's rights, also when the tests run as root.
class OrdinaryUser {
 public:
  OrdinaryUser() : changed_(geteuid() == 0 && seteuid(kNobody) == 0) {}
  ~OrdinaryUser() { EXPECT_TRUE(!changed_ || seteuid(0) == 0); }
  OrdinaryUser(const OrdinaryUser&) = delete;
  OrdinaryUser& operator=(const OrdinaryUser&) = delete;

 private:
  static constexpr uid_t kNobody = 65'534;
  bool changed_;
};

class Writers : public testing::TestWithParam<Writer> {
 protected:
  Writers() { test::writeBytes(path, "old"); }

  static QString refusal(const QString& target) {
    return test::messageOf([&] { GetParam().write(target, {}); });
  }
  static QString reason(const QString& target, const QString& why) {
    return u"无法写入文件“%1”：%2。"_qs.arg(target, why);
  }
  void expectOldFile() const {
    EXPECT_EQ(test::bytesOf(path), "old");
    EXPECT_EQ(folder.names(), QStringList{u"表.out"_qs});
  }

  test::TemporaryFolder folder;
  const QString path = folder.path(u"表.out"_qs);
};

void PrintTo(const Writer& writer, std::ostream* out) {
  *out << writer.name;
}

INSTANTIATE_TEST_SUITE_P(All, Writers, testing::ValuesIn(kWriters));

}  // namespace

TEST_P(Writers, LeaveTheOldFileWhenGivenUpAtAnyStep) {
  int steps = 0;
  for (bool isGivenUp = true; isGivenUp; ++steps) {
    int left = steps;
    const auto progress = [&](const WorkStep&) { return left-- > 0; };
    try {
      GetParam().write(path, progress);
      isGivenUp = false;
    } catch (const WorkCancelled&) {
      expectOldFile();
    }
  }
  EXPECT_GT(steps, 2);
  EXPECT_GT(test::bytesOf(path).size(), 3);
}

TEST_P(Writers, LeaveTheOldFileWhenTheDiskFillsUp) {
  GetParam().write(path, {});
  const auto whole = static_cast<rlim_t>(QFileInfo(path).size());
  test::writeBytes(path, "old");
  for (const rlim_t limit : {rlim_t{0}, rlim_t{1}, whole / 2, whole - 1}) {
    const test::FileSizeLimit full(limit);
    EXPECT_EQ(refusal(path), reason(path, u"文件超过了系统允许的大小"_qs)) << limit;
    expectOldFile();
  }
}

TEST_P(Writers, SayWhyNothingCanBeWrittenThere) {
  const QString noFile = u"路径有误，该处不是普通文件"_qs;
  const std::pair<QString, QString> cases[]{{folder.path(u"没有/x"_qs), u"文件或文件夹不存在"_qs},
                                            {path + u"/x", noFile},
                                            {folder.path(u"."_qs), noFile},
                                            {u"/dev/full"_qs, noFile},
                                            {folder.path(QString(300, u'x')), u"文件名太长"_qs}};
  for (const auto& [target, why] : cases) EXPECT_EQ(refusal(target), reason(target, why));
  ASSERT_EQ(::chmod(QFile::encodeName(folder.path(u"."_qs)).constData(), 0555), 0);
  ASSERT_EQ(::chmod(QFile::encodeName(path).constData(), 0444), 0);
  for (const QString& target : {path, folder.path(u"新"_qs)}) {
    const OrdinaryUser user;
    EXPECT_EQ(refusal(target), reason(target, u"没有权限"_qs));
  }
  ASSERT_EQ(::chmod(QFile::encodeName(folder.path(u"."_qs)).constData(), 0755), 0);
  expectOldFile();
}

TEST(Exports, NeverReplaceThePlannersOwnFiles) {
  const QDir program(QCoreApplication::applicationDirPath());
  for (const char16_t* name : {u"SY.mdb", u"SY.mdb-journal", u"JH.ZRT", u"vellora.ini"}) {
    const QString path = program.filePath(QString::fromUtf16(name));
    for (const Writer& writer : kWriters) {
      if (!writer.isExport) continue;
      EXPECT_EQ(test::messageOf([&] { writer.write(path, {}); }),
                u"无法写入文件“%1”：它是日程表程序自己的文件，请换一个文件名。"_qs.arg(path));
      EXPECT_FALSE(QFile::exists(path)) << writer.name;
    }
  }
}

TEST(SafeFile, RemovesWhatAKilledProgramLeftAndNothingElse) {
  const test::TemporaryFolder folder;
  test::writeBytes(folder.path(u".vellora-1a2b.tmp"_qs), "half of a backup");
  test::writeBytes(folder.path(u".vellora-1a2b.txt"_qs), "the user's");
  SafeFile other(folder.path(u"别的"_qs));
  other.write(QByteArray(200'000, 'x'));
  kWriters[0].write(folder.path(u"表"_qs), {});
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
  kWriters[0].write(link, {});
  EXPECT_TRUE(QFileInfo(link).isSymLink());
  EXPECT_TRUE(test::bytesOf(path).endsWith("</html>\n"));
  EXPECT_EQ(QFile::permissions(path) & (QFile::ReadGroup | QFile::ReadOther), QFile::Permissions());
}

TEST(FileName, HoldsNothingThatANameCannot) {
  EXPECT_EQ(fileNameFor(u"读/写\\..:*?\"<>|\r\n\x7F 活动计划.HTM"_qs),
            u"读_写_..__________ 活动计划.HTM"_qs);
}

}  // namespace vellora
