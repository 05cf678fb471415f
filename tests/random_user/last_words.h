#pragma once

namespace vellora::test {

// From now on a crash tells on standard output where it happened, and so does a stall: ten seconds
// without a beat. Under the sanitizers, which tell crashes themselves, only the latter.
void tellLastWords();
void beat();

}  // namespace vellora::test
