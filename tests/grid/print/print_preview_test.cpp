#include "grid/print/print_preview.h"

#include "support/temporary_folder.h"
#include "support/text_output.h"

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPageLayout>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QPushButton>
#include <QTimer>

#include <functional>
#include <gtest/gtest.h>

namespace vellora {
namespace {

const PageSetup kSetup{true, true, 12, 13, 14, 15};

// Does something with the next modal window as soon as the event loop shows it.
template <typename Dialog>
void withNextWindow(std::function<void(Dialog&)> act) {
  QTimer::singleShot(0, qApp, [act] {
    auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
    if (!dialog) return withNextWindow(act);
    act(*dialog);
  });
}

PageSetup preview(const WorkRunner& run = runWithoutProgress) {
  Sheet sheet;
  sheet.SetCols(1);
  sheet.SetRows(1);
  return previewSheet(sheet, kSetup, PrintHeadings::HeadingStrip, u"活动项目"_qs, nullptr, run);
}

PageSetup previewAnd(const std::function<void(QPrintPreviewDialog&)>& act) {
  withNextWindow<QPrintPreviewDialog>([act](QPrintPreviewDialog& dialog) {
    act(dialog);
    dialog.reject();
  });
  return preview();
}

void saveAs(const QString& path, QPrintPreviewDialog& dialog) {
  withNextWindow<QFileDialog>([path](QDialog& chooser) {
    chooser.findChild<QLineEdit*>()->setText(path);
    chooser.accept();
  });
  dialog.findChild<QPushButton*>(u"cmdPdf"_qs)->click();
}

}  // namespace

TEST(PrintPreview, SavesAPdfOrTellsWhyNotAndStaysOpen) {
  const test::TemporaryFolder folder;
  const QString path = folder.path(u"表.pdf"_qs);
  QString message;
  previewAnd([&](QPrintPreviewDialog& dialog) {
    EXPECT_TRUE(dialog.windowTitle().contains(u"活动项目"_qs));
    saveAs(path, dialog);
    withNextWindow<QMessageBox>([&](QMessageBox& box) {
      message = box.text();
      box.accept();
    });
    saveAs(u"/proc/x.pdf"_qs, dialog);
    EXPECT_TRUE(dialog.isVisible());
  });
  EXPECT_TRUE(test::bytesOf(path).startsWith("%PDF"));
  EXPECT_TRUE(message.startsWith(u"无法写入文件“/proc/x.pdf”："_qs)) << message.toStdString();
}

TEST(PrintPreview, GivesBackTheSetUpAsTheUserLeftIt) {
  EXPECT_EQ(previewAnd([](QPrintPreviewDialog&) {}), kSetup);
  PageSetup turned = kSetup;
  turned.landscape = false;
  EXPECT_EQ(previewAnd([](QPrintPreviewDialog& dialog) {
              dialog.printer()->setPageOrientation(QPageLayout::Portrait);
            }),
            turned);
  const auto giveUp = [](QWidget*, const std::function<void(const WorkProgress&)>& work) {
    work([](const WorkStep&) { return false; });
  };
  EXPECT_EQ(preview(giveUp), kSetup) << "closes when the layout is given up";
}

}  // namespace vellora
