// Walks through the user guide's scenes on the real program, over the demonstration schedule, and
// saves a picture of each: guide_pictures FOLDER.

#include "app/platform.h"
#include "app/start_up.h"
#include "grid/surface/grid_surface.h"
#include "sample_schedule.h"
#include "shell/date_picker.h"
#include "store/schema.h"
#include "support/fixed_clock.h"
#include "support/scripted_prompts.h"

#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QDir>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QPushButton>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTextStream>
#include <QTimer>

#include <cstdlib>
#include <functional>

namespace vellora {
namespace {

const QDate kToday(2026, 10, 12);

// A home folder with the program in it.
QString layProgramFolder(const QString& home) {
  for (const auto& folder : {u"日程表"_qs, u"文档"_qs, u"备份"_qs}) QDir(home).mkdir(folder);
  QString program = home + u"/日程表"_qs;
  const QDir skins(QStringLiteral(SKIN_DIR));
  for (const QString& skin : skins.entryList(QDir::Files)) {
    QFile::copy(skins.filePath(skin), program + u'/' + skin);
  }
  createSchedule(program + u"/SY.mdb"_qs);
  ScheduleStore store(program + u"/SY.mdb"_qs);
  writeDemonstration(store, kToday);
  return program;
}

class Guide {
 public:
  Guide(const QString& programDir, const QString& pictures)
      : pictures_(pictures), startUp_(programDir, prompts_, clock_) {
    startUp_.showBoard();
    board().resize(1180, 720);
  }

  void showEveryScene();

 private:
  using Scene = std::function<void(QWidget& window)>;

  WeekBoard& board() { return startUp_.board(); }
  void keep(QWidget& window, const QString& name);
  // Opens a window by a board's button, plays the scene in it and closes it.
  void open(const QString& button, const Scene& scene);
  // The same, and keeps a picture of its end.
  void show(
      const QString& button, const QString& name, const Scene& scene = [](QWidget&) {});
  void putOnSkin(const QString& skin);
  // A window that the board's menu opens.
  void showFromMenu(const QString& command, const QString& name);
  // The board with the menu of a planned cell.
  void showMenu();
  // What copying the week asks at last.
  void showCopiedWeek();

  QDir pictures_;
  test::ScriptedPrompts prompts_;
  test::FixedClock clock_{kToday};
  StartUp startUp_;
};

template <typename Widget>
Widget& control(QWidget& window, const QString& name) {
  auto* found = window.findChild<Widget*>(name);
  if (found == nullptr) qFatal("no control %s", qPrintable(name));
  return *found;
}

void press(QWidget& window, const QString& button) {
  QTest::mouseClick(&control<QPushButton>(window, button), Qt::LeftButton);
}

void place(QWidget& window, const QString& list, int line) {
  auto& lines = control<QListWidget>(window, list);
  const QPoint middle = lines.visualItemRect(lines.item(line)).center();
  QTest::mouseClick(lines.viewport(), Qt::LeftButton, {}, middle);
  QTest::mouseDClick(lines.viewport(), Qt::LeftButton, {}, middle);
}

void type(QWidget& window, int col, int row, const QString& text) {
  auto& grid = control<GridSurface>(window, u"Cell1"_qs);
  grid.SetCellText(col, row, text);
  grid.Redraw();
}

void Guide::keep(QWidget& window, const QString& name) {
  QTest::qWait(50);
  if (!window.grab().save(pictures_.filePath(name + u".png"))) {
    qFatal("cannot write %s", qPrintable(name));
  }
}

void Guide::open(const QString& button, const Scene& scene) {
  QTimer::singleShot(0, &board(), [&] {
    QWidget& window = *QApplication::activeModalWidget();
    scene(window);
    prompts_.choices = {1};  // 不保存
    window.close();
  });
  press(board(), button);
}

void Guide::show(const QString& button, const QString& name, const Scene& scene) {
  open(button, [&](QWidget& window) {
    scene(window);
    keep(window, name);
  });
}

void Guide::putOnSkin(const QString& skin) {
  prompts_.files << skin;
  open(u"Command98"_qs, [](QWidget& window) { press(window, u"Command1"_qs); });
}

void Guide::showFromMenu(const QString& command, const QString& name) {
  QTimer::singleShot(0, &board(), [&] {
    QWidget& window = *QApplication::activeModalWidget();
    keep(window, name);
    window.close();
  });
  board().findChild<QAction*>(command)->trigger();
}

// A term of lectures, some of them where something is planned already.
QString timetable() {
  QString path = QDir::homePath() + u"/课程表.ics";
  const QString lecture =
      u"BEGIN:VEVENT\nDTSTART:202610%1\nDURATION:PT1H30M\nSUMMARY:%2\nLOCATION:%3\n"
      u"RRULE:FREQ=WEEKLY;COUNT=%4\nEND:VEVENT\n"_qs;
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly)) qFatal("cannot write a timetable");
  file.write(u"BEGIN:VCALENDAR\n%1%2%3END:VCALENDAR\n"_qs
                 .arg(lecture.arg(u"17T080000"_qs, u"高等数学"_qs, u"教三 302"_qs, u"8"_qs),
                      lecture.arg(u"14T190000"_qs, u"摄影入门"_qs, u"活动中心"_qs, u"6"_qs),
                      lecture.arg(u"13"_qs, u"交作业"_qs, QString(), u"2"_qs))
                 .toUtf8());
  return path;
}

