#include "board/week_board.h"

#include "board/board_zoom.h"
#include "board/find_bar.h"
#include "board/first_steps.h"
#include "board/plan_commands.h"
#include "board/plan_drag.h"
#include "grid/files/workbook_file.h"
#include "grid/print/drawn_style.h"
#include "grid/surface/grid_surface.h"
#include "routine/calendar_text.h"
#include "schedule/week.h"
#include "shell/controls.h"
#include "shell/date_stepper.h"
#include "shell/elided_label.h"
#include "store/moment.h"
#include "store/store_error.h"
#include "store/undo_log.h"

#include <QEvent>
#include <QFile>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QShortcut>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>
#include <chrono>

namespace vellora {
namespace {

constexpr int kBoardRowHeight = 38;        // two lines of the board's font
constexpr int kMostTemplateRows = 10'000;  // views keep some bytes for each

// The face of the board's headings: another one would take longer to load than the week to paint.
QFont weekNameFont(const QString& name) {
  CellFont font;
  font.size = 14;
  font.style = kFontBold;
  return isPlainText(name) ? plainFont(fontOf(font)) : fontOf(font);
}

}  // namespace

WeekBoard::WeekBoard(ApplicationState& state)
    : PlannerWindow(state),
      commands_(new CommandBar(this)),
      days_(makeArrowStepper({u"D1"_qs, u"Lxq"_qs, u"起始日期"_qs}, state.clock, this)),
      week_name_(named(new ElidedLabel(this), u"Lmm"_qs)),
      shown_days_(named(new ElidedLabel(this), u"ShownDays"_qs)),
      today_(makeButton(u"CmdToday"_qs, u"今天"_qs, this, [this] { days_->goToToday(); })),
      more_(makeButton(u"CmdMore"_qs, u"更多(&M)"_qs, this, [this] { showMenu(); })),
      grid_(named(new GridSurface(this), u"Cell1"_qs, u"周计划表"_qs)),
      refresh_(makeButton(u"CmdRefresh"_qs, u"刷新"_qs, this, [this] { readAgain(); })) {
  setObjectName(u"Form0"_qs);
  grid_->setEmptyHint(u"还没有时间块：请按“时 间 表”，把一天分成时间块。"_qs);
  setWindowTitle(programTitle());
  grid_->setDocumentName([this]() -> QString { return u"周计划 "_qs + isoDate(firstDay()); });
  grid_->setPageTitle([this] { return PageTitle{week_name_->text(), shownDays(firstDay())}; });
  layOut();
  connect(days_, &DateStepper::dateChanged, this, &WeekBoard::fillAfterStep);
  connect(grid_, &GridSurface::CellClick, this, &WeekBoard::openCell);
  connect(grid_, &GridSurface::CellActivated, this, &WeekBoard::openCell);
  connect(commands_, &CommandBar::triggered, this, &WeekBoard::runCommand);
  connect(new QShortcut(Qt::Key_F5, this), &QShortcut::activated, this, &WeekBoard::readAgain);
  attachCommand(BoardCommand::Print, [this] { print(); });
  attachCommand(BoardCommand::ClearSchedule, [this] { clearSchedule(); });
  attachCommand(BoardCommand::Exit, [this] { close(); });
  addPlanCommands();
  zoom_ = std::make_unique<BoardZoom>(*grid_, state,
                                      [this](const QString& message) { showMessage(message); });
}

WeekBoard::~WeekBoard() {
  grid_->setCellDrag(nullptr);
}

void WeekBoard::layOut() {
  auto* top = new QHBoxLayout;
  top->addWidget(days_);
  top->addWidget(today_);
  top->addSpacing(16);
  auto* title = new QVBoxLayout;
  title->setSpacing(0);
  title->addWidget(week_name_);
  title->addWidget(shown_days_);
  top->addLayout(title, 1);
  top->addWidget(more_);
  auto* right = new QVBoxLayout;
  find_place_ = new QVBoxLayout;
  right->addLayout(top);
  if (FirstSteps::areOpen(state())) {
    first_steps_ = new FirstSteps(state(), this);
    connect(first_steps_, &FirstSteps::chosen, this, &WeekBoard::runCommand);
    right->addWidget(first_steps_);
  }
  right->addWidget(grid_, 1);
  right->addLayout(find_place_);
  auto* foot = new QHBoxLayout;
  foot->addWidget(statusLine(), 1);
  foot->addWidget(refresh_);
  refresh_->hide();
  right->addLayout(foot);
  auto* all = new QHBoxLayout(this);
  all->addWidget(commands_);
  all->addLayout(right, 1);
  resize(1240, 800);
}

void WeekBoard::attachCommand(BoardCommand command, Handler handler) {
  handlers_[command] = std::move(handler);
  commands_->button(command).setEnabled(true);
}

void WeekBoard::addPlanCommands() {
  plan_commands_ = new PlanCommands({*grid_, state(), this, [this] { return firstDay(); },
                                     [this](const QString& message) { showSaved(message, false); },
                                     [this](const QString& message) { showSaved(message, true); },
                                     [this](QDate day) { openDay(day); },
                                     [this](QDate day) {
                                       if (open_memo_) open_memo_(day);
                                       returnFromWindow();
                                     },
                                     [this](const QString& activity) { openActivity(activity); },
                                     [this] { openFind(); },
                                     [this](const QString& activity) {
                                       if (export_calendar_) export_calendar_(activity);
                                       returnFromWindow();
                                     },
                                     [this] {
                                       if (import_calendar_) import_calendar_();
                                       returnFromWindow();
                                     }});
  plan_drag_ = std::make_unique<PlanDrag>(
      *plan_commands_, [this](int days) { days_->setDate(firstDay().addDays(days)); });
  grid_->setCellDrag(plan_drag_.get());
  grid_->setMenu([this](QMenu& menu) { plan_commands_->fill(menu); });
  days_->weekdayLabel()->installEventFilter(this);
  constexpr std::chrono::minutes kBetweenLooks(1);
  auto* clock = new QTimer(this);  // the mark of today follows midnight
  connect(clock, &QTimer::timeout, this, &WeekBoard::markToday);
  clock->start(kBetweenLooks);
}

void WeekBoard::showMenu() {
  auto* menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  plan_commands_->fill(*menu);
  menu->popup(more_->mapToGlobal(more_->rect().bottomLeft()));
}

// A double click on the weekday goes to the Monday of the shown week.
bool WeekBoard::eventFilter(QObject* watched, QEvent* event) {
  if (watched == days_->weekdayLabel() && event->type() == QEvent::MouseButtonDblClick) {
    showWeekOf(firstDay());
    return true;
  }
  return PlannerWindow::eventFilter(watched, event);
}

QDate WeekBoard::firstDay() const {
  return days_->date();
}

void WeekBoard::showWeekOf(QDate day) {
  days_->setDate(day.addDays(1 - day.dayOfWeek()));
}

QString WeekBoard::templatePath() const {
  return state().programFile(u"JH.ZRT"_qs);
}

void WeekBoard::onLoad() {
  setWindowTitle(u"Vellora日程表2.8版    "_qs + isoDate(firstDay()) + u' ');
  setRedrawFlag();
  const QSignalBlocker untilActivated(days_);
  days_->setDate(state().clock.today());
}

void WeekBoard::readAgain() {
  setRedrawFlag();
  RebuildBoard();
}

void WeekBoard::RebuildBoard() {
  putSkinOn();
  if (!redraw_) return;
  showWhole([this] {
    rebuildFromDatabase();
    redraw_ = false;
  });
}

// What cannot be read whole changes nothing: sheet, caption and picker stay with the days shown.
void WeekBoard::showWhole(const std::function<void()>& read) {
  const Workbook before = grid_->workbook();
  try {
    read();
    shown_ = firstDay();
    changes_seen_ = state().Db.changedRows();
    showMessage({});
    refresh_->hide();
  } catch (const StoreError& error) {
    grid_->workbook() = before;
    grid_->Redraw();
    grid_->SetRedrawSwitch(true);
    const QSignalBlocker asBefore(days_);
    if (shown_.isValid()) days_->setDate(shown_);
    showStale(u"没有读出：%1 按 F5 再试。"_qs.arg(error.description()));
    prompts().warn(this, error.description());
  }
}

void WeekBoard::rebuildFromDatabase() {
  unsetCursor();
  openTemplate();
  setUpGrid();
  BuildTimeRows();
  FillWeek();
  if (first_steps_) first_steps_->showDone();
}

// A missing or unreadable template gives an empty sheet: the board's contents come from the
// database, only sizes and page set-up are lost. Whatever rows it claims, a day has few blocks.
void WeekBoard::openTemplate() {
  Workbook book;
  book.pageSetup.landscape = true;  // until the user prints otherwise
  try {
    book = readWorkbookFile(templatePath());
  } catch (const FileError&) {
  }
  book.sheet().SetRows(std::min(book.sheet().Rows(), kMostTemplateRows));
  grid_->workbook() = std::move(book);
}

void WeekBoard::setUpGrid() {
  grid_->SetCols(kBoardCols);
  grid_->SetRows(std::max(grid_->Rows(), 1));
  grid_->setHeadingStripVisible(false);
  grid_->setRowNumbersVisible(false);
  grid_->setFrozen(1, 1);
  grid_->setSharesWidth(true);
  grid_->setSharesHeight(1);
  grid_->setEditable(false);
  grid_->SetRedrawSwitch(false);
  grid_->SetDefaultRowHeight(kBoardRowHeight);
  for (int col = 0; col < kBoardCols; ++col) {
    grid_->SetCellFont(col, kHeadingRow, 8, kFontRegular, u"宋体"_qs);
    grid_->SetCellInput(col, kEveryRow, 1);
  }
  grid_->SetDefaultFont(8, kFontRegular, u"宋体"_qs);
  grid_->SetCellText(0, 0, u"时间\\日期"_qs);
}

void WeekBoard::BuildTimeRows() {
  vellora::BuildTimeRows(state().Db, grid_->sheet());
  zoom_->fit();
  grid_->Redraw();
  grid_->SetCurrentCell(0, 1);
  grid_->SetCurrentCell(0, 0);
}

void WeekBoard::FillWeek() {
  const QDate first = firstDay();
  const WeekTexts texts = vellora::FillWeek(state().Db, grid_->sheet(), first);
  showTexts(texts);
  grid_->SetRangeBorder(0, 0, grid_->Cols() - 1, grid_->Rows() - 1, 0, 1, kBlue);
  markToday();
  grid_->Redraw();
  grid_->SetRedrawSwitch(true);
  grid_->SetCurrentCell(1, 1);
}

void WeekBoard::showTexts(const WeekTexts& texts) {
  showTitle(boardCaption(firstDay(), texts.memo));
  week_name_->setFont(weekNameFont(texts.weekName));
  week_name_->setText(texts.weekName);
  week_name_->setVisible(!texts.weekName.isEmpty());
  shown_days_->setText(shownDays(firstDay()));
  std::map<int, QString> notes;
  for (std::size_t day = 0; day < texts.memos.size(); ++day) {
    if (!texts.memos[day].isEmpty()) notes[static_cast<int>(day) + 1] = texts.memos[day];
  }
  grid_->setHeadingNotes(std::move(notes));
}

void WeekBoard::markToday() {
  const qint64 untilToday = firstDay().daysTo(state().clock.today());
  grid_->markColumn(untilToday >= 0 && untilToday < kBoardDays ? int(untilToday) + 1 : -1);
}

// Made when it is needed first: the board is shown sooner without it.
void WeekBoard::openFind() {
  if (!find_bar_) {
    find_bar_ = new FindBar(state().Db, this);
    find_place_->addWidget(find_bar_);
    connect(find_bar_, &FindBar::goTo, this, &WeekBoard::showHit);
    connect(find_bar_, &FindBar::closed, grid_, [this] { grid_->Focus(); });
  }
  find_bar_->open(firstDay());
}

// Where a memo or a week's name was found, the day's heading is marked.
void WeekBoard::showHit(const SearchHit& hit) {
  const qint64 days = firstDay().daysTo(hit.day);
  if (days < 0 || days >= kBoardDays) {
    showWeekOf(hit.day);
  }
  const auto col = static_cast<int>(firstDay().daysTo(hit.day)) + 1;
  int row = 0;
  while (!hit.code.isEmpty() && ++row < grid_->Rows()) {
    if (grid_->CellTag(0, row) == hit.code) break;
  }
  if (row < grid_->Rows()) grid_->SetCurrentCell(col, row);
}

void WeekBoard::fillAfterStep() {
  showWhole([this] { FillWeek(); });
}

// The user goes on where the change was made.
void WeekBoard::showSaved(const QString& message, bool rebuilds) {
  const CellPlace cell = grid_->currentPlace();
  if (rebuilds) {
    readAgain();
  } else {
    fillAfterStep();
  }
  grid_->SetCurrentCell(cell.col, cell.row);
  if (!message.isEmpty()) showMessage(message);
}

// A window that leaves the board as it was may have changed what it shows.
void WeekBoard::runCommand(BoardCommand command) {
  handlers_.at(command)();
  returnFromWindow();
  if (state().Db.changedRows() != changes_seen_) showStale(u"内容可能已改变，按 F5 刷新。"_qs);
}

void WeekBoard::showStale(const QString& message) {
  showMessage(message);
  refresh_->show();
}

void WeekBoard::returnFromWindow() {
  if (isVisible()) Activate();
}

void WeekBoard::openCell(int col, int row) {
  const QString tag = grid_->CellTag(col, row);
  if (col <= 0 || row < 0 || tag.isEmpty()) return;
  if (row > 0) return openActivity(tag);
  if (const auto day = readDate(tag)) openDay(*day);
}

void WeekBoard::openDay(QDate day) {
  if (!open_day_) return;
  open_day_(day);
  returnFromWindow();
}

void WeekBoard::openActivity(const QString& activity) {
  if (!open_activity_) return;
  open_activity_(activity);
  returnFromWindow();
}

// The preview comes first; the template then keeps the sizes the user dragged.
void WeekBoard::print() {
  grid_->PrintBoard(true);
  try {
    grid_->SaveFile(templatePath());
  } catch (const FileError& error) {
    prompts().warn(this, error.description());
  }
}

void WeekBoard::clearSchedule() {
  if (!prompts().ask(
          this,
          u"清空操作将删除所有的活动计划、备忘录和每周命名,清空前最好进行备份,真的要清空全部"
          u"计划吗?"_qs)) {
    return;
  }
  if (!state().copyFirst(this)) return;
  state().Db.undoLog().setName(u"清空计划"_qs);
  try {
    deleteAllPlans(state().Db);
  } catch (const StoreError& error) {
    prompts().warn(this, error.description());
    return;
  }
  fillAfterStep();
}

}  // namespace vellora
