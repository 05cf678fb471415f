#include "app/about_window.h"

#include "app/product_labels.h"
#include "app/skin_setting.h"
#include "shell/skin.h"
#include "store/store_error.h"

#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace vellora {
namespace {

QLabel* makeLabel(const QString& text, QWidget* parent) {
  auto* label = new QLabel(text, parent);
  label->setObjectName(u"Label1"_qs);
  return label;
}

}  // namespace

AboutWindow::AboutWindow(ApplicationState& state, QWidget* parent) : PlannerWindow(state, parent) {
  setObjectName(u"formgylf"_qs);
  setWindowTitle(u"Vellora日程表2.8版"_qs);
  auto* icon = makeProductIcon(this);
  icon->setObjectName(u"picIcon"_qs);
  auto* top = new QHBoxLayout;
  top->setSpacing(24);
  top->addWidget(icon, 0, Qt::AlignTop);
  top->addLayout(layOutTexts(), 1);
  auto* all = new QVBoxLayout(this);
  all->setContentsMargins(28, 24, 28, 20);
  all->setSpacing(14);
  all->addLayout(top, 1);
  all->addWidget(makeSeparator(QFrame::HLine, this));
  all->addLayout(layOutButtons());
}

QLayout* AboutWindow::layOutTexts() {
  auto* title = makeProductTitle(24, this);
  title->setObjectName(u"Label1"_qs);
  auto* texts = new QVBoxLayout;
  texts->setSpacing(6);
  texts->addWidget(title);
  texts->addWidget(makeLabel(versionLine(), this));
  texts->addSpacing(12);
  texts->addWidget(makeLabel(makersLine(), this));
  texts->addWidget(makeLabel(legalNotice(), this));
  texts->addStretch();
  return texts;
}

QLayout* AboutWindow::layOutButtons() {
  auto* skin = makeButton(u"Command1"_qs, u"界面"_qs);
  auto* close = makeButton(u"Command2"_qs, u"关闭"_qs);
  connect(skin, &QPushButton::clicked, this, &AboutWindow::chooseSkin);
  connect(close, &QPushButton::clicked, this, &QWidget::close);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(skin);
  buttons->addWidget(close);
  return buttons;
}

QPushButton* AboutWindow::makeButton(const QString& objectName, const QString& caption) {
  auto* button = new QPushButton(caption, this);
  button->setObjectName(objectName);
  return button;
}

void AboutWindow::chooseSkin() {
  const QString path =
      prompts().chooseFile(this, u"文件打开"_qs, u"日程表界面文件|*.skn"_qs, state().programDir);
  const bool isTaken = !path.isEmpty() && takeSkin(QFileInfo(path).absoluteFilePath());
  const bool isOn = applySkin(state().SkinPath, *this);
  update();
  if (isTaken && !isOn) {
    prompts().warn(this, u"“%1”不是可以使用的界面文件，界面没有改变。"_qs.arg(path));
  }
}

// A skin that cannot be kept for the next start is not taken for this run either, so that all
// windows and the setting agree.
bool AboutWindow::takeSkin(const QString& path) {
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
