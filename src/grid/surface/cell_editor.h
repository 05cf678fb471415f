#pragma once

#include "grid/surface/plain_text_box.h"

namespace vellora {

bool isModifierKey(int key);

// Whether a key that an open cell has no use for is one of the window's: a function key, or one
// with Ctrl, Alt or Meta.
bool isWindowKey(const QKeyEvent& event);

// Where a cell's text is typed: Enter and Tab leave, Alt+Enter begins a new line.
class CellEditor final : public PlainTextBox {
  Q_OBJECT

 public:
  // The cell's rectangle; the editor grows from it while its text needs more room.
  explicit CellEditor(QWidget* viewport);
  void setCell(const QRect& cell);
  void putCursorAtEnd();

 signals:
  // The text is to be kept and the cell left by this key.
  void left(int key, Qt::KeyboardModifiers modifiers);
  // A key is about to reach the window's commands, which must find the text in the sheet.
  void aboutToLoseKey();

 protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void fit();

  QRect cell_;
};

}  // namespace vellora
