#pragma once

#include <QScrollArea>

#include <array>

class QPushButton;

namespace vellora {

enum class BoardCommand {
  DailyPlan,
  ActivityPlan,
  Statistics,
  ActivityItems,
  TimeBlocks,
  Memo,
  WeekNames,
  Backup,
  Print,
  ClearSchedule,
  UsageNotes,
  About,
  Exit,
};
inline constexpr int kBoardCommandCount = 13;

// The board's commands as a column of buttons; it scrolls where the window is too low for it.
class CommandBar : public QScrollArea {
  Q_OBJECT

 public:
  explicit CommandBar(QWidget* parent = nullptr);

  QPushButton& button(BoardCommand command) const;
  QSize sizeHint() const override;

 signals:
  void triggered(BoardCommand command);

 private:
  std::array<QPushButton*, kBoardCommandCount> buttons_{};
};

}  // namespace vellora
