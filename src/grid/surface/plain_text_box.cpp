#include "grid/surface/plain_text_box.h"

#include <QMimeData>

namespace vellora {

void PlainTextBox::insertFromMimeData(const QMimeData* source) {
  if (source && !source->formats().isEmpty()) QPlainTextEdit::insertFromMimeData(source);
}

}  // namespace vellora
