#include "store/store_error.h"

namespace vellora {

StoreError::StoreError(StoreFault fault, const QString& description)
    : std::runtime_error(description.toStdString()), fault_(fault) {}

QString StoreError::description() const {
  return QString::fromUtf8(what());
}

}  // namespace vellora
