#include "shell/planner_window.h"

#include "grid/surface/grid_surface.h"
#include "shell/work_dialog.h"
#include "support/home_folder.h"
#include "support/planner_test.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

namespace vellora {
namespace {

class RecordingWindow : public PlannerWindow {
 public:
  using PlannerWindow::answerGridKeys;
  using PlannerWindow::PlannerWindow;
  QStringList steps;
  bool typed = false;

 protected:
  void onLoad() override { steps << (isVisible() ? u"load late"_qs : u"load"_qs); }
  void onActivate() override { steps << u"activate"_qs; }
  void onUnload() override { steps << u"unload"_qs; }
  bool mayClose() override { return !typed; }
};

// A window with a field, two buttons and a list of one cell.
class PlannerWindowTest : public test::PlannerTest {
 protected:
  PlannerWindowTest() {
    grid_.SetCols(1);
    grid_.SetRows(1);
    grid_.SetCellText(0, 0, u"读书"_qs);
    usual_.setDefault(true);
    window_.answerGridKeys(grid_, [this] { return name_; });
  }
  // What the status line says of an export, from the colon on.
  QString afterKey(Qt::Key key) {
    QTest::keyClick(&grid_, key);
    const auto& status = *window_.findChild<QLabel*>(u"StatusLine"_qs);
    EXPECT_EQ(status.isVisible(), !status.text().isEmpty());
    return status.text().section(u'：', 1);
  }

  test::HomeFolder home_;
  RecordingWindow window_{state_};
  QLineEdit field_{&window_};
  QPushButton usual_{&window_};
  QPushButton other_{&window_};
  GridSurface grid_{&window_};
  QString name_ = u"读/写 活动计划"_qs;
};

}  // namespace

TEST_F(PlannerWindowTest, LoadsThenActivatesWhateverTheFocusDoesThenUnloadsWhenItMayClose) {
  QTimer::singleShot(0, &window_, [this] {
    QWidget other;
    other.show();
    other.activateWindow();
    window_.activateWindow();
    QTest::qWait(50);
    window_.typed = true;
    QTest::keyClick(&window_, Qt::Key_Escape);
    window_.close();
    EXPECT_TRUE(window_.isVisible());
    window_.typed = false;
    QTest::keyClick(&window_, Qt::Key_Escape);
  });
  window_.Load();
  window_.ShowModal();
  EXPECT_EQ(window_.steps, (QStringList{u"load"_qs, u"activate"_qs, u"unload"_qs}));
  EXPECT_FALSE(window_.isVisible());
}

TEST_F(PlannerWindowTest, EnterPressesTheButtonWithTheFocusElseTheDefaultOne) {
  QStringList pressed;
  QObject::connect(&usual_, &QPushButton::clicked, [&] { pressed << u"usual"_qs; });
  QObject::connect(&other_, &QPushButton::clicked, [&] { pressed << u"other"_qs; });
  window_.Load();
  window_.Show();
  for (QWidget* focus : std::initializer_list<QWidget*>{&other_, &field_}) {
    focus->setFocus();
    QTest::keyClick(focus, Qt::Key_Return);
  }
  EXPECT_EQ(pressed, (QStringList{u"other"_qs, u"usual"_qs}));
  QObject::connect(&field_, &QLineEdit::returnPressed, [&] { other_.setFocus(); });
  QTest::keyClick(&field_, Qt::Key_Return);
  EXPECT_EQ(window_.focusWidget(), &other_);
  EXPECT_EQ(pressed.size(), 2) << "an Enter that leads to a button is not for it";
}

TEST_F(PlannerWindowTest, SaysWhyAListIsNotExportedUntilTheNextExport) {
  window_.Show();
  name_ = u"表"_qs;
  test::writeBytes(home_.path(u"表.HTM"_qs), "old");
  grid_.SetCols(257);
  EXPECT_EQ(afterKey(Qt::Key_F8), u"表格有 257 列，Excel 文件最多能放 256 列。"_qs);
  grid_.SetCols(1);
  for (const auto& [folder, reason] :
       {std::pair(u"\\没有"_qs, u"文件或文件夹不存在。"_qs),
        std::pair(u"D:"_qs, u"这台电脑没有盘符“D:”；以“\\”开头的路径在主文件夹里。"_qs)}) {
    state_.ExportDir = folder;
    EXPECT_TRUE(afterKey(Qt::Key_F7).endsWith(reason)) << reason.toStdString();
  }
  EXPECT_TRUE(prompts_.informed.isEmpty() && prompts_.warnings.isEmpty());
  EXPECT_EQ(test::bytesOf(home_.path(u"表.HTM"_qs)), "old");
  EXPECT_EQ(home_.names(), QStringList{u"表.HTM"_qs});
  state_.ExportDir.clear();
  name_ = u"读/写"_qs;
  for (const auto key : {Qt::Key_F7, Qt::Key_F8}) EXPECT_EQ(afterKey(key), QString());
  EXPECT_EQ(prompts_.informed, (QStringList{u"\\读/写.HTM已保存！"_qs, u"\\读/写.xls已保存！"_qs}));
  EXPECT_TRUE(test::bytesOf(home_.path(u"读_写.HTM"_qs)).contains("读书"));
}

TEST_F(PlannerWindowTest, LetsTheUserCancelALongExportOrPrint) {
  window_.Show();
  grid_.SetCols(50);
  grid_.SetRows(300'000);
  for (int col = 0; col < grid_.Cols(); ++col)
    grid_.sheet().SetCellColors(col, kEveryRow, kRed, kWhite);
  for (int row = 0; row < grid_.Rows(); ++row) grid_.SetCellText(0, row, u"%1x"_qs.arg(row));
  int cancelled = 0;
  QTimer user;
  QObject::connect(&user, &QTimer::timeout, [&] {
    auto* dialog = qobject_cast<WorkDialog*>(QApplication::activeModalWidget());
    if (!dialog || dialog->wasCanceled()) return;
    ++cancelled;
    dialog->cancel();
  });
  user.start(1);
  EXPECT_EQ(afterKey(Qt::Key_F8), u"已取消，原来的文件没有改动。"_qs);
  EXPECT_EQ(afterKey(Qt::Key_F3), QString());
  EXPECT_EQ(cancelled, 2);
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  EXPECT_TRUE(home_.names().isEmpty() && prompts_.informed.isEmpty());
}

}  // namespace vellora
