// Texts that are typed or pasted.

#include "fuzz/fuzz_target.h"
#include "grid/surface/clipboard_text.h"
#include "routine/calendar_text.h"
#include "routine/number_text.h"
#include "store/moment.h"

#include <cmath>
#include <cstring>

namespace vellora::test {
namespace {

bool readsAs(const QString& text, const Moment& moment) {
  const auto read = readMoment(text);
  return read && read->date == moment.date && read->time == moment.time;
}

QString widened(QString text) {
  for (QChar& c : text) {
    if (c > u' ' && c <= u'~') c = QChar(static_cast<char16_t>(c.unicode() - u'!' + u'！'));
  }
  return text;
}

void requireNumber(double number) {
  const QString text = numberText(number);
  require(text.toDouble() == number, "a number's text means the number");
  require(number < 0 || numericValue(text) == number, "a number's text reads back as the number");
  require(!text.contains(u'e') && !text.contains(u','), "a number's text is plain");
  const double rounded = roundHalfEven(number);
  require(rounded == std::floor(rounded), "a rounded number is whole");
  require(std::abs(rounded - number) <= 0.5, "a rounded number is the nearest");
  require(std::abs(rounded - number) < 0.5 || std::fmod(rounded, 2) == 0,
          "a half goes to the even neighbour");
}

Sheet sheetOf(const TextTable& table) {
  Sheet sheet;
  sheet.SetRows(static_cast<int>(table.size()));
  for (int row = 0; row < sheet.Rows(); ++row) {
    const QStringList& texts = table[static_cast<std::size_t>(row)];
    sheet.SetCols(std::max(sheet.Cols(), static_cast<int>(texts.size())));
    for (int col = 0; col < texts.size(); ++col) {
      sheet.SetCellText(col, row, QString(texts[col]).replace(u'\n', u'\r'));
    }
  }
  return sheet;
}

void fuzzMoment(const QByteArray& input) {
  const QString text = textOf(input);
  const auto moment = readMoment(text);
  const auto date = readDate(text);
  const auto time = readTime(text);
  require(!(date && time), "no text is a date alone and a time alone");
  if (const auto stored = readStoredDate(text)) {
    require(date == stored && isoDate(*stored) == text, "a stored date is a date");
  }
  if (!moment) return require(!date && !time, "what is no moment is no date and no time");
  require(moment->date.isValid() || moment->time.isValid(), "a moment is something");
  const QString stored = storedText(*moment);
  require(readsAs(stored, *moment), "the stored form means the same moment");
  require(storedText(*readMoment(stored)) == stored, "the stored form is the only one");
  require(readsAs(widened(text), *moment), "full-width characters mean the same");
  require(readsAs(u'\t' + text + u' ', *moment), "blanks around mean nothing");
  if (const QDate day = moment->date; day.isValid()) {
    require(readStoredDate(isoDate(day)) == day, "a day's own text is its stored form");
    require(readsAs(u' ' + longDate(day) + u'　', {day, {}}), "a day's long text is read back");
  }
  if (time) require(readTime(shortTime(*time))->hour() == time->hour(), "a time's text is a time");
}

// A text, and its first eight bytes as a number.
void fuzzNumber(const QByteArray& input) {
  const double typed = numericValue(textOf(input));
  require(std::isfinite(typed) && typed >= 0, "a text's number is a number");
  double raw = 0;
  std::memcpy(&raw, input.data(), std::min(static_cast<std::size_t>(input.size()), sizeof raw));
  requireNumber(typed);
  if (std::isfinite(raw)) requireNumber(raw);
}

void fuzzClipboard(const QByteArray& input) {
  const TextTable table = readTabSeparated(textOf(input));
  for (const QStringList& row : table) {
    require(!row.isEmpty(), "every row has a cell");
    require(!row.join(u' ').contains(u'\r'), "lines end with line feeds");
  }
  const Sheet sheet = sheetOf(table);
  const qsizetype cells = qsizetype{sheet.Rows()} * sheet.Cols();
  if (cells > 100'000) return;  // ragged rows
  const CellRange all{0, 0, sheet.Cols() - 1, sheet.Rows() - 1};
  const QString copied = tabSeparated(sheet, all);
  require(tabSeparated(sheetOf(readTabSeparated(copied)), all) == copied,
          "cells come back as they were copied");
  readHtmlTable(textOf(input));
  require(htmlTable(sheet, all).count(u"<td"_qs) == cells, "no text adds a cell to the page");
}

}  // namespace

QList<FuzzTarget> textTargets() {
  return {
      {"moment", fuzzMoment,
       inUtf8({u"2007-03-05"_qs, u"2008/2/29"_qs, u"2007.3.5"_qs, u"2007年3月5日8:30"_qs,
               u"8:30"_qs, u"23:59:59"_qs, u"9999-12-31 00:00:00"_qs,
               u" ２００７－０３－０５　８：３０ "_qs})},
      {"number",
       fuzzNumber,
       {"3", "2.5x", "7.", "005", "1.2.3", "99999999999", "0.1", QByteArray(400, '9'), "-0.0000"}},
      {"clipboard",
       fuzzClipboard,
       {"a\tb\r\n\"tab\there\"\t\n", "\"line\nline\"\t\"in \"\"side\"\"\"\r\x0A",
        "\"never closed\tx\ny\r", "\"half\"quoted\t\"\"\n\n<td>&amp;",
        "<table><tr><td rowspan=3>a<br>b<td colspan=99>c<tr><td>d</table>",
        "5\" \xE5\xAE\xBD\t\xFF"}}};
}

}  // namespace vellora::test
