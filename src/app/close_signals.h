#pragma once

#include <QObject>

#include <array>

namespace vellora {

// Makes the signals that end a program, and the end of the session, close the windows in order, so
// that each asks about what was typed in it; a refusal keeps the program running. A reader that has
// gone and a file that is too large are failures of the call that met them, and end nothing.
//
// There is one at a time, and it stays as long as the program runs.
class CloseSignals : public QObject {
  Q_OBJECT

 public:
  CloseSignals();
  ~CloseSignals() override;

 private:
  void closeOnSignal();
  static bool closeWindows();

  std::array<int, 2> ends_{-1, -1};  // a signal's handler may do no more than write
  bool is_closing_ = false;
};

}  // namespace vellora
