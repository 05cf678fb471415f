#pragma once

#include <QString>

#include <functional>

class QLabel;
class QListWidget;
class QPushButton;
class QWidget;

// Controls that both planning windows have.
namespace vellora {

class GridSurface;

// A list in the face that the planner lists texts in.
QListWidget* makeNameList(const QString& objectName, const QString& accessibleName,
                          QWidget* parent);

// Double-clicking a line, or Enter on the current one, places it: `place` gets its position.
void placeFromList(QListWidget& list, const std::function<void(int position)>& place);

// "(双击完成操作)", for the list that it stands beside.
QLabel* makePlacingHint(QListWidget& list, QWidget* parent);

QPushButton* makeButton(const QString& objectName, const QString& caption, QWidget* parent);

// Takes over what is being typed into a cell, as leaving the cell would.
void finishTyping(GridSurface& grid);

}  // namespace vellora
