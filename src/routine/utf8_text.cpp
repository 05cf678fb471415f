#include "routine/utf8_text.h"

#include <QStringDecoder>

namespace vellora {

QString textFromUtf8(QByteArrayView bytes) {
  if (!bytes.startsWith("\xEF\xBB\xBF")) return QString::fromUtf8(bytes);  // quicker
  return QStringDecoder(QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom)(bytes);
}

}  // namespace vellora
