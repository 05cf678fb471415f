#include "random_user/hunt.h"

#include "random_user/random_user.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QMap>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTextStream>

#include <cxxabi.h>
#include <iterator>
#include <memory>
#include <vector>

namespace vellora::test {
namespace {

struct Fault {
  int step = 0;
  QString what;
  QString details;
};

struct Life {
  std::vector<Fault> faults;
  QStringList deeds;
  QMap<QString, int> counts;
  bool isWhole = false;

  const Fault* find(const QString& what) const {
    for (const Fault& fault : faults) {
      if (fault.what == what) return &fault;
    }
    return nullptr;
  }
};

QTextStream& out() {
  static QTextStream stream(stdout);
  return stream;
}

// "./random_user(_ZN7vellora4WorkEv+0x12) [0x1]" gives "vellora::Work()".
QString functionIn(const QString& frame) {
  const QByteArray name = frame.section(u'(', 1).section(u'+', 0, 0).toLatin1();
  int status = 0;
  const std::unique_ptr<char, decltype(&std::free)> plain(
      abi::__cxa_demangle(name.constData(), nullptr, nullptr, &status), &std::free);
  return status == 0 ? QString::fromUtf8(plain.get()) : QString();
}

// The planner's innermost functions; the random user's own do not count.
QString placeIn(const QStringList& frames) {
  QStringList places;
  for (const QString& frame : frames) {
    const QString function = functionIn(frame).section(u'(', 0, 0);
    if (function.contains(u"vellora::test::"_qs)) continue;
    if (function.contains(u"vellora::"_qs))
      places << function.mid(function.indexOf(u"vellora::"_qs));
    if (places.size() == 2) break;
  }
  return places.join(u" < "_qs).remove(u"vellora::"_qs);
}

QString placeInReport(const QString& report) {
  for (const QString& line : report.split(u'\n')) {
    const bool isPlanners =
        line.contains(u" in vellora::"_qs) && !line.contains(u"vellora::test"_qs);
    if (isPlanners) return line.section(u" in "_qs, 1).section(u'(', 0, 0);
  }
  return report.section(u"SUMMARY:"_qs, 1).section(u'\n', 0, 0).trimmed();
}

// "double click cell 3,4" gives "double click cell".
QString lastDoing(const QStringList& deeds) {
  static const QRegularExpression kNumbers(u"[ ,]*\\d+"_qs);
  QString last;
  for (const QString& deed : deeds) {
    if (!deed.endsWith(u"release"_qs) && !deed.endsWith(u"key up"_qs)) last = deed;
  }
  return last.section(u'\t', 1).remove(kNumbers).replace(u'\t', u": "_qs).left(60);
}

// What the child said at its end, without what it says at any time.
QString complaint(const QString& errors) {
  QStringList lines = errors.split(u'\n', Qt::SkipEmptyParts);
  lines.removeIf([](const QString& line) {
    return line.contains(u"propagateSizeHints"_qs) || line.startsWith(u"QStandardPaths"_qs);
  });
  return lines.join(u'\n').left(3000);
}

void addEnd(Life& life, const QStringList& frames, const QString& end, const QString& errors) {
  if (life.isWhole) return;
  const int step = life.deeds.isEmpty() ? 0 : life.deeds.last().section(u'.', 0, 0).toInt();
  const QString place = frames.isEmpty() ? placeInReport(errors) : placeIn(frames);
  life.faults.push_back({step,
                         end + u" in "_qs + place + u" at “"_qs + lastDoing(life.deeds) + u'”',
                         complaint(errors)});
}

Life readLife(const QString& told, const QString& errors) {
  Life life;
  QStringList frames;
  QString end = u"crash"_qs;
  bool hasEnded = false;
  for (const QString& line : told.split(u'\n', Qt::SkipEmptyParts)) {
    const QStringList words = line.split(u'\t');
    if (words[0] == u"DEED"_qs) life.deeds << line.section(u'\t', 1);
    if (words[0] == u"FAULT"_qs)
      life.faults.push_back({words[1].toInt(), words[2], words.value(3)});
    if (words[0] == u"COUNT"_qs) life.counts[words[1]] += words[2].toInt();
    if (words[0] == u"DONE"_qs) life.isWhole = true;
    if (hasEnded) frames << line;
    if (words[0] == u"STALL"_qs) end = u"stall"_qs;
    hasEnded = hasEnded || words[0] == u"STALL"_qs || words[0] == u"CRASH"_qs;
  }
  addEnd(life, frames, end, errors);
  return life;
}

Life live(const Run& run) {
  const QTemporaryDir folder;
  QProcess child;
  auto environment = QProcessEnvironment::systemEnvironment();
  environment.insert(u"TMPDIR"_qs, folder.path());
  child.setProcessEnvironment(environment);
  QStringList options{u"--seed"_qs, QString::number(run.seed), u"--steps"_qs,
                      QString::number(run.steps)};
  QStringList only;
  for (const int step : run.only) only << QString::number(step);
  if (!only.isEmpty()) options << u"--only"_qs << only.join(u',');
  child.start(QCoreApplication::applicationFilePath(), options);
  child.waitForFinished(-1);
  return readLife(QString::fromUtf8(child.readAllStandardOutput()),
                  QString::fromUtf8(child.readAllStandardError()));
}

// Leaves out as many steps as it can so that the fault still happens: halves first, then smaller
// and smaller parts.
Run shrunk(const Run& met, const QString& fault, int seconds) {
  QElapsedTimer clock;
  clock.start();
  const auto happens = [&](const std::set<int>& only) {
    return !only.empty() && live({met.seed, met.steps, only}).find(fault);
  };
  std::set<int> steps;
  for (int step = 0; step < met.steps; ++step) steps.insert(step);
  for (std::size_t part = steps.size() / 2; part > 0; part /= 2) {
    for (std::size_t from = 0; from < steps.size();) {
      if (clock.elapsed() > 1000 * seconds) return {met.seed, met.steps, steps};
      std::set<int> fewer = steps;
      const auto first = std::next(fewer.begin(), static_cast<std::ptrdiff_t>(from));
      const auto left = static_cast<std::size_t>(std::distance(first, fewer.end()));
      fewer.erase(first, std::next(first, static_cast<std::ptrdiff_t>(std::min(part, left))));
      if (happens(fewer)) {
        steps = fewer;
      } else {
        from += part;
      }
    }
  }
  return {met.seed, met.steps, steps};
}

void tell(const Run& met, const Fault& fault, int shrinkSeconds) {
  out() << "FAULT " << fault.what << "\n  met: seed " << met.seed << ", step " << fault.step
        << "\n  details: " << fault.details << Qt::endl;
  if (shrinkSeconds == 0) return;
  const Run least = shrunk({met.seed, fault.step + 1, {}}, fault.what, shrinkSeconds);
  QStringList steps;
  for (const int step : least.only) steps << QString::number(step);
  out() << "  again: --seed " << least.seed << " --steps " << least.steps << " --only "
        << steps.join(u',') << "\n";
  for (const QString& deed : live(least).deeds) {
    if (!deed.endsWith(u"release"_qs) && !deed.endsWith(u"key up"_qs))
      out() << "    " << deed << "\n";
  }
  out() << Qt::flush;
}

}  // namespace

int hunt(const HuntPlan& plan) {
  QMap<QString, int> met;
  QMap<QString, int> counts;
  QElapsedTimer clock;
  clock.start();
  qint64 living = 0;
  int deeds = 0;
  for (int done = 0; done < plan.steps; done += plan.stepsOfLife) {
    const Run run{plan.seed + static_cast<quint64>(done / plan.stepsOfLife), plan.stepsOfLife, {}};
    const qint64 begun = clock.elapsed();
    const Life life = live(run);
    living += clock.elapsed() - begun;
    deeds += static_cast<int>(life.deeds.size());
    for (auto count = life.counts.begin(); count != life.counts.end(); ++count) {
      counts[count.key()] += count.value();
    }
    for (const Fault& fault : life.faults) {
      if (met[fault.what]++ == 0) tell(run, fault, plan.shrinkSeconds);
    }
  }
  out() << plan.steps << " steps, " << deeds << " deeds in " << living / 1000 << " s\n";
  for (auto count = counts.begin(); count != counts.end(); ++count) {
    out() << "  " << count.value() << " deeds in " << count.key() << "\n";
  }
  for (auto fault = met.begin(); fault != met.end(); ++fault) {
    out() << "  met " << fault.value() << " times: " << fault.key() << "\n";
  }
  return met.isEmpty() ? EXIT_SUCCESS : EXIT_FAILURE;
}

}  // namespace vellora::test
