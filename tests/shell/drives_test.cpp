#include "shell/drives.h"

#include "grid/files/file_error.h"
#include "support/text_output.h"

#include <gtest/gtest.h>

namespace vellora {

TEST(RealPath, BeginsAtTheCurrentDrivesRootUnlessItIsTheSystemsOwn) {
  const QString home = u"/home/小明"_qs;
  const struct {
    QString given;
    QString real;
  } cases[]{{u"\\活动项目.HTM"_qs, u"/home/小明/活动项目.HTM"_qs},
            {u"\\文档\\计划.xls"_qs, u"/home/小明/文档/计划.xls"_qs},
            {u"\\"_qs, u"/home/小明"_qs},
            {u"/media/盘\\日程表备份.KTZ"_qs, u"/media/盘/日程表备份.KTZ"_qs},
            {u"/\\x.KTZ"_qs, u"/x.KTZ"_qs}};
  for (const auto& c : cases) EXPECT_EQ(realPath(c.given, home), c.real);
}

TEST(RealPath, RefusesADriveThatTheSystemCannotHave) {
  if (hasDriveLetters()) GTEST_SKIP();
  for (const QString& path : {u"C:\\x.KTZ"_qs, u"d:/x.KTZ"_qs, u"E:"_qs}) {
    EXPECT_THROW(realPath(path, u"/home/小明"_qs), FileError) << path.toStdString();
  }
  EXPECT_EQ(realPath(u"\\C:"_qs, u"/home"_qs), u"/home/C:"_qs);
}

}  // namespace vellora
