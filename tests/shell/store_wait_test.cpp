#include "shell/store_wait.h"

#include "shell/work_dialog.h"
#include "support/schedule_builder.h"
#include "support/store_fault.h"
#include "support/text_output.h"

#include <QApplication>
#include <QTest>

#include <gtest/gtest.h>

namespace vellora {
namespace {

// A schedule that another program is saving to, before there is any window.
class StoreWaitTest : public testing::Test {
 protected:
  StoreWaitTest() {
    schedule_.fullDay(3);
    save_.emplace(other_);
  }
  // Deletes three blocks; as soon as the wait is told, the user does something, once.
  template <typename Act>
  qint64 deleteBlocks(Act act) {
    QTimer user;
    QObject::connect(&user, &QTimer::timeout, [&] {
      auto* dialog = qobject_cast<WorkDialog*>(QApplication::activeModalWidget());
      if (!dialog) return;
      user.stop();
      ++told_;
      EXPECT_EQ(dialog->labelText(), u"另一个程序正在使用日程文件，正在等待……"_qs);
      act(*dialog);
    });
    user.start(1);
    return store_.execute(u"DELETE * FROM SJ"_qs);
  }

  test::ScheduleBuilder schedule_;
  ScheduleStore other_{schedule_.path()};
  StoreWait wait_;
  ScheduleStore store_{schedule_.path(), std::chrono::minutes(1),
                       [this] { return wait_.mayContinue(); }};
  std::optional<ScheduleStore::Transaction> save_;
  int told_ = 0;
};

}  // namespace

TEST_F(StoreWaitTest, EndsWithTheOtherSaveEvenInTheMiddleOfASlowTurn) {
  const auto waitThenSave = [this](WorkDialog& dialog) {
    QTest::qWait(300);
    EXPECT_FALSE(dialog.isVisible());
    save_.reset();
  };
  EXPECT_EQ(deleteBlocks(waitThenSave), 3);
}

TEST_F(StoreWaitTest, EndsEachTimeTheUserGivesUp) {
  const auto giveUp = [](WorkDialog& dialog) { dialog.cancel(); };
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(test::faultOf([&] { deleteBlocks(giveUp); }), StoreFault::Busy);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  }
  EXPECT_EQ(told_, 2);
  save_.reset();
  EXPECT_EQ(deleteBlocks(giveUp), 3);
}

}  // namespace vellora
