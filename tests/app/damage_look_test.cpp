#include "app/damage_look.h"

#include "store/schedule_store.h"
#include "support/schedule_builder.h"
#include "support/temporary_folder.h"
#include "support/text_output.h"

#include <SQLiteCpp/Database.h>
#include <atomic>
#include <thread>

namespace vellora {

TEST(DamageLook, LetsASaveGoFirst) {
  test::ScheduleBuilder schedule;
  schedule.fullDay(50).fullPlan(QDate(2007, 3, 5), 600, 50, 1);
  const QString save = u"INSERT INTO JM (jm) VALUES ('x')"_qs;
  bool hasMet = false;
  while (!hasMet) {
    DamageLook look(
        schedule.path(), [] { ADD_FAILURE(); }, std::chrono::hours(1));
    ScheduleStore store(schedule.path(), std::chrono::hours(1), [&] {
      hasMet = true;
      look.makeWay();
      return true;
    });
    look.begin();
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
    store.execute(save);
    EXPECT_TRUE(!hasMet || !look.isOver()) << "the save waited for the look's end";
  }
}

TEST(DamageLook, LooksAgainAtAScheduleThatWasBusy) {
  test::ScheduleBuilder schedule;
  schedule.fullDay(20).fullPlan(QDate(2007, 3, 5), 300, 20, 5);
  QByteArray damaged = test::bytesOf(schedule.path());
  damaged.replace(damaged.size() / 3, 4'096, QByteArray(4'096, '\0'));
  const test::TemporaryFolder folder;
  const QString path = folder.path(u"SY.mdb"_qs);
  test::writeBytes(path, damaged);
  std::atomic<bool> isTold = false;
  DamageLook look(
      path, [&] { isTold = true; }, std::chrono::milliseconds(50));
  {
    SQLite::Database other(path.toStdString(), SQLite::OPEN_READWRITE);
    other.exec("BEGIN EXCLUSIVE");
    look.begin();
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    EXPECT_FALSE(look.isOver());
  }
  look.finish();
  EXPECT_TRUE(isTold);
}

}  // namespace vellora
