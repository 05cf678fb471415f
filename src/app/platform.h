#pragma once

class QApplication;

namespace vellora {

// Makes the program look and speak the same on every desktop: Chinese locale and dialogs, the
// Fusion style, installed faces in place of the Chinese faces that the planner asks for, and no
// double click that goes on in another window.
void setUpPlatform(QApplication& application);

}  // namespace vellora
