#include "grid/files/file_name.h"

namespace vellora {

QString fileNameFor(const QString& wanted) {
  QString name = wanted;
  for (QChar& unit : name) {
    if (unit < u' ' || unit == u'\x7F' || QStringView(u"\\/:*?\"<>|").contains(unit)) unit = u'_';
  }
  return name;
}

}  // namespace vellora
