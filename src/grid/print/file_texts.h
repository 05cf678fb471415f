#pragma once

class QFileDialog;

namespace vellora {

// Gives Qt's own file dialog the Chinese texts that Qt leaves in the system's language, or in
// English: kinds of files and sizes.
void translateFiles(QFileDialog& dialog);

}  // namespace vellora
