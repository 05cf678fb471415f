#include "grid/print/print_preview.h"

#include "grid/files/export_file.h"
#include "grid/print/file_texts.h"
#include "grid/print/pdf_text.h"

#include <QAction>
#include <QBuffer>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPageLayout>
#include <QPdfWriter>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QPushButton>
#include <QScreen>
#include <QStandardPaths>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>

namespace vellora {
namespace {

PageSetup pageSetupOf(const QPrinter& printer, PageSetup setup) {
  const QPageLayout layout = printer.pageLayout();
  const QMarginsF margins = layout.margins(QPageLayout::Millimeter);
  const QSizeF paper = layout.pageSize().size(QPageSize::Millimeter);
  setup.paperWidth = paper.width();
  setup.paperHeight = paper.height();
  setup.landscape = layout.orientation() == QPageLayout::Landscape;
  setup.marginLeft = margins.left();
  setup.marginTop = margins.top();
  setup.marginRight = margins.right();
  setup.marginBottom = margins.bottom();
  return setup;
}

// False when the user gives the work up. Its failure is told and otherwise changes nothing.
bool runTold(const WorkRunner& run, QWidget* parent,
             const std::function<void(const WorkProgress&)>& work) {
  try {
    run(parent, work);
  } catch (const WorkCancelled&) {
    return false;
  } catch (const FileError& error) {
    QMessageBox box(QMessageBox::Warning, u"打印"_qs, error.description(), QMessageBox::Ok, parent);
    box.button(QMessageBox::Ok)->setText(u"确定"_qs);
    box.exec();
  }
  return true;
}

QString proposedPath(const QString& documentName) {
  const QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  return QDir(folder).filePath(fileNameFor(documentName) + u".pdf");
}

QString askForPdfPath(const QString& documentName, QWidget* parent) {
  QFileDialog dialog(parent, u"保存为 PDF"_qs, QString(), u"PDF 文件 (*.pdf)"_qs);
  translateFiles(dialog);
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setDefaultSuffix(u"pdf"_qs);
  const QFileInfo proposed(proposedPath(documentName));
  dialog.setDirectory(proposed.path());
  dialog.selectFile(proposed.fileName());
  return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().constFirst() : QString();
}

// What the preview is for stands first, with captions; on a small screen the tool bar hides its
// end.
QPushButton* addPdfButton(QPrintPreviewDialog& dialog) {
  auto* bar = dialog.findChild<QToolBar*>();
  QAction* first = bar->actions().constFirst();
  QAction* print = bar->actions().constLast();
  bar->insertAction(first, print);
  if (auto* button = qobject_cast<QToolButton*>(bar->widgetForAction(print))) {
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  }
  auto* button = new QPushButton(u"保存为 PDF(&S)"_qs);
  button->setObjectName(u"cmdPdf"_qs);
  button->setAutoDefault(false);
  bar->insertWidget(first, button);
  return button;
}

void takeMostOfTheScreen(QPrintPreviewDialog& dialog) {
  const QScreen* screen = dialog.screen();
  if (screen) dialog.resize(screen->availableSize() * 4 / 5);
}

}  // namespace

void savePdf(const Sheet& sheet, const PageSetup& setup, const PrintOptions& options,
             const QPageLayout& paper, const QString& documentName, const QString& path,
             const WorkProgress& progress) {
  exportFile(path, [&](SafeFile& file) {
    QBuffer pdf;
    pdf.open(QIODevice::WriteOnly);
    {
      QPdfWriter writer(&pdf);
      writer.setTitle(documentName);
      writer.setPageLayout(paper);
      printSheet(sheet, setup, options, writer, progress);
    }
    file.write(withReadableText(pdf.data()));
  });
}

void runWithoutProgress(QWidget* /*window*/, const std::function<void(const WorkProgress&)>& work) {
  work({});
}

PageSetup previewSheet(const Sheet& sheet, const PageSetup& setup, const PrintOptions& options,
                       const QString& documentName, QWidget* parent, const WorkRunner& run) {
  QPrinter printer(QPrinter::HighResolution);
  printer.setDocName(documentName);
  printer.setPageLayout(paperOf(setup));
  QPrintPreviewDialog dialog(&printer, parent);
  dialog.setWindowTitle(u"打印预览 "_qs + documentName);
  takeMostOfTheScreen(dialog);
  QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, &dialog, [&](QPrinter* paper) {
    const bool isDone = runTold(run, &dialog, [&](const WorkProgress& progress) {
      printSheet(sheet, setup, options, *paper, progress);
    });
    if (!isDone) QTimer::singleShot(0, &dialog, &QDialog::reject);
  });
  QObject::connect(addPdfButton(dialog), &QPushButton::clicked, &dialog, [&] {
    const QString path = askForPdfPath(documentName, &dialog);
    if (path.isEmpty()) return;
    runTold(run, &dialog, [&](const WorkProgress& progress) {
      savePdf(sheet, setup, options, printer.pageLayout(), documentName, path, progress);
    });
  });
  dialog.exec();
  return pageSetupOf(printer, setup);
}

}  // namespace vellora
