// Uses the whole program as a person might, at random.
//
//   random_user --seed 7 --steps 500 [--only 3,17,18]   one life, every deed told
//   random_user --hunt --seed 1 --steps 5000 [--chunk 500] [--shrink 60]
//       many short lives; tells each fault with the seed, the step and the fewest steps that show
//       it, and ends with 1 when there was any

#include "random_user/hunt.h"
#include "random_user/random_user.h"

#include <QApplication>
#include <QCommandLineParser>

namespace vellora::test {
namespace {

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
