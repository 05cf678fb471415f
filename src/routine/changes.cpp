#include "routine/changes.h"

#include <QStringList>

#include <algorithm>

namespace vellora {
namespace {

constexpr int kMostReasons = 2;  // told in full

// "第 41 行没有时间块，第 43 行没有日期，不会保存"
QString reasonsText(const std::vector<Changes::Row>& rows) {
  QStringList reasons;
  qsizetype count = 0;
  for (const Changes::Row& row : rows) {
    if (row.why.isEmpty() || ++count > kMostReasons) continue;
    reasons << u"第 %1 行%2"_qs.arg(row.row + 1).arg(row.why);
  }
  if (count == 0) return {};
  const QString end = count > kMostReasons ? u"等 %1 行，不会保存"_qs.arg(count) : u"，不会保存"_qs;
  return reasons.join(u'，') + end;
}

}  // namespace

bool Changes::any() const {
  return missing > 0 || !other.isEmpty() ||
         std::any_of(rows.begin(), rows.end(), [](const Row& row) { return row.isTyped; });
}

QString Changes::text() const {
  const auto unsaved =
      std::count_if(rows.begin(), rows.end(), [](const Row& row) { return row.isTyped; });
  QStringList parts;
  if (unsaved > 0) parts << u"左边有橙色标记的 %1 行还没有保存"_qs.arg(unsaved);
  if (missing > 0) parts << u"有 %1 行已从表中去掉，保存后删除"_qs.arg(missing);
  parts << other << reasonsText(rows) << note;
  parts.removeAll(QString());
  return parts.join(u'；');
}

}  // namespace vellora
