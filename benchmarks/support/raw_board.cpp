#include "support/raw_board.h"

#include "routine/calendar_text.h"

#include <benchmark/benchmark.h>

namespace vellora::bench {

RawBoard::RawBoard(const QString& path, QDate first) : database_(path) {
  RawStatement blocks(database_.connection(), "SELECT SJKH FROM SJ ORDER BY SJKH");
  while (blocks.step()) codes_.push_back(blocks.text(0).toUtf8());
  for (int day = 0; day < 7; ++day) days_.push_back(isoDate(first.addDays(day)).toUtf8());
}

void RawBoard::fill() {
  database_.run("BEGIN");
  for (const QByteArray& day : days_) {
    for (const QByteArray& code : codes_) lookUp(day, code);
  }
  database_.run("COMMIT");
}

void RawBoard::lookUp(const QByteArray& day, const QByteArray& code) {
  plan_.bind(1, code);
  plan_.bind(2, day);
  if (plan_.step()) {
    const QByteArray activity = plan_.bytes(2);
    benchmark::DoNotOptimize(QString::fromUtf8(activity));
    benchmark::DoNotOptimize(plan_.text(3));
    item_.bind(1, activity);
    if (item_.step()) benchmark::DoNotOptimize(item_.number(4));
    item_.reset();
  }
  plan_.reset();
}

}  // namespace vellora::bench
