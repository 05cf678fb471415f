#pragma once

#include "schedule/items.h"

#include <QWidget>

class QCheckBox;
class QComboBox;
class QLineEdit;

namespace vellora {

// The fields of one activity item.
class ItemFields : public QWidget {
  Q_OBJECT

 public:
  explicit ItemFields(QWidget* parent = nullptr);

  // What the fields hold, as it would be stored. The category is empty when none is chosen.
  Item item() const;
  // These do not raise edited(). A stored text that is longer than its field takes is shown whole.
  void showItem(const Item& item);
  // Proposes a code for a new item, unless it is too long to be one; the category stays.
  void showNew(const QString& code);
  // Empties all but the category.
  void clear();

  void focusCode();
  void focusCategory();

 signals:
  // The user changed a field or chose in it.
  void edited();
  // Enter in the name field.
  void finished();

 private:
  void layOut();
  void setTexts(const QString& code, const QString& name);
  void showCategory(const QString& category);

  QLineEdit* code_;
  QLineEdit* name_;
  QComboBox* category_;
  QCheckBox* completed_;
};

}  // namespace vellora
