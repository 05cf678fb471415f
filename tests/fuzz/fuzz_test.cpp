#include "fuzz/fuzz_target.h"
#include "fuzz/mutator.h"

#include <gtest/gtest.h>
#include <stdexcept>

namespace vellora::test {
namespace {

constexpr int kInputs = 1'500;

// The first input, in hexadecimal, with which the target throws, and what; "" when there is none.
std::string firstFinding(const FuzzTarget& target, int inputs) {
  const std::vector<QByteArray> seeds = target.seeds();
  Mutator mutator(seeds);
  for (int i = 0; i < inputs; ++i) {
    const auto index = static_cast<std::size_t>(i);
    const QByteArray input = index < seeds.size() ? seeds[index] : mutator.next();
    try {
      target.run({reinterpret_cast<const std::uint8_t*>(input.data()),
                  static_cast<std::size_t>(input.size())});
    } catch (const std::exception& error) {
      return error.what() + std::string(": ") + input.toHex().toStdString();
    }
  }
  return {};
}

class Reader : public testing::TestWithParam<FuzzTarget> {};

TEST_P(Reader, KeepsItsPromisesWhateverItIsGiven) {
  ASSERT_FALSE(GetParam().seeds().empty());
  EXPECT_EQ(firstFinding(GetParam(), kInputs), "");
}

INSTANTIATE_TEST_SUITE_P(Every, Reader, testing::ValuesIn(kFuzzTargets),
                         [](const auto& target) { return target.param.name; });

TEST(FuzzDriver, TellsTheInputThatBreaksAPromise) {
  const FuzzTarget broken{"broken", [](Bytes input) { require(input.size() < 6, "short"); },
                          [] { return std::vector<QByteArray>{"12345"}; }};
  EXPECT_EQ(firstFinding(broken, 1), "");
  EXPECT_TRUE(firstFinding(broken, 1'000).starts_with("short: 3"));
}

}  // namespace
}  // namespace vellora::test
