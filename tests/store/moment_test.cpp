#include "store/moment.h"

#include "support/text_output.h"

#include <QStringList>

#include <gtest/gtest.h>

namespace vellora {
namespace {

TEST(Moment, ReadsWhatPeopleTypeIntoOneStoredForm) {
  const struct {
    QString stored;
    QString typed;  // between bars
  } cases[] = {
      {u"2007-03-05"_qs,
       u"2007-03-05|2007-3-5|2007/03/05|2007.3.5| ２００７０３０５ |2007年3月5日"_qs},
      {u"2007-03-05"_qs, u"　２００７－０３－０５ "_qs},
      {u"2008-02-29"_qs, u"2008-02-29"_qs},
      {u"0001-01-01"_qs, u"0001-01-01"_qs},
      {u"08:30:00"_qs, u"8:30|08:30:00|8：30"_qs},
      {u"23:59:59"_qs, u"２３：５９：５９"_qs},
      {u"00:00:00"_qs, u"\t0:0\r\n"_qs},
      {u"2007-03-05 08:30:00"_qs, u"2007-3-5 8:30|2007年3月5日8:30"_qs},
      {u"2007-03-05 23:05:09"_qs, u"2007/3/5  23:05:09"_qs},
  };
  for (const auto& [stored, all] : cases) {
    for (const QString& typed : all.split(u'|')) {
      const std::optional<Moment> moment = readMoment(typed);
      ASSERT_TRUE(moment) << typed.toStdString();
      EXPECT_EQ(storedText(*moment), stored) << typed.toStdString();
    }
  }
}

TEST(Moment, RefusesWhatIsNoDayOrTime) {
  const QString refused =
      u"|  |25:00|24:00|8:60|8:30:60|8|8:|8:30:|08:30abc|-8:30|8:30 2007-3-5|2007-3-5 25:00"
      u"|2007-02-30|2007-13-01|20070230|0000-01-01|2007-3|2007-3/5|2007年3-5|2007年3月5|07-3-5"
      u"|2007-003-05|2007-3-5x|2007-3-5T8:30|明天|2007-3-5\0"_qs;
  for (const QString& typed : refused.split(u'|')) {
    EXPECT_FALSE(readMoment(typed)) << typed.toStdString();
  }
}

}  // namespace
}  // namespace vellora
