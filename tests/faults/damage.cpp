#include "faults/damage.h"

#include <algorithm>

namespace vellora::test {
namespace {

constexpr qsizetype kPage = 4'096;
constexpr qsizetype kHeader = 100;
constexpr qsizetype kPageHead = 40;  // kind, counts, and the first places of cells

using Random = std::mt19937;

qsizetype below(qsizetype limit, Random& random) {
  return std::uniform_int_distribution<qsizetype>(0, limit - 1)(random);
}

qsizetype anyPage(const QByteArray& bytes, Random& random) {
  return below(bytes.size() / kPage, random) * kPage;
}

void flipIn(QByteArray& bytes, qsizetype begin, qsizetype size, Random& random) {
  for (qsizetype flips = 1 + below(6, random); flips > 0; --flips) {
    char& byte = bytes[begin + below(size, random)];
    byte = static_cast<char>(byte ^ (1 << below(8, random)));
  }
}

void flipAnywhere(QByteArray& bytes, Random& random) {
  flipIn(bytes, 0, bytes.size(), random);
}

void flipHeader(QByteArray& bytes, Random& random) {
  flipIn(bytes, 0, kHeader, random);
}

void flipContents(QByteArray& bytes, Random& random) {
  flipIn(bytes, kHeader, kPage - kHeader, random);
}

void flipPageHead(QByteArray& bytes, Random& random) {
  flipIn(bytes, anyPage(bytes, random), kPageHead, random);
}

void fillPage(QByteArray& bytes, Random& random) {
  const char filling = below(2, random) == 0 ? '\0' : '\xFF';
  bytes.replace(anyPage(bytes, random), kPage, QByteArray(kPage, filling));
}

void copyPage(QByteArray& bytes, Random& random) {
  bytes.replace(anyPage(bytes, random), kPage, bytes.sliced(anyPage(bytes, random), kPage));
}

void losePage(QByteArray& bytes, Random& random) {
  bytes.remove(anyPage(bytes, random), kPage);
}

void cut(QByteArray& bytes, Random& random) {
  bytes.truncate(below(bytes.size(), random));
}

constexpr void (*kDamages[])(QByteArray&, Random&){
    flipAnywhere, flipHeader, flipContents, flipPageHead, fillPage, copyPage, losePage, cut};

}  // namespace

QByteArray damaged(const QByteArray& schedule, Random& random) {
  QByteArray bytes = schedule;
  kDamages[below(std::size(kDamages), random)](bytes, random);
  return bytes;
}

}  // namespace vellora::test
