#pragma once

#include "editors/item_states.h"
#include "schedule/items.h"
#include "shell/edited_window.h"

class QBoxLayout;
class QComboBox;
class QPushButton;

namespace vellora {

class GridSurface;
class ItemFields;

// Edits the catalogue of activity items one by one: the grid shows and selects them, the fields
// take what is stored.
class ActivityItemEditor : public EditedWindow {
  Q_OBJECT

 public:
  explicit ActivityItemEditor(ApplicationState& state, QWidget* parent = nullptr);

 protected:
  void onActivate() override;
  void onUnload() override { catalogue_.close(); }
  Changes changes() override;
  bool save() override { return store(); }
  void readAgain() override { filter(); }
  void setTypable(bool on) override;

 private:
  void nameControls();
  void layOut();
  QBoxLayout* layOutList();
  QBoxLayout* layOutItem();
  void connectControls();

  void filter();

  void move(int left, int row);
  void changeRow(int left, int entered);
  int dropRow(int row, int entered);
  void showRow(int row);
  void keepDiscardedItem();
  bool bringBack(ItemMode mode, qint64 id, const Item& item);
  std::optional<Item> itemAt(int row);
  QString codeAt(int row) const;
  bool isNewRow(int row) const { return row >= 0 && codeAt(row).isEmpty(); }

  void startNew();
  bool store();
  bool write(StoreStep step, const Item& item);
  std::optional<bool> renamesPlans(const Item& item);
  void showStored(const Item& item, qint64 id);
  void cancel();
  void remove();
  void removeSelected();

  void apply(ItemEvent event);
  bool hasItem();
  void showButtons();

  ItemCatalogue catalogue_;
  ItemMode mode_ = ItemMode::Browsing;
  QString suggested_code_;
  QString shown_category_;  // of the filter
  Item shown_;              // what the fields held when nothing was typed yet
  qint64 shown_id_ = 0;

  QComboBox* filter_;
  QPushButton* refresh_;
  GridSurface* grid_;
  ItemFields* fields_;
  QPushButton* store_;
  QPushButton* cancel_;
  QPushButton* add_;
  QPushButton* delete_;
  QPushButton* close_;
};

}  // namespace vellora
