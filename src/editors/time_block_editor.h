#pragma once

#include "editors/table_editor.h"
#include "schedule/time_blocks.h"

namespace vellora {

// Divides the day into time blocks; see time_blocks.h.
class TimeBlockEditor : public TableEditor {
  Q_OBJECT

 public:
  explicit TimeBlockEditor(ApplicationState& state, QWidget* parent = nullptr);

 protected:
  // Asks first about plans that would be left without their block.
  bool save() override;
  TableRows write(const TableRows* asRead) override;

 private:
  bool asksWhere(const std::vector<LostBlock>& lost);

  NewCodes new_codes_;  // while it is being saved
};

}  // namespace vellora
