#include "planning/plan_controls.h"

#include "grid/surface/grid_surface.h"

#include <QApplication>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QShortcut>

namespace vellora {

QListWidget* makeNameList(const QString& objectName, const QString& accessibleName,
                          QWidget* parent) {
  auto* list = new QListWidget(parent);
  list->setObjectName(objectName);
  list->setAccessibleName(accessibleName);
  QFont face = list->font();
  face.setFamilies({u"宋体"_qs});
  list->setFont(face);
  return list;
}

void placeFromList(QListWidget& list, const std::function<void(int position)>& place) {
  QObject::connect(&list, &QListWidget::doubleClicked, &list,
                   [place](const QModelIndex& line) { place(line.row()); });
  for (const auto key : {Qt::Key_Return, Qt::Key_Enter}) {
    auto* enter = new QShortcut(key, &list, nullptr, nullptr, Qt::WidgetShortcut);
    QObject::connect(enter, &QShortcut::activated, &list,
                     [place, &list] { place(list.currentRow()); });
  }
}

QLabel* makePlacingHint(QListWidget& list, QWidget* parent) {
  auto* hint = new QLabel(u"(双击完成操作)"_qs, parent);
  hint->setBuddy(&list);
  return hint;
}

QPushButton* makeButton(const QString& objectName, const QString& caption, QWidget* parent) {
  auto* button = new QPushButton(caption, parent);
  button->setObjectName(objectName);
  return button;
}

void finishTyping(GridSurface& grid) {
  auto* editor = QApplication::focusWidget();
  if (editor && grid.viewport()->isAncestorOf(editor)) editor->clearFocus();
}

}  // namespace vellora
