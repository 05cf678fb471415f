#include "editors/table_editor.h"

#include "editors/whole_table.h"
#include "grid/surface/grid_surface.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QScopeGuard>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace vellora {

TableEditor::TableEditor(ApplicationState& state, const Kind& kind, QWidget* above, QWidget* below,
                         QWidget* parent)
    : PlannerWindow(state, parent), kind_(kind) {
  setObjectName(kind.objectName);
  setWindowTitle(kind.caption);
  auto* column = new QVBoxLayout(this);
  if (above) column->addWidget(above);
  grid_ = new GridSurface(this);
  grid_->setObjectName(u"Cell1"_qs);
  grid_->setAccessibleName(kind.gridName);
  grid_->setEditable(true);
  grid_->setHeadingStripVisible(true);
  grid_->setRowNumbersVisible(true);
  tellCutPastes(*grid_);
  answerGridKeys(*grid_, [name = kind.documentName] { return name; });
  column->addWidget(grid_, 1);
  if (below) column->addWidget(below);
  column->addWidget(statusLine());
  column->addLayout(makeButtons());
  resize(kind.size);
}

QHBoxLayout* TableEditor::makeButtons() {
  auto* row = new QHBoxLayout;
  row->addStretch();
  const auto add = [&](const QString& name, const QString& caption, auto action) {
    auto* button = new QPushButton(caption, this);
    button->setObjectName(name);
    connect(button, &QPushButton::clicked, this, action);
    row->addWidget(button);
  };
  add(u"cmdOP"_qs, u"打开(&O)"_qs, [this] { open(); });
  add(u"cmdSV"_qs, u"保存(&S)"_qs, [this] { save(); });
  add(u"CmdEND"_qs, u"关闭(&Q) "_qs, [this] { close(); });
  return row;
}

void TableEditor::activate() {
  unsetCursor();
  kind_.setUp(grid_->sheet());
  grid_->Redraw();
  open();
}

// A mnemonic leaves the focus in the cell that is being typed into; the grid's taking it closes the
// cell and keeps the typed text.
void TableEditor::closeCell() {
  grid_->Focus();
}

// A table that cannot be read leaves the grid as it was.
void TableEditor::open() {
  closeCell();
  try {
    kind_.load(state().Db, grid_->sheet());
  } catch (const StoreError& error) {
    prompts().warn(this, error.description());
    return;
  }
  changed_ = false;
  grid_->clearUndo();
  stored_revision_ = grid_->sheet().revision();
  grid_->Redraw();
  moveTo(0, 1);
  moveTo(0, 0);
}

void TableEditor::save() {
  closeCell();
  try {
    kind_.save(state().Db, grid_->sheet());
  } catch (const CellRefused& refused) {
    show(refused);
    return;
  } catch (const StoreError& error) {
    prompts().warn(this, error.description());
    return;
  }
  stored_revision_ = grid_->sheet().revision();
  prompts().warn(this, u"保存完毕!"_qs);
}

void TableEditor::show(const CellRefused& refused) {
  moveTo(refused.col(), refused.row());
  prompts().warn(this, refused.description());
  grid_->Focus();
}

void TableEditor::moveTo(int col, int row) {
  const QSignalBlocker quiet(grid_);
  grid_->SetCurrentCell(col, row);
}

void TableEditor::change(const QString& name, const std::function<void()>& changes) {
  const quint64 before = grid_->sheet().revision();
  try {
    grid_->beginUndoStep(name);
    const auto whole = qScopeGuard([this] { grid_->endUndoStep(); });
    changes();
  } catch (const CellRefused& refused) {
    show(refused);
  }
  changed_ = changed_ || grid_->sheet().revision() != before;
}

bool TableEditor::hasUnsavedTyping() const {
  return (changed_ || grid_->isEdited()) && grid().sheet().revision() != stored_revision_;
}

}  // namespace vellora
