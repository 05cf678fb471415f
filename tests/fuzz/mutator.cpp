#include "fuzz/mutator.h"

#include <iterator>

namespace vellora::test {
namespace {

// Marks that mean something to one reader or another.
const QByteArray kPieces[]{"'",    "''", "#",        "[",        "]",   "\"",   "\"\"",
                           "\t",   "\n", "\r",       ";",        "--",  "=",    " and ",
                           "*",    "0",  "99999999", "25:00",    "-",   ".",    "年",
                           "\xFF", "\0", "\x9F",     "\x7B\x7F", "{\"", "null", "#ffffff"};

}  // namespace

qsizetype Mutator::below(qsizetype limit) {
  return static_cast<qsizetype>(random_() % static_cast<std::uint32_t>(limit));
}

void Mutator::change(QByteArray& input) {
  const qsizetype at = below(input.size() + 1);
  const qsizetype length = below(std::min<qsizetype>(input.size() - at, 16) + 1);
  switch (below(6)) {
    case 0:
      if (at < input.size()) input[at] = static_cast<char>(input[at] ^ 1 << below(8));
      break;
    case 1:
      if (at < input.size()) input[at] = static_cast<char>(below(256));
      break;
    case 2:
      input.remove(at, length);
      break;
    case 3:
      input.insert(at, input.sliced(at, length));
      break;
    case 4:
      input.insert(at, kPieces[below(std::size(kPieces))]);
      break;
    default:
      input.replace(at, length, seed().left(below(64)));
  }
}

QByteArray Mutator::next() {
  QByteArray input = seed();
  for (qsizetype changes = 1 + below(4); changes > 0; --changes) change(input);
  return input;
}

}  // namespace vellora::test
