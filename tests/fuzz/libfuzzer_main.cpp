// One target under libFuzzer: TARGET names it. The first argument that is a folder is the corpus
// and receives the target's seeds.

#include "fuzz/fuzz_target.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <string_view>

namespace {

using vellora::test::FuzzTarget;
using vellora::test::kFuzzTargets;

const FuzzTarget& target() {
  return *std::find_if(std::begin(kFuzzTargets), std::end(kFuzzTargets),
                       [](const FuzzTarget& t) { return std::string_view(t.name) == TARGET; });
}

void laySeeds(const QDir& corpus) {
  int number = 0;
  for (const QByteArray& seed : target().seeds()) {
    QFile file(corpus.filePath(u"seed%1"_qs.arg(++number)));
    const bool isWritten = file.open(QIODevice::WriteOnly) && file.write(seed) == seed.size();
    vellora::test::require(isWritten, "the corpus can be written");
  }
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
  for (int i = 1; i < *argc; ++i) {
    const QDir corpus(QFile::decodeName((*argv)[i]));
    if (!corpus.exists()) continue;
    laySeeds(corpus);
    break;
  }
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  target().run({data, size});
  return 0;
}
