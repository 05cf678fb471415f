#include "store/statement_cache.h"

#include "store/dialect.h"
#include "store/moment.h"
#include "store/prepared_statement.h"
#include "store/schema_tables.h"
#include "store/store_error.h"

#include <QStringEncoder>

#include <algorithm>
#include <cstring>

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

// Length of a literal's inside, given the mark that opened it and what follows; -1 without an end.
qsizetype literalLength(QChar mark, QStringView rest) {
  if (mark == u'#') return rest.indexOf(mark);
  const qsizetype end = textLiteralEnd(rest, 0);
  return end < 0 ? -1 : end - 1;
}

// Position of the next quote or number sign outside a name in brackets; -1 without one.
qsizetype nextMark(QStringView statement, qsizetype from) {
  bool isInName = false;
  for (qsizetype i = from; i < statement.size(); ++i) {
    const QChar character = statement[i];
    if (character == (isInName ? u']' : u'[')) isInName = !isInName;
    if (!isInName && (character == u'\'' || character == u'#')) return i;
  }
  return -1;
}

// Qt's comparison costs more than the pieces' few dozen characters are worth.
bool startsWith(QStringView text, const QString& piece) {
  return text.size() >= piece.size() &&
         std::memcmp(text.utf16(), piece.utf16(), static_cast<std::size_t>(piece.size()) * 2) == 0;
}

PreparedSet preparedSet(sqlite3* connection, const StatementShape& shape) {
  const Translation translation = translated(shape.text());
  PreparedSet set{PreparedStatement(connection, translation.sql),
                  {},
                  translation.table,
                  translation.isWholeTable};
  for (int column = set.firstColumn(); column < set.statement.columnCount(); ++column) {
    const QString name = set.statement.columnName(column);
    set.columns.append(
        describedColumn(name, set.statement.declaredType(column), shownColumn(set.table, name)));
  }
  return set;
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

StatementShape::StatementShape(QStringView statement) {
  qsizetype pieceStart = 0;
  qsizetype mark = nextMark(statement, 0);
  while (mark >= 0) {
    const qsizetype length = literalLength(statement[mark], statement.sliced(mark + 1));
    if (length < 0) break;
    pieces_.append(statement.sliced(pieceStart, mark + 1 - pieceStart).toString());
    pieceStart = mark + 1 + length;
    mark = nextMark(statement, pieceStart + 1);
  }
  pieces_.append(statement.sliced(pieceStart).toString());
}

bool StatementShape::takeLiterals(QStringView statement, Literals& literals) const {
  literals.clear();
  for (const QString& piece : pieces_) {
    if (!startsWith(statement, piece)) return false;
    statement = statement.sliced(piece.size());
    if (&piece == &pieces_.last()) break;
    const qsizetype length = literalLength(piece.back(), statement);
    if (length < 0) return false;
    const QStringView inside = statement.first(length);
    piece.back() == u'#' ? literals.addMoment(inside) : literals.addText(inside);
    statement = statement.sliced(length);
  }
  return statement.isEmpty();
}

PreparedSet& StatementCache::setOf(QStringView statement, Literals& literals) {
  const auto fits = [&](const auto& known) {
    return !known->set.statement.isRunning() && known->shape.takeLiterals(statement, literals);
  };
  auto found = std::find_if(known_.begin(), known_.end(), fits);
  if (found == known_.end()) {
    const StatementShape shape(statement);
    PreparedSet set = preparedSet(connection_, shape);
    shape.takeLiterals(statement, literals);
    known_.push_back(std::make_unique<Known>(Known{shape, std::move(set)}));
    found = known_.end() - 1;
  }
  std::rotate(known_.begin(), found, found + 1);
  return known_.front()->set;
}

PreparedStatement& StatementCache::native(const QByteArray& sql) {
  std::shared_ptr<PreparedStatement>& statement = native_[sql];
  if (!statement) statement = std::make_shared<PreparedStatement>(connection_, sql);
  return *statement;
}

}  // namespace vellora
