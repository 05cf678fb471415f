#include "support/side_by_side.h"

#include <QTextStream>

#include <algorithm>
#include <array>
#include <chrono>
#include <stdexcept>

namespace vellora::bench {
namespace {

constexpr std::array<int, 5> kWidths{48, 9, 9, 8, 6};

double microseconds(const std::function<void()>& work) {
  using Clock = std::chrono::steady_clock;
  const Clock::time_point start = Clock::now();
  work();
  return std::chrono::duration<double, std::micro>(Clock::now() - start).count();
}

struct Unit {
  const char* name;
  QString shown;
  double next;  // so many of it are one of the following unit
};

// Each is followed by the next larger one.
const std::array<Unit, 5> kUnits{{{"us", QStringLiteral("µs"), 1'000},
                                  {"ms", QStringLiteral("ms"), 1'000},
                                  {"s", QStringLiteral("s"), 0},
                                  {"KiB", QStringLiteral("KiB"), 1'024},
                                  {"MiB", QStringLiteral("MiB"), 0}}};

// Three digits in the unit that suits the size.
QString quantity(double value, const std::string& unit) {
  const auto* place = std::find_if(kUnits.begin(), kUnits.end(),
                                   [&](const Unit& known) { return unit == known.name; });
  if (place == kUnits.end()) throw std::invalid_argument("no such unit: " + unit);
  for (; place->next > 0 && value >= place->next; ++place) value /= place->next;
  const int decimals = value < 10 ? 2 : value < 100 ? 1 : 0;
  return QString::number(value, 'f', decimals) + u' ' + place->shown;
}

QString ratioText(double ratio, Target target) {
  const QString text = QString::number(ratio, 'f', ratio < 0.1 ? 3 : 2);
  return target && ratio > *target ? QStringLiteral("**%1**").arg(text) : text;
}

void printRow(QTextStream& out, const QStringList& cells) {
  out << "| " << cells.front().leftJustified(kWidths.front());
  for (qsizetype i = 1; i < cells.size(); ++i) {
    out << " | " << cells[i].rightJustified(kWidths[static_cast<std::size_t>(i)]);
  }
  out << " |\n";
}

}  // namespace

double medianOf(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

void SideBySide::compare(const std::string& what, const std::function<void()>& ours,
                         const std::function<void()>& raw, int repetitions, Target target) {
  ours();
  raw();
  std::vector<double> oursTimes;
  std::vector<double> rawTimes;
  std::vector<double> ratios;
  for (int i = 0; i < repetitions; ++i) {
    oursTimes.push_back(microseconds(ours));
    rawTimes.push_back(microseconds(raw));
    ratios.push_back(oursTimes.back() / rawTimes.back());
  }
  add(what, "us", medianOf(oursTimes), medianOf(rawTimes), medianOf(ratios), target);
}

void SideBySide::record(const std::string& what, const std::string& unit, double ours, double raw,
                        Target target) {
  add(what, unit, ours, raw, ours / raw, target);
}

void SideBySide::add(const std::string& what, const std::string& unit, double ours, double raw,
                     double ratio, Target target) {
  rows_.push_back({QString::fromStdString(what), quantity(ours, unit), quantity(raw, unit),
                   ratioText(ratio, target), target ? QString::number(*target) : QString()});
}

void SideBySide::print() const {
  QTextStream out(stdout);
  printRow(out, {QStringLiteral("measure"), QStringLiteral("ours"), QStringLiteral("raw limit"),
                 QStringLiteral("ratio"), QStringLiteral("target")});
  printRow(out, {QStringLiteral(":--"), QStringLiteral("--:"), QStringLiteral("--:"),
                 QStringLiteral("--:"), QStringLiteral("--:")});
  for (const QStringList& row : rows_) printRow(out, row);
}

}  // namespace vellora::bench
