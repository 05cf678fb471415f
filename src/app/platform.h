#pragma once

#include <QString>

class QApplication;

namespace vellora {

// Makes the program look and speak the same on every desktop: Chinese locale and dialogs, the
// Fusion style, installed faces in place of the Chinese faces that the planner asks for, and no
// double click that goes on in another window.
void setUpPlatform(QApplication& application);

// The user's folder for the planner's files, $XDG_DATA_HOME/vellora. Copies there what the shared
// folder has and the user's has not: nothing that is the user's is ever touched. What cannot be
// copied is missing then, and told when it is opened.
QString layUserFolder(const QString& sharedFolder);

}  // namespace vellora
