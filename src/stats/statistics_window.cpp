#include "stats/statistics_window.h"

#include "grid/surface/grid_surface.h"
#include "routine/category.h"
#include "schedule/time_use.h"
#include "schedule/week_use.h"
#include "shell/controls.h"
#include "shell/date_picker.h"
#include "shell/work_dialog.h"
#include "stats/use_chart.h"
#include "store/store_error.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QSplitter>
#include <QStyle>
#include <QTabBar>
#include <QTabWidget>

#include <algorithm>
#include <array>

namespace vellora {
namespace {

constexpr int kTwipsPerPixel = 15;  // 1440 to the inch, at 96 pixels to the inch
constexpr int kBarLeft = 945 / kTwipsPerPixel;
constexpr int kBarHeight = 195 / kTwipsPerPixel;
constexpr int kTrackFrame = 1;
constexpr int kFirstBarWidth = 3'000 / kTwipsPerPixel;

QColor barColour(int index) {
  const std::array<QColor, kCategoryCount> colours{QColor(255, 0, 0),   QColor(0, 0, 255),
                                                   QColor(255, 255, 0), QColor(0, 192, 0),
                                                   QColor(255, 0, 255), QColor(0, 0, 0)};
  return colours[static_cast<std::size_t>(index)];
}

void fillWith(QWidget& widget, const QColor& colour) {
  QPalette palette = widget.palette();
  palette.setColor(QPalette::Window, colour);
  widget.setPalette(palette);
  widget.setAutoFillBackground(true);
}

// White whatever the skin, so that bars of every colour stand out.
QFrame* makeTrack(QLabel* bar, QWidget* parent) {
  auto* track = new QFrame(parent);
  track->setFrameShape(QFrame::Box);
  track->setFixedSize(kFullBar / kTwipsPerPixel + 2 * kTrackFrame, kBarHeight + 2 * kTrackFrame);
  fillWith(*track, Qt::white);
  bar->setParent(track);
  bar->setGeometry(kTrackFrame, kTrackFrame, kFirstBarWidth, kBarHeight);
  return track;
}

}  // namespace

StatisticsWindow::StatisticsWindow(ApplicationState& state, QWidget* parent)
    : PlannerWindow(state, parent),
      start_(new DatePicker(u"D1"_qs, u"起始日期"_qs, state.clock, this)),
      end_(new DatePicker(u"D2"_qs, u"截止日期"_qs, state.clock, this)),
      total_(named(new QLabel(u"作息总时数"_qs, this), u"LbZSS"_qs)),
      grid_(named(new GridSurface(this), u"Cell1"_qs, u"统计表"_qs)),
      chart_(new UseChart(this)),
      periods_(named(new GridSurface(this), u"Cell2"_qs, u"按周统计表"_qs)) {
  setObjectName(u"StatisticsWindow"_qs);
  setWindowTitle(u"Vellora日程表 统计分析"_qs);
  grid_->setEditable(false);
  setUpTimeUse(grid_->sheet());
  grid_->Redraw();
  periods_->setEditable(false);
  setUpPeriods(periods_->sheet());
  periods_->Redraw();
  answerGridKeys(*periods_, [] { return u"统计分析 按周"_qs; });
  answerGridKeys(*grid_, [] { return u"统计分析"_qs; });
  sayWhy(u"还没有统计：选好日期，再按“统  计”。"_qs);
  layOut();
}

void StatisticsWindow::layOut() {
  auto* all = new QVBoxLayout(this);
  all->addLayout(makeRange());
  all->addWidget(makeViews(), 1);
  all->addWidget(statusLine());
  all->addWidget(total_);
  all->addLayout(makeCategoryLines());
  resize(820, 700);
}

QTabWidget* StatisticsWindow::makeViews() {
  auto* weeks = new QSplitter(Qt::Vertical, this);
  weeks->addWidget(chart_);
  weeks->addWidget(periods_);
  weeks->setStretchFactor(0, 3);
  weeks->setStretchFactor(1, 2);
  auto* views = named(new QTabWidget(this), u"Views"_qs);
  views->setFocusPolicy(Qt::NoFocus);  // its bar takes it
  views->tabBar()->setAccessibleName(u"统计方式"_qs);
  views->addTab(grid_, u"按活动(&A)"_qs);
  views->addTab(weeks, u"按周(&W)"_qs);
  connect(chart_, &UseChart::chosen, this, &StatisticsWindow::dayChosen);
  return views;
}

// In place of figures.
void StatisticsWindow::sayWhy(const QString& hint) {
  grid_->setEmptyHint(hint);
  periods_->setEmptyHint(hint);
  chart_->setHint(hint);
}

QLayout* StatisticsWindow::makeRange() {
  auto* run = makeButton(u"Command1"_qs, u"统  计(&U)"_qs, this, [this] { compute(); });
  run->setDefault(true);
  auto* back = makeButton(u"Command2"_qs, u"返  回(&Q)"_qs, this, [this] { close(); });
  auto* range = new QHBoxLayout;
  for (auto* picker : {start_, end_}) {
    range->addWidget(makeLabel(picker->accessibleName(), picker));
    range->addWidget(picker);
  }
  range->addStretch();
  range->addWidget(run);
  range->addWidget(back);
  setTabOrder(end_, run);
  setTabOrder(run, back);
  setTabOrder(back, grid_);
  return range;
}

QGridLayout* StatisticsWindow::makeCategoryLines() {
  auto* lines = new QGridLayout;
  // Wide enough for the bars to begin where they belong.
  constexpr int kSpacing = 6;
  const int margin = style()->pixelMetric(QStyle::PM_LayoutLeftMargin, nullptr, this);
  lines->setHorizontalSpacing(kSpacing);
  lines->setColumnMinimumWidth(0, kBarLeft - kTrackFrame - kSpacing - margin);
  lines->setColumnStretch(2, 1);
  for (int i = 0; i < kCategoryCount; ++i) {
    lines_.push_back(makeCategoryLine(i));
    const auto& label = categories()[static_cast<std::size_t>(i)].label;
    lines->addWidget(new QLabel(label, this), i, 0);
    lines->addWidget(makeTrack(lines_.back().bar, this), i, 1);
    lines->addWidget(lines_.back().text, i, 2);
  }
  return lines;
}

StatisticsWindow::CategoryLine StatisticsWindow::makeCategoryLine(int index) {
  const CategoryLine line{new QLabel(this), new QLabel(u"总用时"_qs, this)};
  const QString& label = categories()[static_cast<std::size_t>(index)].label;
  named(line.bar, u"LbTJ%1"_qs.arg(index), label + u"所占比例"_qs);
  fillWith(*line.bar, barColour(index));
  line.bar->hide();  // until it means something
  named(line.text, u"LbYS%1"_qs.arg(index));
  return line;
}

void StatisticsWindow::onLoad() {
  const QDate today = state().clock.today();
  start_->setDate(today.addMonths(-1));
  end_->setDate(today.addMonths(1));
}

void StatisticsWindow::compute() {
  setUpTimeUse(grid_->sheet());
  grid_->Redraw();  // also drawn while the work goes on
  QString failure;
  try {
    runWithDialog(this, [this](const WorkProgress& progress) { showTimeUse(progress); });
  } catch (const PlannerError& error) {
    failure = error.description();
  } catch (const WorkCancelled&) {
    // as the user wished; what was shown before stays
  }
  grid_->Redraw();
  periods_->Redraw();
  if (!failure.isEmpty()) prompts().warn(this, failure);
}

// Both sums are read from one view of the schedule, so that the percentages fit the total.
void StatisticsWindow::showTimeUse(const WorkProgress& progress) {
  const ScheduleStore::Watch watch(state().Db,
                                   [&] { return mayContinue(progress, {u"正在统计……"_qs}); });
  const QDate first = start_->date();
  const QDate last = end_->date();
  const ScheduleStore::ReadTransaction view(state().Db);
  const auto uses = useByCategory(state().Db, first, last);
  showPeriods(useByPeriod(state().Db, first, last));
  if (uses.empty()) return;
  const qint64 total = totalMinutes(uses);
  total_->setText(totalText(first, last, total));
  showCategories(uses, total);
  listActivities(grid_->sheet(), state().Db, first, last, total);
}

void StatisticsWindow::showPeriods(const std::vector<PeriodUse>& uses) {
  if (uses.empty()) sayWhy(u"这段时间没有计划。"_qs);
  listPeriods(periods_->sheet(), uses);
  chart_->show(uses);
}

void StatisticsWindow::showCategories(const std::vector<CategoryUse>& uses, qint64 total) {
  for (const CategoryLine& line : lines_) {
    line.text->clear();
    line.bar->resize(0, kBarHeight);
    line.bar->show();
  }
  for (const CategoryUse& use : uses) {
    const auto index = categoryIndex(use.label);
    if (!index) continue;
    const CategoryLine& line = lines_[static_cast<std::size_t>(*index)];
    line.text->setText(shareText(use.minutes, total));
    const qint64 width = std::clamp<qint64>(barWidth(use.minutes, total), 0, kFullBar);
    line.bar->resize(static_cast<int>(width) / kTwipsPerPixel, kBarHeight);
  }
}

}  // namespace vellora
