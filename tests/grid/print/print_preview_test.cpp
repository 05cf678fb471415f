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

// Does something with the next modal window as soon as the event loop shows it.
template <typename Dialog>
void withNextWindow(std::function<void(Dialog&)> act) {
  QTimer::singleShot(0, qApp, [act] {
    auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
    if (!dialog) return withNextWindow(act);
    act(*dialog);
  });
}

void saveAs(const QString& path, QPrintPreviewDialog& preview) {
  withNextWindow<QFileDialog>([path](QDialog& dialog) {
    dialog.findChild<QLineEdit*>()->setText(path);
    dialog.accept();
  });
  preview.findChild<QPushButton*>(u"cmdPdf"_qs)->click();
}

class PrintPreview : public testing::Test {
 protected:
  PrintPreview() {
    sheet.SetCols(1);
    sheet.SetRows(1);
    sheet.SetCellText(0, 0, u"活动"_qs);
  }
  PageSetup show(const std::function<void(QPrintPreviewDialog&)>& act) {
    withNextWindow<QPrintPreviewDialog>([act](QPrintPreviewDialog& dialog) {
      act(dialog);
      dialog.reject();
    });
    return previewSheet(sheet, setup, PrintHeadings::HeadingStrip, u"活动项目"_qs, nullptr);
  }

  test::TemporaryFolder folder;
  Sheet sheet;
  PageSetup setup{true, true, 12, 13, 14, 15};
};

}  // namespace

TEST_F(PrintPreview, SavesAPdfFromAVisibleButton) {
  const QString path = folder.path(u"表.pdf"_qs);
  show([&](QPrintPreviewDialog& dialog) {
    EXPECT_TRUE(dialog.windowTitle().contains(u"活动项目"_qs));
    EXPECT_TRUE(dialog.findChild<QPushButton*>(u"cmdPdf"_qs)->isVisible());
    saveAs(path, dialog);
  });
  EXPECT_TRUE(test::bytesOf(path).startsWith("%PDF"));
}

TEST_F(PrintPreview, TellsWhyAPdfCannotBeSavedAndStaysOpen) {
  QString message;
  show([&](QPrintPreviewDialog& dialog) {
    withNextWindow<QFileDialog>([&](QDialog& chooser) {
      withNextWindow<QMessageBox>([&](QMessageBox& box) {
        message = box.text();
        box.accept();
      });
      chooser.findChild<QLineEdit*>()->setText(u"/proc/x.pdf"_qs);
      chooser.accept();
    });
    dialog.findChild<QPushButton*>(u"cmdPdf"_qs)->click();
    EXPECT_TRUE(dialog.isVisible());
  });
  EXPECT_TRUE(message.startsWith(u"无法写入文件“/proc/x.pdf”："_qs)) << message.toStdString();
}

TEST_F(PrintPreview, ClosesWhenTheUserGivesTheLayoutUp) {
  int layouts = 0;
  const auto run = [&](QWidget*, const std::function<void(const WorkProgress&)>& work) {
    ++layouts;
    work([](const WorkStep&) { return false; });
  };
  EXPECT_EQ(previewSheet(sheet, setup, PrintHeadings::HeadingStrip, u"活动项目"_qs, nullptr, run),
            setup);
  EXPECT_GE(layouts, 1);
}

TEST_F(PrintPreview, GivesBackTheSetUpAsTheUserLeftIt) {
  EXPECT_EQ(show([](QPrintPreviewDialog&) {}), setup);
  const PageSetup changed = show([](QPrintPreviewDialog& dialog) {
    dialog.printer()->setPageOrientation(QPageLayout::Portrait);
  });
  EXPECT_FALSE(changed.landscape);
  EXPECT_TRUE(changed.fitToOnePageWidth);
}

}  // namespace vellora
