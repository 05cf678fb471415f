#pragma once

#include "shell/prompts.h"

namespace vellora {

// Prompts as message boxes and file dialogs.
class BoxPrompts final : public Prompts {
 public:
  void warn(QWidget* parent, const QString& text) override;
  bool ask(QWidget* parent, const QString& question) override;
  int choose(QWidget* parent, const QString& question, const QStringList& answers,
             int usual) override;
  void inform(QWidget* parent, const QString& text) override;
  QString chooseFile(QWidget* parent, const QString& title, const QString& filter,
                     const QString& folder) override;
};

}  // namespace vellora
