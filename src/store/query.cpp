#include "store/query.h"

#include "routine/calendar_text.h"
#include "store/store_error.h"

namespace vellora {

QueryValue::QueryValue(const QString& text) : bytes(text.toUtf8()) {}

QueryValue::QueryValue(QDate date) : bytes(isoDate(date).toLatin1()) {
  if (!bytes.isEmpty()) return;
  throw StoreError(StoreFault::NotADateOrTime, u"要查找的日期不存在。"_qs);
}

}  // namespace vellora
