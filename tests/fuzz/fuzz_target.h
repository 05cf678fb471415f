#pragma once

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <span>
#include <vector>

namespace vellora::test {

using Bytes = std::span<const std::uint8_t>;

// One reader of texts or files that come from outside, with what must hold whatever it is given.
struct FuzzTarget {
  const char* name;
  // Throws std::logic_error for a property that does not hold, and whatever the reader let out.
  void (*run)(Bytes input);
  // Good inputs to start from.
  std::vector<QByteArray> (*seeds)();
};

// Throws std::logic_error with the sentence when the property does not hold.
void require(bool holds, const char* property);

// UTF-8; a byte that is no part of it becomes half a surrogate pair, which texts can hold as well.
QString textOf(Bytes bytes);
QByteArray bytesOf(Bytes bytes);

void fuzzWorkbook(Bytes bytes);
void fuzzSkin(Bytes bytes);
void fuzzStatement(Bytes bytes);
void fuzzLiteral(Bytes bytes);
void fuzzMoment(Bytes bytes);
void fuzzClipboard(Bytes bytes);
void fuzzNumber(Bytes bytes);

std::vector<QByteArray> workbookSeeds();
std::vector<QByteArray> skinSeeds();
std::vector<QByteArray> statementSeeds();
std::vector<QByteArray> literalSeeds();
std::vector<QByteArray> momentSeeds();
std::vector<QByteArray> clipboardSeeds();
std::vector<QByteArray> numberSeeds();

inline constexpr FuzzTarget kFuzzTargets[]{
    {"workbook", fuzzWorkbook, workbookSeeds},    {"skin", fuzzSkin, skinSeeds},
    {"statement", fuzzStatement, statementSeeds}, {"literal", fuzzLiteral, literalSeeds},
    {"moment", fuzzMoment, momentSeeds},          {"clipboard", fuzzClipboard, clipboardSeeds},
    {"number", fuzzNumber, numberSeeds},
};

}  // namespace vellora::test
