#include "store/statement_slices.h"

#include "store/moment.h"
#include "store/prepared_statement.h"
#include "store/store_error.h"
#include "store/tokens.h"

#include <QDate>
#include <QStringEncoder>

namespace vellora {
namespace {

// True for an existing day written as 2007-03-05, the form of nearly every date in a statement.
bool isStoredDate(QStringView text) {
  if (text.size() != 10 || text[4] != u'-' || text[7] != u'-') return false;
  int value[10];
  for (const int i : {0, 1, 2, 3, 5, 6, 8, 9}) {
    value[i] = text[i].unicode() - u'0';
    if (value[i] < 0 || value[i] > 9) return false;
  }
  return QDate::isValid(value[0] * 1000 + value[1] * 100 + value[2] * 10 + value[3],
                        value[5] * 10 + value[6], value[8] * 10 + value[9]);
}

bool startsLiteralOrName(char16_t character) {
  return character == u'\'' || character == u'#' || character == u'[';
}

// Walks a statement from mark to mark and writes its shape.
class Slicer {
 public:
  Slicer(QStringView statement, Literals& literals) : text_(statement), literals_(literals) {}

  StatementShape run() {
    while (at_ < text_.size()) {
      copyTo(nextMark());
      if (at_ < text_.size()) takeMarked();
    }
    return std::move(shape_);
  }

 private:
  qsizetype nextMark() const {
    const char16_t* const text = text_.utf16();
    qsizetype end = at_;
    while (end < text_.size() && !startsLiteralOrName(text[end])) ++end;
    return end;
  }

  void copyTo(qsizetype end) {
    shape_.append(text_.utf16() + at_, end - at_);
    at_ = end;
  }

  void takeMarked() {
    const char16_t mark = text_.utf16()[at_];
    const qsizetype begin = at_ + 1;
    const qsizetype end = mark == u'\'' ? textLiteralEnd(text_, begin)
                                        : text_.indexOf(mark == u'[' ? u']' : u'#', begin) + 1;
    if (mark == u'[' || end <= 0) return copyTo(end > 0 ? end : text_.size());
    const QStringView inside = text_.sliced(begin, end - begin - 1);
    mark == u'#' ? literals_.addMoment(inside) : literals_.addText(inside);
    shape_.append(mark);
    shape_.append(mark);
    at_ = end;
  }

  QStringView text_;
  Literals& literals_;
  StatementShape shape_;
  qsizetype at_ = 0;
};

}  // namespace

void Literals::append(QStringView text) {
  const qsizetype begin = bytes_.size();
  bytes_.resize(begin + text.size() * 3);
  QStringEncoder encoder(QStringEncoder::Utf8, QStringEncoder::Flag::Stateless);
  const char* const end = encoder.appendToBuffer(bytes_.data() + begin, text);
  bytes_.resize(end - bytes_.data());
  slices_.append({begin, bytes_.size()});
}

void Literals::addText(QStringView inside) {
  if (!inside.contains(u'\'')) return append(inside);
  append(unquoted(inside));
}

void Literals::addMoment(QStringView inside) {
  if (isStoredDate(inside)) return append(inside);
  const std::optional<Moment> moment = readMoment(inside);
  if (!moment) {
    throw StoreError(StoreFault::NotADateOrTime,
                     u"语句中的“%1”不是日期或时间。"_qs.arg(inside.left(30)));
  }
  append(storedText(*moment));
}

void Literals::bindTo(PreparedStatement& statement) const {
  for (qsizetype i = 0; i < slices_.size(); ++i) {
    const auto [begin, end] = slices_[i];
    statement.bindText(static_cast<int>(i) + 1,
                       {bytes_.data() + begin, static_cast<std::size_t>(end - begin)});
  }
}

StatementShape slicedStatement(QStringView statement, Literals& literals) {
  return Slicer(statement, literals).run();
}

}  // namespace vellora
