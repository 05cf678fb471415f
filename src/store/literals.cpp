#include "store/literals.h"

#include "store/moment.h"
#include "store/prepared_statement.h"
#include "store/store_error.h"
#include "store/tokens.h"

#include <QStringEncoder>

#include <algorithm>

namespace vellora {
namespace {

// Writes the ASCII text that a code or date mostly is; null for any other text.
char* writeAscii(char* to, QStringView text) {
  char16_t all = 0;
  for (const QChar character : text) {
    all = static_cast<char16_t>(all | character.unicode());
    *to++ = static_cast<char>(character.unicode());
  }
  return all < 0x80 ? to : nullptr;
}

char* writeUtf8(char* to, QStringView text) {
  if (char* const end = writeAscii(to, text)) return end;
  QStringEncoder encoder(QStringEncoder::Utf8, QStringEncoder::Flag::Stateless);
  return encoder.appendToBuffer(to, text);
}

}  // namespace

void Literals::clear() {
  bytes_.clear();
  slices_.clear();
}

void Literals::append(QStringView text) {
  const qsizetype begin = bytes_.size();
  bytes_.resize(begin + text.size() * 3);
  bytes_.resize(writeUtf8(bytes_.data() + begin, text) - bytes_.data());
  slices_.append({begin, bytes_.size()});
}

void Literals::addText(QStringView inside) {
  const bool hasQuote = std::find(inside.begin(), inside.end(), u'\'') != inside.end();
  hasQuote ? append(unquoted(inside)) : append(inside);
}

void Literals::addMoment(QStringView inside) {
  if (readStoredDate(inside)) return append(inside);
  const std::optional<Moment> moment = readMoment(inside);
  if (moment) return append(storedText(*moment));
  throw StoreError(StoreFault::NotADateOrTime,
                   u"语句中的“%1”不是日期或时间。"_qs.arg(inside.left(30)));
}

void Literals::bindTo(PreparedStatement& statement) const {
  for (qsizetype i = 0; i < slices_.size(); ++i) {
    const auto [begin, end] = slices_[i];
    statement.bindText(static_cast<int>(i) + 1,
                       {bytes_.data() + begin, static_cast<std::size_t>(end - begin)});
  }
}

}  // namespace vellora
