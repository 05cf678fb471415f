#include "routine/text.h"

#include <QStringDecoder>

namespace vellora {

QString textFromUtf8(QByteArrayView bytes) {
  if (!bytes.startsWith("\xEF\xBB\xBF")) return QString::fromUtf8(bytes);  // quicker
  return QStringDecoder(QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom)(bytes);
}

QString shortened(const QString& text) {
  constexpr qsizetype kShown = 30;
  return text.size() > kShown ? QString(text.first(kShown) + u'…') : text;
}

QString quoted(const QString& text) {
  return u'“' + shortened(text) + u'”';
}

}  // namespace vellora
