#pragma once

#include "shell/edited_window.h"

#include <QDate>

class QPlainTextEdit;
class QPushButton;

namespace vellora {

class DateStepper;

// Shows and stores one free text for each date. Picking another date drops what was not stored.
class MemoWindow : public EditedWindow {
  Q_OBJECT

 public:
  explicit MemoWindow(ApplicationState& state, QWidget* parent = nullptr);

  // After loading.
  void setDate(QDate day);

  // After loading.
  void openDay(QDate day);

 protected:
  void onLoad() override;
  Changes changes() override;
  bool save() override;
  void readAgain() override { showDay(); }
  void setTypable(bool on) override;

 private:
  void layOut();
  void showDay();
  void ShowMemo(bool quietly = false);
  void keepDiscardedText();
  QString typedText() const;

  DateStepper* days_;
  QPlainTextEdit* text_;
  QPushButton* update_;
  QDate shown_day_;
  QString shown_;  // the day's memo as it was read or stored
};

}  // namespace vellora
