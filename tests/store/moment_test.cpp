#include "store/moment.h"

#include "support/text_output.h"

#include <gtest/gtest.h>

namespace vellora {
namespace {

TEST(Moment, ReadsWhatPeopleTypeIntoOneStoredForm) {
  const struct {
    QString typed;
    QString stored;
  } cases[] = {
      {u"2007-03-05"_qs, u"2007-03-05"_qs},
      {u"2007-3-5"_qs, u"2007-03-05"_qs},
      {u"2007/03/05"_qs, u"2007-03-05"_qs},
      {u"2007.3.5"_qs, u"2007-03-05"_qs},
      {u" ２００７０３０５ "_qs, u"2007-03-05"_qs},
      {u"2007年3月5日"_qs, u"2007-03-05"_qs},
      {u"　２００７－０３－０５ "_qs, u"2007-03-05"_qs},
      {u"2008-02-29"_qs, u"2008-02-29"_qs},
      {u"0001-01-01"_qs, u"0001-01-01"_qs},
      {u"8:30"_qs, u"08:30:00"_qs},
      {u"08:30:00"_qs, u"08:30:00"_qs},
      {u"8：30"_qs, u"08:30:00"_qs},
      {u"２３：５９：５９"_qs, u"23:59:59"_qs},
      {u"\t0:0\r\n"_qs, u"00:00:00"_qs},
      {u"2007-3-5 8:30"_qs, u"2007-03-05 08:30:00"_qs},
      {u"2007年3月5日8:30"_qs, u"2007-03-05 08:30:00"_qs},
      {u"2007/3/5  23:05:09"_qs, u"2007-03-05 23:05:09"_qs},
  };
  for (const auto& [typed, stored] : cases) {
    const std::optional<Moment> moment = readMoment(typed);
    ASSERT_TRUE(moment) << typed.toStdString();
    EXPECT_EQ(storedText(*moment), stored) << typed.toStdString();
  }
}

TEST(Moment, RefusesWhatIsNoDayOrTime) {
  for (const QString& typed : {u""_qs,
                               u"  "_qs,
                               u"25:00"_qs,
                               u"24:00"_qs,
                               u"8:60"_qs,
                               u"8:30:60"_qs,
                               u"8"_qs,
                               u"8:"_qs,
                               u"8:30:"_qs,
                               u"2007-02-30"_qs,
                               u"2007-13-01"_qs,
                               u"2007-3"_qs,
                               u"2007-3/5"_qs,
                               u"2007年3-5"_qs,
                               u"2007年3月5"_qs,
                               u"07-3-5"_qs,
                               u"20070230"_qs,
                               u"0000-01-01"_qs,
                               u"2007-003-05"_qs,
                               u"2007-3-5 25:00"_qs,
                               u"2007-3-5x"_qs,
                               u"8:30 2007-3-5"_qs,
                               u"明天"_qs,
                               u"-8:30"_qs,
                               QString(u"2007-3-5"_qs + QChar(0)),
                               u"2007-3-5T8:30"_qs}) {
    EXPECT_FALSE(readMoment(typed)) << typed.toStdString();
  }
}

}  // namespace
}  // namespace vellora
