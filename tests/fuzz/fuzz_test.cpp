#include "fuzz/fuzz_target.h"
#include "grid/files/workbook_file.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <random>

namespace vellora::test {
namespace {

// Makes inputs for a target out of its seeds; the same ones on every machine.
class Mutator {
 public:
  explicit Mutator(const QByteArrayList& seeds) : seeds_(seeds) {}

  // One of the seeds with a few changes.
  QByteArray next() {
    QByteArray input = seed();
    for (qsizetype changes = 1 + below(4); changes > 0; --changes) change(input);
    return input;
  }

 private:
  qsizetype below(qsizetype limit) {
    return static_cast<qsizetype>(random_() % static_cast<std::uint32_t>(limit));
  }
  const QByteArray& seed() { return seeds_[below(seeds_.size())]; }

  void change(QByteArray& input) {
    // Marks that mean something to one reader or another.
    static const QByteArray kPieces[]{
        "'",  "''",   "#",  "[",     "]",        "\"",  "\"\"",     "\t",     "\n", "\r",
        ";",  "--",   "=",  " and ", "*",        "0",   "99999999", "25:00",  "-",  ".",
        "年", "\xFF", "\0", "\x9F",  "\x7B\x7F", "{\"", "null",     "#ffffff"};
    const qsizetype at = below(input.size() + 1);
    const qsizetype length = below(std::min<qsizetype>(input.size() - at, 16) + 1);
    const QByteArray changed[]{QByteArray(1, static_cast<char>(below(256))),
                               {},
                               input.sliced(at, length) + input.sliced(at, length),
                               input.sliced(at, length) + kPieces[below(std::size(kPieces))],
                               seed().left(below(64))};
    const qsizetype kind = below(6);
    if (kind < 5) return void(input.replace(at, kind == 0 ? 1 : length, changed[kind]));
    if (at < input.size()) input[at] = static_cast<char>(input[at] ^ 1 << below(8));
  }

  QByteArrayList seeds_;
  std::mt19937 random_{7};
};

// The first input, in hexadecimal, with which the target throws, and what; "" when there is none.
std::string firstFinding(const FuzzTarget& target, int inputs) {
  Mutator mutator(target.seeds);
  for (int i = 0; i < inputs; ++i) {
    const QByteArray input = i < target.seeds.size() ? target.seeds[i] : mutator.next();
    try {
      target.run(input);
    } catch (const std::exception& error) {
      return error.what() + std::string(": ") + input.toHex().toStdString();
    }
  }
  return {};
}

class Reader : public testing::TestWithParam<FuzzTarget> {};

TEST_P(Reader, KeepsItsPromisesWhateverItIsGiven) {
  ASSERT_FALSE(GetParam().seeds.empty());
  EXPECT_EQ(firstFinding(GetParam(), 1'500), "");
}

INSTANTIATE_TEST_SUITE_P(Every, Reader,
                         testing::ValuesIn(workbookTargets() + statementTargets() + textTargets()),
                         [](const auto& target) { return target.param.name; });

TEST(AWorkbookFile, IsRefusedWhereverItIsCutOrFlipped) {
  const QByteArray whole = workbookTargets().first().seeds.last();
  const QTemporaryDir folder;
  const auto isRefused = [&](const QByteArray& bytes) {
    writeFile(folder.filePath(u"x"_qs), bytes);
    try {
      return readWorkbookFile(folder.filePath(u"x"_qs)), false;
    } catch (const FileError&) {
      return true;
    }
  };
  for (qsizetype size = 0; size < whole.size(); ++size) ASSERT_TRUE(isRefused(whole.first(size)));
  for (qsizetype bit = 0; bit < whole.size() * 8; ++bit) {
    QByteArray flipped = whole;
    flipped[bit / 8] = static_cast<char>(flipped[bit / 8] ^ 1 << bit % 8);
    ASSERT_TRUE(isRefused(flipped)) << bit;
  }
}

TEST(FuzzDriver, TellsTheInputThatBreaksAPromise) {
  const FuzzTarget broken{
      "broken", [](const QByteArray& input) { require(input.size() < 6, "short"); }, {"12345"}};
  EXPECT_EQ(firstFinding(broken, 1), "");
  EXPECT_TRUE(firstFinding(broken, 1'000).starts_with("short: 3"));
}

}  // namespace
}  // namespace vellora::test
