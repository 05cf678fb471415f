#include "grid/files/file_name.h"

#include "support/text_output.h"

#include <gtest/gtest.h>

namespace vellora {

TEST(FileName, HoldsNoCharacterThatAFileSystemRefuses) {
  EXPECT_EQ(fileNameFor(u"读/写\\..:*?\"<>|\r\n\x7F 活动计划.HTM"_qs),
            u"读_写_..__________ 活动计划.HTM"_qs);
  EXPECT_EQ(fileNameFor(u"2007-03-05 活动计划.xls"_qs), u"2007-03-05 活动计划.xls"_qs);
}

}  // namespace vellora
