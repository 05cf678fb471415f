// Makes a new schedule file with something in it. Never touches a file that is there.

#include "sample_schedule.h"
#include "store/schedule_store.h"
#include "store/schema.h"
#include "store/store_error.h"

#include <QCoreApplication>
#include <QTextStream>

namespace {

constexpr const char* kUsage =
    "usage: make_schedule starter FILE\n"
    "       make_schedule demo FILE\n"
    "       make_schedule years FILE YEARS BLOCKS\n";

bool make(const QStringList& words) {
  const QString kind = words.value(1);
  const QString path = words.value(2);
  const int years = words.value(3).toInt();
  const int blocks = words.value(4).toInt();
  const bool isYears = kind == u"years"_qs && words.size() == 5 && years > 0 && blocks > 0;
  const bool isSample = (kind == u"starter"_qs || kind == u"demo"_qs) && words.size() == 3;
  if (!isYears && !isSample) return false;

  vellora::createSchedule(path);
  vellora::ScheduleStore store(path);
  const QDate today = QDate::currentDate();
  if (isYears) {
    vellora::writeYears(store, today, years, blocks);
  } else if (kind == u"starter"_qs) {
    vellora::writeStarter(store, today);
  } else {
    vellora::writeDemonstration(store, today);
  }
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  try {
    if (make(QCoreApplication::arguments())) return EXIT_SUCCESS;
    QTextStream(stderr) << kUsage;
    return 2;
  } catch (const vellora::StoreError& error) {
    QTextStream(stderr) << error.description() << Qt::endl;
    return EXIT_FAILURE;
  }
}
