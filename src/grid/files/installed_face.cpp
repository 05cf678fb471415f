#include "grid/files/installed_face.h"

#include <QFontDatabase>
#include <QHash>
#include <QStringList>

namespace vellora {
namespace {

// Best first; any Chinese face is better than none.
QStringList standInsFor(const QString& face) {
  const QStringList sans{u"SimHei"_qs, u"Noto Sans CJK SC"_qs, u"WenQuanYi Micro Hei"_qs};
  if (face == u"宋体"_qs) {
    return QStringList{u"SimSun"_qs, u"Noto Serif CJK SC"_qs, u"AR PL UMing CN"_qs} + sans;
  }
  if (face == u"楷体_GB2312"_qs) {
    return QStringList{u"KaiTi"_qs, u"AR PL KaitiM GB"_qs, u"AR PL UKai CN"_qs} + sans;
  }
  return face == u"黑体"_qs ? sans : QStringList();
}

QString search(const QString& face) {
  const QStringList installed = QFontDatabase::families();
  for (const QString& candidate : QStringList(face) + standInsFor(face)) {
    if (installed.contains(candidate)) return candidate;
  }
  return face;
}

}  // namespace

QString installedFace(const QString& face) {
  static QHash<QString, QString> found;
  const auto known = found.constFind(face);
  return known != found.constEnd() ? *known : *found.insert(face, search(face));
}

}  // namespace vellora
