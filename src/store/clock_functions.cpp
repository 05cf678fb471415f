#include "store/clock_functions.h"

#include "routine/text.h"
#include "store/moment.h"
#include "store/store_error.h"

#include <optional>
#include <sqlite3.h>
#include <string_view>

namespace vellora {
namespace {

bool isDigit(char character) {
  return character >= '0' && character <= '9';
}

// The number that two digits form; -1 when they are none.
int pair(std::string_view text, std::size_t at) {
  if (!isDigit(text[at]) || !isDigit(text[at + 1])) return -1;
  return (text[at] - '0') * 10 + text[at + 1] - '0';
}

struct ClockTime {
  int hour = 0;
  int minute = 0;
};

// The stored form 08:30:00 is read in place: statistics ask millions of times.
std::optional<ClockTime> storedClockTime(std::string_view text) {
  if (text.size() != 8 || text[2] != ':' || text[5] != ':') return {};
  const ClockTime time{pair(text, 0), pair(text, 3)};
  const bool isValid = time.hour >= 0 && time.hour < 24 && time.minute >= 0 && time.minute < 60;
  return isValid ? std::optional(time) : std::nullopt;
}

std::optional<ClockTime> clockTime(std::string_view text) {
  if (const std::optional<ClockTime> stored = storedClockTime(text)) return stored;
  const auto moment = readMoment(textFromUtf8({text.data(), static_cast<qsizetype>(text.size())}));
  if (!moment) return {};
  if (!moment->time.isValid()) return ClockTime{};
  return ClockTime{moment->time.hour(), moment->time.minute()};
}

template <int ClockTime::*part>
void clockPart(sqlite3_context* context, int, sqlite3_value** arguments) {
  const auto* const bytes = reinterpret_cast<const char*>(sqlite3_value_text(arguments[0]));
  if (bytes == nullptr) return sqlite3_result_null(context);
  const std::string_view text(bytes, static_cast<std::size_t>(sqlite3_value_bytes(arguments[0])));
  if (const std::optional<ClockTime> time = clockTime(text)) {
    return sqlite3_result_int(context, *time.*part);
  }
  const QByteArray message = QByteArray(kNotATime) + bytes;
  sqlite3_result_error(context, message.constData(), static_cast<int>(message.size()));
}

void addFunction(sqlite3* handle, const char* name,
                 void (*function)(sqlite3_context*, int, sqlite3_value**)) {
  constexpr int kFlags = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
  if (sqlite3_create_function(handle, name, 1, kFlags, nullptr, function, nullptr, nullptr) !=
      SQLITE_OK) {
    throw engineError(handle);
  }
}

}  // namespace

void addClockFunctions(sqlite3* handle) {
  addFunction(handle, "Hour", clockPart<&ClockTime::hour>);
  addFunction(handle, "Minute", clockPart<&ClockTime::minute>);
}

}  // namespace vellora