void Guide::showMenu() {
  auto& grid = control<GridSurface>(board(), u"Cell1"_qs);
  grid.SetCurrentCell(3, 4);
  const QPoint cell = grid.visualRect(grid.currentIndex()).center();
  QContextMenuEvent asked(QContextMenuEvent::Mouse, cell, grid.viewport()->mapToGlobal(cell));
  QApplication::sendEvent(grid.viewport(), &asked);
  QWidget& menu = *QApplication::activePopupWidget();
  QTest::qWait(50);
  QPixmap picture = board().grab();
  QPainter(&picture).drawPixmap(board().mapFromGlobal(menu.pos()), menu.grab());
  if (!picture.save(pictures_.filePath(u"board_menu.png"_qs))) qFatal("cannot write board_menu");
  menu.close();
}

void Guide::showCopiedWeek() {
  startUp_.state().Db.execute(
      u"UPDATE JH SET HDMC='游泳' WHERE RQ=#2026-10-21# AND HDMC='项目工作'"_qs);
  QTimer hand;
  QObject::connect(&hand, &QTimer::timeout, &hand, [&] {
    QWidget* dialog = QApplication::activeModalWidget();
    if (!dialog) return;
    if (dialog->findChild<QListWidget*>()) {
      hand.stop();
      keep(*dialog, u"copy_week"_qs);
      return dialog->close(), void();
    }
    QTest::keyClick(dialog, Qt::Key_Return);
  });
  hand.start(20);
  board().findChild<QAction*>(u"CopyWeek"_qs)->trigger();
}

// One activity placed and repeated over days, some of which are taken.
void planATerm(QWidget& window) {
  control<QListWidget>(window, u"List1"_qs).setCurrentRow(6);
  auto& grid = control<GridSurface>(window, u"Cell1"_qs);
  int row = 0;
  while (!grid.GetCellText(0, row).isEmpty()) ++row;
  grid.SetCurrentCell(0, row);
  control<DatePicker>(window, u"DTP1"_qs).setDate(kToday.addDays(19));
  place(window, u"List2"_qs, 0);
  type(window, 3, row, u"八公里"_qs);
  type(window, 4, row, u"1"_qs);
  control<QLineEdit>(window, u"Text4"_qs).setText(u"6"_qs);
  grid.SetCurrentCell(0, row);
  press(window, u"CmdDAY"_qs);
}

void Guide::showEveryScene() {
  keep(board(), u"board"_qs);
  showMenu();
  show(u"Command5"_qs, u"time_blocks"_qs);
  show(u"Command4"_qs, u"activity_items"_qs,
       [](QWidget& window) { control<GridSurface>(window, u"Cell1"_qs).SetCurrentCell(1, 6); });
  show(u"Command1"_qs, u"daily_plan"_qs, [](QWidget& window) {
    control<GridSurface>(window, u"Cell1"_qs).SetCurrentCell(1, 9);
    place(window, u"List1"_qs, 9);
  });
  show(u"Command2"_qs, u"activity_plan"_qs, planATerm);
  show(u"Command7"_qs, u"week_names"_qs);
  show(u"Command6"_qs, u"memo"_qs);
  show(u"Command3"_qs, u"statistics"_qs, [](QWidget& window) { press(window, u"Command1"_qs); });
  show(u"Command3"_qs, u"statistics_weeks"_qs, [](QWidget& window) {
    press(window, u"Command1"_qs);
    control<QTabWidget>(window, u"Views"_qs).setCurrentIndex(1);
  });
  show(u"CmdA1"_qs, u"print_preview"_qs);
  show(u"CmdA0"_qs, u"backup"_qs, [](QWidget& window) {
    control<QLineEdit>(window, u"Txt3"_qs).setText(u"\\备份\\日程表备份2026-10-12.KTZ"_qs);
    press(window, u"cmdO"_qs);
  });
  show(u"Command98"_qs, u"about"_qs);
  showFromMenu(u"ExportCalendar"_qs, u"calendar_export"_qs);
  prompts_.files << timetable();
  showFromMenu(u"ImportCalendar"_qs, u"calendar_import"_qs);
  showCopiedWeek();
  putOnSkin(QStringLiteral(SKIN_DIR "/KTZ1.SKN"));
  keep(board(), u"board_dark"_qs);
}

}  // namespace
}  // namespace vellora

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" SCREEN);
  QApplication application(argc, argv);
  vellora::setUpPlatform(application);
  const QString pictures = QApplication::arguments().value(1);
  const QTemporaryDir home;
  if (!QDir(pictures).exists() || !home.isValid()) {
    QTextStream(stderr) << "usage: guide_pictures FOLDER\n";
    return 2;
  }
  qputenv("HOME", home.path().toLocal8Bit());
  vellora::Guide(vellora::layProgramFolder(home.path()), pictures).showEveryScene();
  return EXIT_SUCCESS;
}
