#pragma once

namespace vellora::test {

// From now on a crash tells on standard output where it happened, and so does a stall: ten seconds
// without a beat. The sanitizers tell crashes themselves, and are given a minute.
void tellLastWords();
void beat();

}  // namespace vellora::test
