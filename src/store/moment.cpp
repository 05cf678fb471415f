#include "store/moment.h"

#include "routine/calendar_text.h"
#include "routine/number_text.h"

namespace vellora {
namespace {

template <typename Part>
std::optional<Part> validOrNone(Part part) {
  return part.isValid() ? std::optional<Part>(part) : std::nullopt;
}

// Walks a text from left to right. Every reader either takes its whole piece or gives none; after
// that the place in the text means nothing any more.
class MomentScanner {
 public:
  explicit MomentScanner(QStringView text) : rest_(text) {}

  bool atEnd() const { return rest_.isEmpty(); }
  bool startsWithDate() const { return leadingDigits() == 4 || leadingDigits() == kCompact; }

  std::optional<QDate> date() {
    if (leadingDigits() == kCompact) return compactDate();
    const std::optional<int> year = number(4, 4);
    const QChar mark = separator();
    const bool chinese = mark == u'年';
    const std::optional<int> month = number(1, 2);
    if (!month || !isDateMark(mark) || !skip(chinese ? u'月' : mark)) return {};
    const std::optional<int> day = number(1, 2);
    if (!day || (chinese && !skip(u'日'))) return {};
    return validOrNone(QDate(*year, *month, *day));
  }

  std::optional<QTime> time() {
    const std::optional<int> hour = number(1, 2);
    if (!hour || !skip(u':')) return {};
    const std::optional<int> minute = number(1, 2);
    const bool hasSeconds = skip(u':');
    const std::optional<int> second = hasSeconds ? number(1, 2) : 0;
    if (!minute || !second) return {};
    return validOrNone(QTime(*hour, *minute, *second));
  }

  void skipBlanks() { rest_ = rest_.trimmed(); }

 private:
  static constexpr qsizetype kCompact = 8;  // digits of 20070305

  static bool isDigit(QChar character) { return character >= u'0' && character <= u'9'; }
  static bool isDateMark(QChar mark) {
    return mark == u'-' || mark == u'/' || mark == u'.' || mark == u'年';
  }

  qsizetype leadingDigits() const {
    qsizetype count = 0;
    while (count < rest_.size() && isDigit(rest_[count])) ++count;
    return count;
  }

  std::optional<int> number(qsizetype fewest, qsizetype most) {
    const qsizetype digits = leadingDigits();
    if (digits < fewest || digits > most) return {};
    const int value = rest_.first(digits).toInt();
    rest_ = rest_.sliced(digits);
    return value;
  }

  std::optional<QDate> compactDate() {
    const int digits = *number(kCompact, kCompact);
    return validOrNone(QDate(digits / 10'000, digits / 100 % 100, digits % 100));
  }

  QChar separator() {
    if (rest_.isEmpty()) return {};
    const QChar mark = rest_.front();
    rest_ = rest_.sliced(1);
    return mark;
  }

  bool skip(QChar character) {
    if (!rest_.startsWith(character)) return false;
    rest_ = rest_.sliced(1);
    return true;
  }

  QStringView rest_;
};

template <typename Text>
std::optional<QDate> storedDate(Text text) {
  if (text.size() != 10 || text[4] != u'-' || text[7] != u'-') return {};
  int value[10];
  for (const int i : {0, 1, 2, 3, 5, 6, 8, 9}) {
    value[i] = QChar(text[i]).unicode() - u'0';
    if (value[i] < 0 || value[i] > 9) return {};
  }
  return validOrNone(QDate(value[0] * 1000 + value[1] * 100 + value[2] * 10 + value[3],
                           value[5] * 10 + value[6], value[8] * 10 + value[9]));
}

}  // namespace

std::optional<QDate> readStoredDate(QStringView text) {
  return storedDate(text);
}

std::optional<QDate> readStoredDate(QLatin1String text) {
  return storedDate(text);
}

std::optional<Moment> readMoment(QStringView text) {
  if (const auto date = readStoredDate(text)) return Moment{*date, {}};
  const QString narrow = narrowed(text.trimmed());
  MomentScanner scanner(narrow);
  Moment moment;
  if (scanner.startsWithDate()) {
    const std::optional<QDate> date = scanner.date();
    if (!date) return {};
    moment.date = *date;
    if (scanner.atEnd()) return moment;
    scanner.skipBlanks();
  }
  const std::optional<QTime> time = scanner.time();
  if (!time || !scanner.atEnd()) return {};
  moment.time = *time;
  return moment;
}

std::optional<QDate> readDate(QStringView text) {
  const std::optional<Moment> moment = readMoment(text);
  return moment && !moment->time.isValid() ? std::optional(moment->date) : std::nullopt;
}

std::optional<QTime> readTime(QStringView text) {
  const std::optional<Moment> moment = readMoment(text);
  return moment && !moment->date.isValid() ? std::optional(moment->time) : std::nullopt;
}

QString storedText(const Moment& moment) {
  QString date = isoDate(moment.date);
  if (!moment.time.isValid()) return date;
  const QString time = moment.time.toString(u"HH:mm:ss");
  return date.isEmpty() ? time : QString(date + u' ' + time);
}

}  // namespace vellora
