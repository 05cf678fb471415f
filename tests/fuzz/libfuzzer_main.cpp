// One target under libFuzzer: TARGET names it. The first argument is the corpus, which receives the
// target's seeds.

#include "fuzz/fuzz_target.h"

#include <QDir>

#include <algorithm>
#include <string_view>

using namespace vellora::test;

static const FuzzTarget& target() {
  static const auto targets = fuzzTargets();
  return *std::find_if(targets.begin(), targets.end(),
                       [](const auto& t) { return std::string_view(t.name) == TARGET; });
}

extern "C" int LLVMFuzzerInitialize(int*, char*** argv) {
  const QDir corpus(QFile::decodeName((*argv)[1]));
  int number = 0;
  for (const QByteArray& seed : target().seeds) {
    writeFile(corpus.filePath(QStringLiteral("seed%1").arg(++number)), seed);
  }
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const char* data, std::size_t size) {
  target().run({data, static_cast<qsizetype>(size)});
  return 0;
}
