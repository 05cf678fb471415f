#include "grid/sheet/text_pool.h"

#include "support/text_output.h"

#include <gtest/gtest.h>

namespace vellora {

TEST(TextPool, KeepsEqualTextsOnceUntilTheLastUserReleasesThem) {
  TextPool pool;
  const auto first = pool.take(u"晨跑"_qs);
  EXPECT_EQ(pool.take(u"晨跑"_qs), first);
  pool.release(first);
  EXPECT_EQ(pool.text(first), u"晨跑"_qs);
  pool.release(first);
  EXPECT_EQ(pool.text(first), QString());
  EXPECT_EQ(pool.take(QString()), TextPool::kEmpty);
}

TEST(TextPool, StaysSmallAndRightWhileTextsComeAndGo) {
  TextPool pool;
  std::vector<TextPool::Id> held(100);
  for (int turn = 0; turn < 20'000; ++turn) {
    auto& id = held[static_cast<std::size_t>(turn * 7 % 100)];
    pool.release(id);
    id = pool.take(QString::number(turn % 331));
    ASSERT_EQ(pool.text(id), QString::number(turn % 331));
    ASSERT_LE(id, 101U);
  }
}

}  // namespace vellora
