#include "shell/file_dialog.h"

#include "grid/print/file_texts.h"
#include "shell/skin.h"

#include <QFileDialog>
#include <QFileIconProvider>
#include <QListView>
#include <QPainter>

namespace vellora {
namespace {

constexpr QSize kPicture(108, 44);  // pixels

// A window's colours, with the skin's name.
QIcon pictureOf(const Skin& skin) {
  QPixmap picture(kPicture);
  picture.fill(skin.palette.color(QPalette::Window));
  QPainter painter(&picture);
  const QRect all(QPoint(), kPicture);
  painter.fillRect(0, 0, all.width(), 8, skin.palette.color(QPalette::Highlight));
  painter.fillRect(all.adjusted(6, 30, -56, -5), skin.grid.headingPaper);
  painter.fillRect(all.adjusted(56, 30, -6, -5), skin.grid.paper);
  painter.setPen(skin.palette.color(QPalette::WindowText));
  painter.drawText(all.adjusted(6, 8, -6, -14), Qt::AlignLeft | Qt::AlignVCenter, skin.name);
  painter.setPen(skin.palette.color(QPalette::Mid));
  painter.drawRect(all.adjusted(0, 0, -1, -1));
  return picture;
}

class SkinPictures : public QFileIconProvider {
 public:
  using QFileIconProvider::icon;
  QIcon icon(const QFileInfo& file) const override {
    const bool isSkin = file.isFile() && file.suffix().compare(u"skn", Qt::CaseInsensitive) == 0;
    const auto skin = isSkin ? loadSkin(file.filePath()) : std::nullopt;
    return skin ? pictureOf(*skin) : QFileIconProvider::icon(file);
  }
};

}  // namespace

QString askForFile(QWidget* parent, const QString& title, const QString& filter,
                   const QString& folder) {
  const QString name = filter.section(u'|', 0, 0);
  const QString pattern = filter.section(u'|', 1);
  SkinPictures pictures;
  QFileDialog dialog(parent, title, folder, name + u" (" + pattern + u')');
  dialog.setFileMode(QFileDialog::ExistingFile);
  translateFiles(dialog);
  if (pattern == u"*.skn"_qs) {
    dialog.setIconProvider(&pictures);
    dialog.setViewMode(QFileDialog::List);
    if (auto* list = dialog.findChild<QListView*>(u"listView"_qs)) list->setIconSize(kPicture);
  }
  if (dialog.exec() != QDialog::Accepted) return {};
  return dialog.selectedFiles().value(0);
}

}  // namespace vellora
