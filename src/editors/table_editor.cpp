#include "editors/table_editor.h"

#include "grid/surface/grid_surface.h"
#include "shell/controls.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace vellora {

TableEditor::TableEditor(ApplicationState& state, const Kind& kind, QWidget* above, QWidget* below,
                         QWidget* parent)
    : EditedWindow(state, parent), kind_(kind) {
  setObjectName(kind.objectName);
  setWindowTitle(kind.caption);
  auto* column = new QVBoxLayout(this);
  if (above) column->addWidget(above);
  grid_ = named(new GridSurface(this), u"Cell1"_qs, kind.gridName);
  grid_->setHeadingStripVisible(true);
  grid_->setRowNumbersVisible(true);
  grid_->setEmptyHint(kind.emptyHint);
  reportTrimmedPastes(*grid_);
  answerGridKeys(*grid_, [name = kind.documentName] { return name; });
  watch(*grid_);
  column->addWidget(grid_, 1);
  if (below) column->addWidget(below);
  column->addWidget(statusLine());
  column->addWidget(editStatus(grid_));
  column->addLayout(makeButtons());
  resize(kind.size);
  TableEditor::setTypable(false);
}

QHBoxLayout* TableEditor::makeButtons() {
  auto* row = new QHBoxLayout;
  row->addStretch();
  row->addWidget(makeButton(u"cmdOP"_qs, u"打开(&O)"_qs, this, [this] { open(); }));
  save_ = makeButton(u"cmdSV"_qs, u"保存(&S)"_qs, this, [this] { save(); });
  row->addWidget(save_);
  row->addWidget(makeButton(u"CmdEND"_qs, u"关闭(&Q) "_qs, this, [this] { close(); }));
  return row;
}

void TableEditor::onActivate() {
  unsetCursor();
  kind_.setUp(grid_->sheet());
  grid_->Redraw();
  open();
}

void TableEditor::setTypable(bool on) {
  grid_->setEditable(on);
  save_->setEnabled(on);
}

// A mnemonic leaves the focus in the cell that is being typed into; the grid's taking it closes the
// cell and keeps the typed text.
void TableEditor::finishTyping() {
  grid_->Focus();
}

void TableEditor::open() {
  finishTyping();
  const Sheet discarded = grid_->sheet();
  const bool wasChanged = isChanged();
  if (!read([this] { showStored(); }) || !wasChanged) return;
  keepDiscarded([this, discarded] {
    change(u"找回"_qs, [&] { grid_->sheet() = discarded; });
    grid_->Redraw();
    return true;
  });
}

void TableEditor::showStored() {
  stored_ = kind_.load(state().Db, grid_->sheet());
  grid_->clearUndo();
  grid_->Redraw();
  moveTo(0, 1);
  moveTo(0, 0);
}

bool TableEditor::save() {
  finishTyping();
  try {
    if (!saveAsking([this](bool overwrite) { stored_ = write(overwrite ? nullptr : &stored_); })) {
      return false;
    }
  } catch (const CellRefused& refused) {
    show(refused);
    return false;
  } catch (const StoreError& error) {
    prompts().warn(this, error.description());
    return false;
  }
  updateChanges();
  prompts().warn(this, u"保存完毕!"_qs);
  return true;
}

TableRows TableEditor::write(const TableRows* asRead) {
  return kind_.save(state().Db, grid_->sheet(), asRead);
}

Changes TableEditor::changes() {
  return kind_.changes(grid_->sheet(), stored_);
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
  try {
    const UndoStep step(*grid_, name);
    changes();
  } catch (const CellRefused& refused) {
    show(refused);
  }
}

}  // namespace vellora
