#include "grid/files/shared_strings.h"

#include "grid/files/exported_sheet.h"
#include "grid/files/row_progress.h"

#include <algorithm>

namespace vellora {
namespace {

constexpr quint16 kSst = 0x00FC;
constexpr quint16 kExtSst = 0x00FF;
constexpr std::size_t kMinBucket = 8;
constexpr std::size_t kMaxBuckets = 128;

}  // namespace

quint32 SharedStrings::numberOf(const QString& text) {
  ++uses_;
  const QChar* place = text.constData();
  const auto found = numbers_.constFind(place);
  if (found != numbers_.constEnd()) return *found;
  const auto next = static_cast<quint32>(texts_.size());
  numbers_.insert(place, next);
  texts_.push_back(text);
  return next;
}

void SharedStrings::write(BiffStream& stream, const WorkProgress& progress) const {
  const std::size_t bucket = std::max(kMinBucket, texts_.size() / kMaxBuckets + 1);
  std::vector<BiffStream::Place> buckets;
  stream.begin(kSst);
  stream.put32(uses_);
  stream.put32(static_cast<quint32>(texts_.size()));
  for (std::size_t number = 0; number < texts_.size(); ++number) {
    reportRow(progress, u"正在写入 Excel 文件的文本……"_qs, static_cast<qint64>(number),
              std::ssize(texts_));
    const BiffStream::Place place = stream.putText(exportedText(texts_[number]));
    if (number % bucket == 0) buckets.push_back(place);
  }
  stream.end();
  stream.begin(kExtSst);
  stream.put16(static_cast<quint16>(bucket));
  for (const BiffStream::Place& place : buckets) {
    stream.put32(place.position);
    stream.put16(place.offset);
    stream.put16(0);
  }
  stream.end();
}

}  // namespace vellora
