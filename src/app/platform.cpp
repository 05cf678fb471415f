#include "app/platform.h"

#include <QApplication>
#include <QFont>
#include <QIcon>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace vellora {
namespace {

// Serif, script and sans faces, best first; the first that is installed is drawn.
void substituteFaces() {
  QFont::insertSubstitutions(u"宋体"_qs,
                             {u"SimSun"_qs, u"Noto Serif CJK SC"_qs, u"AR PL UMing CN"_qs});
  QFont::insertSubstitutions(u"楷体_GB2312"_qs,
                             {u"KaiTi"_qs, u"AR PL KaitiM GB"_qs, u"AR PL UKai CN"_qs});
  QFont::insertSubstitutions(u"黑体"_qs,
                             {u"SimHei"_qs, u"Noto Sans CJK SC"_qs, u"WenQuanYi Micro Hei"_qs});
}

void translateQt(QApplication& application) {
  auto* translator = new QTranslator(&application);
  if (translator->load(QLocale(), u"qtbase"_qs, u"_"_qs,
                       QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
    QCoreApplication::installTranslator(translator);
  }
}

QIcon windowIcon() {
  QIcon icon;
  for (const int size : {16, 32, 48, 128}) {
    icon.addFile(u":/vellora/icon-%1.png"_qs.arg(size), QSize(size, size));
  }
  return icon;
}

}  // namespace

void setUpPlatform(QApplication& application) {
  QLocale::setDefault(QLocale(QLocale::Chinese, QLocale::China));
  QApplication::setStyle(u"Fusion"_qs);
  QApplication::setApplicationDisplayName(QString());
  substituteFaces();
  // A Chinese face of its own spares every text the search for fallback faces.
  QApplication::setFont(QFont(u"黑体"_qs, 9));
  QApplication::setWindowIcon(windowIcon());
  QGuiApplication::setDesktopFileName(u"vellora"_qs);
  translateQt(application);
}

}  // namespace vellora
