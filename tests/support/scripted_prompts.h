#pragma once

#include "shell/prompts.h"

#include <QStringList>

namespace vellora::test {

// Answers from a script and keeps what was shown. A question without an answer left is answered
// with 否 or the last choice, a file dialog is cancelled.
class ScriptedPrompts final : public Prompts {
 public:
  QStringList warnings;
  QStringList questions;
  QStringList informed;
  QList<bool> answers;
  QList<int> choices;
  QStringList files;

  void warn(QWidget*, const QString& text) override { warnings << text; }
  bool ask(QWidget*, const QString& question) override {
    questions << question;
    return !answers.isEmpty() && answers.takeFirst();
  }
  int choose(QWidget*, const QString& question, const QStringList& captions, int) override {
    questions << question;
    return choices.isEmpty() ? static_cast<int>(captions.size()) - 1 : choices.takeFirst();
  }
  void inform(QWidget*, const QString& text) override { informed << text; }
  QString chooseFile(QWidget*, const QString&, const QString&, const QString&) override {
    return files.isEmpty() ? QString() : files.takeFirst();
  }
};

}  // namespace vellora::test
