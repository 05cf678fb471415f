#include "grid/files/safe_file.h"

#include "file_messages.h"
#include "support/file_size_limit.h"
#include "support/temporary_folder.h"
#include "support/text_output.h"

#include <QFileInfo>

#include <gtest/gtest.h>
#include <unistd.h>

namespace vellora {
namespace {

constexpr uid_t kNobody = 65'534;

// An ordinary user's rights, also when the tests run as root.
class OrdinaryUser {
 public:
  OrdinaryUser() : changed_(geteuid() == 0 && seteuid(kNobody) == 0) {}
  ~OrdinaryUser() {
    if (!changed_) return;
    EXPECT_EQ(seteuid(0), 0);
  }
  OrdinaryUser(const OrdinaryUser&) = delete;
  OrdinaryUser& operator=(const OrdinaryUser&) = delete;

 private:
  bool changed_;
};

void replace(const QString& path, const QByteArray& bytes) {
  SafeFile file(path);
  file.write(bytes);
  file.commit();
}

class SafeFileTest : public testing::Test {
 protected:
  test::TemporaryFolder folder;
  const QString path = folder.path(u"备份.KTZ"_qs);
};

}  // namespace

TEST_F(SafeFileTest, WritesANewFileAndReplacesAnOldOne) {
  replace(path, QByteArray(200'000, 'x'));
  replace(path, "short");
  EXPECT_EQ(test::bytesOf(path), "short");
  EXPECT_EQ(folder.names(), QStringList{u"备份.KTZ"_qs});
}

TEST_F(SafeFileTest, WithoutCommitTheOldFileStaysAndNothingIsLeftBeside) {
  test::writeBytes(path, "old");
  {
    SafeFile file(path);
    file.write(QByteArray(200'000, 'x'));
  }
  EXPECT_EQ(test::bytesOf(path), "old");
  EXPECT_EQ(folder.names().size(), 1);
}

TEST_F(SafeFileTest, RemovesWhatAKilledProgramLeftAndNothingElse) {
  test::writeBytes(folder.path(u".vellora-1a2b.tmp"_qs), "half of a backup");
  test::writeBytes(folder.path(u".vellora-1a2b.txt"_qs), "the user's");
  SafeFile other(folder.path(u"别的.KTZ"_qs));
  other.write(QByteArray(200'000, 'x'));
  replace(path, "new");
  EXPECT_EQ(folder.names().size(), 3) << "the other's unfinished file too";
  other.commit();
  QStringList names{u".vellora-1a2b.txt"_qs, u"别的.KTZ"_qs, u"备份.KTZ"_qs};
  EXPECT_EQ(folder.names(), names);
}

TEST_F(SafeFileTest, AFullDiskAtAnyByteLeavesTheOldFile) {
  test::writeBytes(path, "old");
  const QByteArray bytes(150'000, 'x');
  for (const rlim_t limit : {0U, 1U, 65'535U, 65'536U, 65'537U, 149'999U}) {
    const QString message = test::messageOf([&] {
      const test::FileSizeLimit full(limit);
      replace(path, bytes);
    });
    EXPECT_EQ(message, u"无法写入文件“%1”：文件超过了系统允许的大小。"_qs.arg(path));
    EXPECT_EQ(test::bytesOf(path), "old");
    EXPECT_EQ(folder.names().size(), 1);
  }
}

TEST_F(SafeFileTest, TellsTheWriterThatTheDiskIsFull) {
  const test::FileSizeLimit full(10);
  SafeFile file(path);
  EXPECT_EQ(file.write(QByteArray(70'000, 'x')), -1);
  EXPECT_TRUE(file.hasFailed());
  EXPECT_EQ(file.write("y"), -1);
}

TEST_F(SafeFileTest, KeepsPermissionsAndFollowsLinks) {
  const auto onlyOwner = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser;
  test::writeBytes(path, "old");
  ASSERT_TRUE(QFile::setPermissions(path, onlyOwner));
  const QString link = folder.path(u"link"_qs);
  ASSERT_TRUE(QFile::link(path, link));
  replace(link, "new");
  EXPECT_TRUE(QFileInfo(link).isSymLink());
  EXPECT_EQ(test::bytesOf(path), "new");
  EXPECT_EQ(QFile::permissions(path), onlyOwner);
}

TEST_F(SafeFileTest, SaysWhyNothingCanBeWrittenThere) {
  test::writeBytes(path, "old");
  const QString longName = folder.path(QString(300, u'x'));
  const struct {
    QString path;
    QString reason;
  } cases[]{{folder.path(u"没有/x"_qs), u"文件或文件夹不存在"_qs},
            {path + u"/x", u"路径有误，该处不是普通文件"_qs},
            {folder.path(u"."_qs), u"路径有误，该处不是普通文件"_qs},
            {u"/dev/full"_qs, u"路径有误，该处不是普通文件"_qs},
            {longName, u"文件名太长"_qs}};
  for (const auto& c : cases) {
    EXPECT_EQ(test::messageOf([&] { replace(c.path, "new"); }),
              u"无法写入文件“%1”：%2。"_qs.arg(c.path, c.reason));
  }
  EXPECT_EQ(folder.names().size(), 1);
}

TEST_F(SafeFileTest, RespectsReadOnlyFilesAndFolders) {
  test::writeBytes(path, "old");
  const QFileInfo info(path);
  ASSERT_TRUE(QFile::setPermissions(
      info.path(), QFile::ReadOwner | QFile::ExeOwner | QFile::ReadOther | QFile::ExeOther));
  ASSERT_TRUE(QFile::setPermissions(path, QFile::ReadOwner | QFile::ReadOther));
  const QString other = folder.path(u"新.KTZ"_qs);
  for (const QString& target : {path, other}) {
    const QString message = test::messageOf([&] {
      const OrdinaryUser user;
      replace(target, "new");
    });
    EXPECT_EQ(message, u"无法写入文件“%1”：没有权限。"_qs.arg(target));
  }
  QFile::setPermissions(info.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
  EXPECT_EQ(test::bytesOf(path), "old");
}

}  // namespace vellora
