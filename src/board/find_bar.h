#pragma once

#include "schedule/plan_search.h"
#include "schedule/time_blocks.h"

#include <QTimer>
#include <QWidget>

#include <memory>

class QLabel;
class QLineEdit;
class QListWidget;

namespace vellora {

// Finds texts of the schedule while they are typed, and goes from hit to hit. Hidden until it is
// opened; Escape closes it.
class FindBar : public QWidget {
  Q_OBJECT

 public:
  FindBar(ScheduleStore& store, QWidget* parent);

  // The next hit is looked for from `from` on.
  void open(QDate from);

 signals:
  // The board is to show the hit.
  void goTo(const vellora::SearchHit& hit);
  void closed();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void layOut();
  void search();
  void searchOn();
  void list(std::vector<SearchHit> found);
  void showHit(std::size_t hit);
  void step(int by);
  void showCount(const QString& trouble = {});
  void closeBar();

  ScheduleStore& store_;
  QLineEdit* text_;
  QLabel* count_;
  QListWidget* list_;
  QTimer slices_;
  std::unique_ptr<PlanSearch> search_;
  TimeBlockList blocks_;
  std::vector<SearchHit> hits_;  // by day and block
  QDate from_;
};

}  // namespace vellora
