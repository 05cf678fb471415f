#pragma once

#include <QByteArray>

namespace vellora {

// Makes the text of a PDF file written by Qt fit for searching and copying. Qt names a glyph by the
// first character that shares it, which for many Chinese characters is the look-alike sign of a
// radical, and for a blank a tab: 页 would be found only as ⻚, 日 as ⽇. Corrected character maps
// are appended as an incremental update (ISO 32000-1, 7.5.6); nothing that shows is changed. What
// has no such maps comes back as it was.
QByteArray withReadableText(const QByteArray& pdf);

// The character that is meant where Qt names a look-alike.
char16_t meantCharacter(char16_t named);

}  // namespace vellora
