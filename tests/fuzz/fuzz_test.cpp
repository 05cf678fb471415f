#include "fuzz/fuzz_target.h"

#include <gtest/gtest.h>
#include <random>

namespace vellora::test {
namespace {

// One of the seeds with a few changes; the same ones on every machine.
QByteArray changed(const QByteArrayList& seeds, std::mt19937& random) {
  // Marks that mean something to one reader or another.
  static const QByteArray kPieces[]{"'",    "''", "#",        "[",        "]",   "\"",   "\"\"",
                                    "\t",   "\n", "\r",       ";",        "--",  "=",    " and ",
                                    "*",    "0",  "99999999", "25:00",    "-",   ".",    "年",
                                    "\xFF", "\0", "\x9F",     "\x7B\x7F", "{\"", "null", "#ffffff"};
  const auto below = [&](qsizetype limit) {
    return static_cast<qsizetype>(random() % static_cast<std::uint32_t>(limit));
  };
  QByteArray input = seeds[below(seeds.size())];
  for (qsizetype changes = 1 + below(4); changes > 0; --changes) {
    const qsizetype at = below(input.size() + 1);
    const qsizetype length = below(std::min<qsizetype>(input.size() - at, 16) + 1);
    const QByteArray old = input.sliced(at, length);
    const char first = old.isEmpty() ? '\0' : old[0];
    const QByteArray parts[]{QByteArray(1, static_cast<char>(below(256))),
                             QByteArray(1, static_cast<char>(first ^ 1 << below(8))),
                             {},
                             old + old,
                             old + kPieces[below(std::size(kPieces))],
                             seeds[below(seeds.size())].left(below(64))};
    const qsizetype kind = below(std::size(parts));
    input.replace(at, kind < 2 ? 1 : length, parts[kind]);
  }
  return input;
}

class Reader : public testing::TestWithParam<FuzzTarget> {};

TEST_P(Reader, KeepsItsPromisesWhateverItIsGiven) {
  const auto& [name, run, seeds] = GetParam();
  ASSERT_FALSE(seeds.empty());
  std::mt19937 random(7);
  for (int i = 0; i < 1'500; ++i) {
    const QByteArray input = i < seeds.size() ? seeds[i] : changed(seeds, random);
    ASSERT_NO_THROW(run(input)) << input.toHex().toStdString();
  }
}

INSTANTIATE_TEST_SUITE_P(Every, Reader, testing::ValuesIn(fuzzTargets()),
                         [](const auto& target) { return target.param.name; });

}  // namespace
}  // namespace vellora::test
