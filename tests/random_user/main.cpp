// Uses the whole program as a person might, at random.
//
//   random_user --seed 7 --steps 500 [--only 3,17,18]   one life, every deed told
//   random_user --hunt --seed 1 --steps 5000 [--chunk 500] [--shrink 60]
//       many short lives; tells each fault with the seed, the step and the fewest steps that show
//       it, and ends with 1 when there was any

#include "random_user/random_user.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QElapsedTimer>
#include <QMap>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTextStream>

#include <iterator>

namespace vellora::test {
namespace {

struct Fault {
  int step = 0;
  QString what;
  QString details;
};

struct Life {
  QList<Fault> faults;
  QStringList deeds;

  bool has(const QString& what) const {
    return std::any_of(faults.begin(), faults.end(), [&](auto& f) { return f.what == what; });
  }
};

QTextStream& out() {
  static QTextStream stream(stdout);
  return stream;
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

// Deeds and faults are told as they happen; how a life that has not ended well came to its end
// follows after CRASH or STALL, or is what the sanitizers say.
Life readLife(const QString& told, const QString& errors) {
  Life life;
  QStringList end{u"crash"_qs, errors.right(3000)};
  for (const QString& line : told.split(u'\n', Qt::SkipEmptyParts)) {
    const QStringList words = line.split(u'\t');
    if (words[0] == u"DEED"_qs) life.deeds << line.section(u'\t', 1);
    if (words[0] == u"FAULT"_qs) life.faults << Fault{words[1].toInt(), words[2], words.value(3)};
    if (words[0] == u"DONE"_qs) return life;
    if (words[0] == u"STALL"_qs) end[0] = u"stall"_qs;
    if (words.size() == 1) end << line;
  }
  const int step = life.deeds.isEmpty() ? 0 : life.deeds.last().section(u'.', 0, 0).toInt();
  life.faults << Fault{step, end[0] + u" at “"_qs + lastDoing(life.deeds) + u'”', end.join(u'\n')};
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
    return !only.empty() && live({met.seed, met.steps, only}).has(fault);
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

struct HuntPlan {
  quint64 seed;
  int steps;          // in all
  int stepsOfLife;    // after which a new schedule is begun
  int shrinkSeconds;  // for each fault; 0 to leave it as it was met
};

// Sends one child after the other into random lives and tells the faults that they meet. Returns 0
// when there was none.
int hunt(const HuntPlan& plan) {
  QMap<QString, int> met;
  for (int done = 0; done < plan.steps; done += plan.stepsOfLife) {
    const Run run{plan.seed + static_cast<quint64>(done / plan.stepsOfLife), plan.stepsOfLife, {}};
    for (const Fault& fault : live(run).faults) {
      if (met[fault.what]++ == 0) tell(run, fault, plan.shrinkSeconds);
    }
  }
  for (auto fault = met.begin(); fault != met.end(); ++fault) {
    out() << "  met " << fault.value() << " times: " << fault.key() << "\n";
  }
  return met.isEmpty() ? EXIT_SUCCESS : EXIT_FAILURE;
}

std::set<int> numbersIn(const QString& list) {
  std::set<int> numbers;
  for (const QString& number : list.split(u',', Qt::SkipEmptyParts)) numbers.insert(number.toInt());
  return numbers;
}

int run(int argc, char** argv) {
  QHashSeed::setDeterministicGlobalSeed();
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  QCommandLineParser options;
  options.addOptions({{u"hunt"_qs, u"many lives"_qs},
                      {u"seed"_qs, u"of the chances"_qs, u"number"_qs, u"1"_qs},
                      {u"steps"_qs, u"in all"_qs, u"number"_qs, u"500"_qs},
                      {u"only"_qs, u"these steps"_qs, u"numbers"_qs},
                      {u"chunk"_qs, u"steps of one life"_qs, u"number"_qs, u"300"_qs},
                      {u"shrink"_qs, u"seconds for each fault"_qs, u"number"_qs, u"60"_qs}});
  options.process(application);
  const quint64 seed = options.value(u"seed"_qs).toULongLong();
  const int steps = options.value(u"steps"_qs).toInt();
  if (!options.isSet(u"hunt"_qs)) liveRandomly({seed, steps, numbersIn(options.value(u"only"_qs))});
  return hunt(
      {seed, steps, options.value(u"chunk"_qs).toInt(), options.value(u"shrink"_qs).toInt()});
}

}  // namespace

}  // namespace vellora::test

int main(int argc, char** argv) {
  return vellora::test::run(argc, argv);
}
