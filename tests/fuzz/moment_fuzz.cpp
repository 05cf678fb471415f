#include "fuzz/fuzz_target.h"
#include "routine/calendar_text.h"
#include "store/moment.h"

namespace vellora::test {
namespace {

bool isSame(const Moment& a, const Moment& b) {
  return a.date == b.date && a.time == b.time;
}

bool readsAs(const QString& text, const Moment& moment) {
  const auto read = readMoment(text);
  return read && isSame(*read, moment);
}

QString widened(QString text) {
  for (QChar& character : text) {
    if (character > u' ' && character <= u'~') {
      character = QChar(static_cast<char16_t>(character.unicode() - u'!' + u'！'));
    }
  }
  return text;
}

void requireEveryTextOf(QDate date) {
  const Moment day{date, {}};
  require(readStoredDate(isoDate(date)) == date, "a day's own text is its stored form");
  require(readsAs(isoDate(date), day) && readsAs(u' ' + longDate(date) + u'　', day),
          "a day is read back from every text it is shown as");
}

void requireOneForm(const QString& text, const Moment& moment) {
  const QString stored = storedText(moment);
  require(readsAs(stored, moment), "the stored form means the same moment");
  require(storedText(*readMoment(stored)) == stored, "the stored form is the only one");
  require(readsAs(widened(text), moment), "full-width characters mean the same");
  require(readsAs(u'\t' + text + u' ', moment), "blanks around mean nothing");
}

}  // namespace

void fuzzMoment(Bytes bytes) {
  const QString text = textOf(bytes);
  const auto moment = readMoment(text);
  const auto date = readDate(text);
  const auto time = readTime(text);
  require(!(date && time), "no text is a date alone and a time alone");
  if (const auto stored = readStoredDate(text)) {
    require(date == stored && isoDate(*stored) == text, "a stored date is a date");
  }
  if (!moment) return require(!date && !time, "what is no moment is no date and no time");
  require(moment->date.isValid() || moment->time.isValid(), "a moment is something");
  requireOneForm(text, *moment);
  if (moment->date.isValid()) requireEveryTextOf(moment->date);
  if (time) require(readTime(shortTime(*time))->hour() == time->hour(), "a time's text is a time");
}

std::vector<QByteArray> momentSeeds() {
  std::vector<QByteArray> seeds;
  for (const QString& text :
       {u"2007-03-05"_qs, u"2008/2/29"_qs, u"2007.3.5"_qs, u"2007年3月5日8:30"_qs, u"8:30"_qs,
        u"23:59:59"_qs, u"9999-12-31 00:00:00"_qs, u" ２００７－０３－０５　８：３０ "_qs}) {
    seeds.push_back(text.toUtf8());
  }
  return seeds;
}

}  // namespace vellora::test
