#pragma once

#include <QStringList>

class QWidget;

namespace vellora {

// Everything a window asks of the user or tells in a box. Windows get it handed over; tests script
// it. Boxes carry the program's title.
class Prompts {
 public:
  virtual ~Prompts() = default;

  // 确定, with the warning icon.
  virtual void warn(QWidget* parent, const QString& text) = 0;
  // 是 and 否; true only for 是. Closing the box means 否.
  virtual bool ask(QWidget* parent, const QString& question) = 0;
  // A button for each answer; gives the position of the one pressed. Enter means the usual one. The
  // last answer is the one that changes nothing: closing the box means it.
  virtual int choose(QWidget* parent, const QString& question, const QStringList& answers,
                     int usual) = 0;
  // 确定, without an icon.
  virtual void inform(QWidget* parent, const QString& text) = 0;
  // Path of an existing file, empty when the user cancels. A filter reads "名称|*.扩展名".
  virtual QString chooseFile(QWidget* parent, const QString& title, const QString& filter,
                             const QString& folder) = 0;
};

}  // namespace vellora
