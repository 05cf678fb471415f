// Uses the whole program as a person might, at random; hunt.py sends it into many lives.
//
//   random_user --seed 7 --steps 500 [--only 3,17,18]   one life, every deed told

#include "random_user/random_user.h"

#include <QApplication>
#include <QCommandLineParser>

int main(int argc, char** argv) {
  QHashSeed::setDeterministicGlobalSeed();
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  QCommandLineParser options;
  options.addOptions({{u"seed"_qs, u"of the chances"_qs, u"number"_qs, u"1"_qs},
                      {u"steps"_qs, u"in all"_qs, u"number"_qs, u"500"_qs},
                      {u"only"_qs, u"these steps"_qs, u"numbers"_qs}});
  options.process(application);
  std::set<int> only;
  for (const QString& step : options.value(u"only"_qs).split(u',', Qt::SkipEmptyParts)) {
    only.insert(step.toInt());
  }
  vellora::test::liveRandomly(
      {options.value(u"seed"_qs).toULongLong(), options.value(u"steps"_qs).toInt(), only});
}
