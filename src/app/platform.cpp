#include "app/platform.h"

#include "app/product.h"
#include "app/skin_style.h"
#include "grid/print/drawn_style.h"
#include "shell/double_click_guard.h"
#include "shell/wheel_guard.h"

#include <QApplication>
#include <QDir>
#include <QFont>
#include <QFontDatabase>
#include <QLibraryInfo>
#include <QLocale>
#include <QPixmap>
#include <QStandardPaths>
#include <QTranslator>

namespace vellora {
namespace {

// Faces that came along for a machine that may have none.
void addFacesBesideProgram() {
  const QDir faces(QCoreApplication::applicationDirPath() + u"/fonts"_qs);
  for (const QString& face : faces.entryList(QDir::Files)) {
    QFontDatabase::addApplicationFont(faces.filePath(face));
  }
}

// For the faces that windows ask for by name.
void substituteFaces() {
  for (const QString& face : {u"宋体"_qs, u"楷体_GB2312"_qs, u"黑体"_qs}) {
    QFont::insertSubstitution(face, installedFace(face));
  }
}

void translateQt(QApplication& application) {
  auto* translator = new QTranslator(&application);
  if (translator->load(QLocale(), u"qtbase"_qs, u"_"_qs,
                       QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
    QCoreApplication::installTranslator(translator);
  }
}

}  // namespace

void setUpPlatform(QApplication& application) {
  QLocale::setDefault(QLocale(QLocale::Chinese, QLocale::China));
  QApplication::setStyle(new SkinStyle);
  QApplication::setApplicationDisplayName(QString());
  QApplication::setDesktopFileName(u"org.vellora.Vellora"_qs);
  QApplication::setWindowIcon(productIcon(32));
  addFacesBesideProgram();
  substituteFaces();
  QApplication::setFont(QFont(installedFace(u"黑体"_qs), 9));
  translateQt(application);
  application.installEventFilter(new DoubleClickGuard(&application));
  application.installEventFilter(new WheelGuard(&application));
}

QString layUserFolder(const QString& sharedFolder) {
  QString folder =
      QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + u"/vellora"_qs;
  QDir().mkpath(folder);
  for (const QFileInfo& shared : QDir(sharedFolder).entryInfoList(QDir::Files)) {
    const QString path = folder + u'/' + shared.fileName();
    if (QFile::exists(path)) continue;
    // Under another name first, so that a start that breaks off leaves no half schedule.
    const QString unfinished = path + u".new"_qs;
    QFile::remove(unfinished);
    if (QFile::copy(shared.filePath(), unfinished)) QFile::rename(unfinished, path);
  }
  return folder;
}

}  // namespace vellora
