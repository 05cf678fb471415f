#include "shell/file_dialog.h"

#include "shell/skin.h"

#include <QFileDialog>
#include <QFileIconProvider>
#include <QFileSystemModel>
#include <QIdentityProxyModel>
#include <QListView>
#include <QLocale>
#include <QPainter>

namespace vellora {
namespace {

constexpr QSize kPicture(108, 44);  // pixels

// What Qt says in the system's language, or in English.
class ChineseFiles : public QIdentityProxyModel {
 public:
  using QIdentityProxyModel::QIdentityProxyModel;

  QVariant data(const QModelIndex& index, int role) const override {
    enum Column { Size = 1, Kind };
    const bool isText = role == Qt::DisplayRole && sourceModel();
    if (!isText || (index.column() != Size && index.column() != Kind)) {
      return QIdentityProxyModel::data(index, role);
    }
    const auto* files = static_cast<const QFileSystemModel*>(sourceModel());
    const QFileInfo file = files->fileInfo(mapToSource(index));
    if (index.column() == Kind) return file.isDir() ? u"文件夹"_qs : file.suffix() + u" 文件"_qs;
    return file.isDir() ? QString() : QLocale().formattedDataSize(file.size());
  }
};

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
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  dialog.setFileMode(QFileDialog::ExistingFile);
  dialog.setProxyModel(new ChineseFiles(&dialog));
  if (pattern == u"*.skn"_qs) {
    dialog.setIconProvider(&pictures);
    dialog.setViewMode(QFileDialog::List);
    if (auto* list = dialog.findChild<QListView*>(u"listView"_qs)) list->setIconSize(kPicture);
  }
  if (dialog.exec() != QDialog::Accepted) return {};
  return dialog.selectedFiles().value(0);
}

}  // namespace vellora
