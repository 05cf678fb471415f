#pragma once

#include "editors/table_editor.h"

namespace vellora {

// Divides the day into time blocks; see time_blocks.h.
class TimeBlockEditor : public TableEditor {
  Q_OBJECT

 public:
  explicit TimeBlockEditor(ApplicationState& state, QWidget* parent = nullptr);
};

}  // namespace vellora
