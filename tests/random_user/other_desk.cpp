#include "random_user/other_desk.h"

#include "random_user/eyes.h"
#include "random_user/pools.h"

#include <QPointer>

namespace vellora::test {
namespace {

constexpr const char* kChanges[]{
    "INSERT INTO JH VALUES('2026-03-11','002','活动004','别处',2)",
    "INSERT INTO JH VALUES('2026-03-10','001','活动002','重复',1)",
    "INSERT INTO JH VALUES('2026-02-31','001','别处的活动','',NULL)",
    "UPDATE JH SET HDYQ='改过' WHERE RQ='2026-03-10'",
    "DELETE FROM JH WHERE HDMC='活动002' AND RQ>'2026-03-11'",
    "INSERT INTO HD VALUES('001','同号的活动','2-学习',0,255)",
    "INSERT INTO BW VALUES('2026-03-11','别处的备忘')",
    "DELETE FROM BW WHERE RQ='2026-03-10'",
    "INSERT INTO MM VALUES('2026-03-16','2026-03-22','别处的周')",
    "INSERT INTO SJ VALUES('001','同号','23:00:00','23:30:00')",
};

// Ends the waiting by hand, and tells away what is said about it.
void giveUp(const Step& step) {
  const int key = step.dice.oneIn(4) ? Qt::Key_Escape : Qt::Key_Return;
  const auto press = [&hands = step.script.hands(), key, tell = step.around.tell] {
    if (!isWaiting(true) && boxText(front()).isEmpty()) return;
    const QPointer dialog = isWaiting(true) ? front() : nullptr;
    hands.pressKey(key, {});
    hands.releaseKey(key, {});
    if (!dialog || dialog->property("wasCanceled").toBool()) return;
    tell(u"WorkDialog: a key does not give the work up"_qs, {});
  };
  for (int i = 0; i < 6; ++i) step.script.add(u"give up waiting"_qs, press);
}

}  // namespace

void changeOtherDesk(const Step& step) {
  const QString sql = QString::fromUtf8(step.dice.pick(kChanges));
  step.script.add(u"elsewhere: "_qs + sql, [&around = step.around, sql] {
    around.other.run(sql);
    around.lookAway();
  });
}

void openWhileLocked(const Step& step) {
  step.script.add(u"elsewhere: save"_qs, [&other = step.around.other] { other.lock(); });
  step.script.click(control(QString::fromLatin1(step.dice.pick(kWindowButtons))));
  if (!step.dice.oneIn(4)) giveUp(step);
  step.script.add(u"elsewhere: saved"_qs, [&other = step.around.other] { other.unlock(); });
}

}  // namespace vellora::test
