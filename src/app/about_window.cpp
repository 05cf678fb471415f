#include "app/about_window.h"

#include "app/product.h"
#include "app/skin_setting.h"
#include "shell/controls.h"
#include "shell/skin.h"
#include "store/store_error.h"

#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace vellora {

AboutWindow::AboutWindow(ApplicationState& state, QWidget* parent) : PlannerWindow(state, parent) {
  setObjectName(u"formgylf"_qs);
  setWindowTitle(u"Vellora日程表2.8版"_qs);
  auto* top = new QHBoxLayout;
  top->setSpacing(24);
  top->addWidget(named(makeProductIcon(this), u"picIcon"_qs), 0, Qt::AlignTop);
  top->addLayout(layOutTexts(), 1);
  auto* all = new QVBoxLayout(this);
  all->setContentsMargins(28, 24, 28, 20);
  all->setSpacing(14);
  all->addLayout(top, 1);
  all->addWidget(makeSeparator(QFrame::HLine, this));
  all->addLayout(layOutButtons());
}

QLayout* AboutWindow::layOutTexts() {
  auto* texts = new QVBoxLayout;
  texts->setSpacing(6);
  texts->addWidget(named(makeProductTitle(24, this), u"Label1"_qs));
  for (const QString& line : {versionLine(), makersLine(), legalNotice()}) {
    texts->addWidget(named(new QLabel(line, this), u"Label1"_qs));
  }
  texts->insertSpacing(2, 12);
  texts->addStretch();
  return texts;
}

QLayout* AboutWindow::layOutButtons() {
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(makeButton(u"Command1"_qs, u"界面"_qs, this, [this] { chooseSkin(); }));
  buttons->addWidget(makeButton(u"Command2"_qs, u"关闭"_qs, this, [this] { close(); }));
  return buttons;
}

void AboutWindow::chooseSkin() {
  const QString path =
      prompts().chooseFile(this, u"文件打开"_qs, u"日程表界面文件|*.skn"_qs, state().programDir);
  const bool isStored = !path.isEmpty() && storeSkin(QFileInfo(path).absoluteFilePath());
  const bool isOn = applySkin(state().SkinPath, *this);
  update();
  if (isStored && !isOn) {
    prompts().warn(this, u"“%1”不是可以使用的界面文件，界面没有改变。"_qs.arg(path));
  }
}

// A skin that cannot be kept for the next start is not taken for this run either, so that all
// windows and the setting agree.
bool AboutWindow::storeSkin(const QString& path) {
  try {
    storeSkinPath(state().Db, path);
  } catch (const StoreError& error) {
    prompts().warn(this, error.description());
    return false;
  }
  state().SkinPath = path;
  return true;
}

}  // namespace vellora
