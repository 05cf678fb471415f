#include "grid/print/file_texts.h"

#include <QFileDialog>
#include <QFileSystemModel>
#include <QIdentityProxyModel>
#include <QLocale>

namespace vellora {
namespace {

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

}  // namespace

void translateFiles(QFileDialog& dialog) {
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  dialog.setProxyModel(new ChineseFiles(&dialog));
}

}  // namespace vellora
