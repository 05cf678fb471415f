#include "shell/store_wait.h"

#include "shell/work_dialog.h"
#include "store/statements.h"
#include "support/schedule_builder.h"
#include "support/store_fault.h"

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
    user_.start(1);
  }

  template <typename Act>
  void whenTold(Act act) {
    QObject::connect(&user_, &QTimer::timeout, [this, act] {
      auto* dialog = qobject_cast<WorkDialog*>(QApplication::activeModalWidget());
      if (!dialog) return;
      told_ = dialog->labelText();
      act(*dialog);
    });
  }
  qint64 deleteBlocks() { return store_.execute(statements::deleteAllFrom(u"SJ"_qs)); }

  test::ScheduleBuilder schedule_;
  ScheduleStore other_{schedule_.path()};
  ScheduleStore store_{schedule_.path(), std::chrono::minutes(1),
                       [this] { return wait_.goesOn(); }};
  std::optional<ScheduleStore::Transaction> save_;
  StoreWait wait_;
  QTimer user_;
  QString told_;
};

}  // namespace

// A slow turn of events outlasts the wait that it belongs to.
TEST_F(StoreWaitTest, OutlivesItsOwnEndInTheMiddleOfATurn) {
  whenTold([this](WorkDialog& dialog) {
    user_.stop();
    QTest::qWait(300);
    EXPECT_FALSE(dialog.isVisible());
    save_.reset();
  });
  EXPECT_EQ(deleteBlocks(), 3);
}

TEST_F(StoreWaitTest, TellsOfALongWaitUntilItIsOver) {
  whenTold([this](WorkDialog&) { save_.reset(); });
  EXPECT_EQ(deleteBlocks(), 3);
  EXPECT_EQ(told_, u"另一个程序正在使用日程文件，正在等待……"_qs);
  EXPECT_TRUE(QTest::qWaitFor([] { return QApplication::activeModalWidget() == nullptr; }));
}

TEST_F(StoreWaitTest, EndsTheWaitWhenTheUserGivesUp) {
  whenTold([](WorkDialog& dialog) { dialog.cancel(); });
  EXPECT_EQ(test::faultOf([this] { deleteBlocks(); }), StoreFault::Busy);
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  EXPECT_EQ(test::faultOf([this] { deleteBlocks(); }), StoreFault::Busy) << "asked again";
  save_.reset();
  EXPECT_EQ(deleteBlocks(), 3);
}

}  // namespace vellora
