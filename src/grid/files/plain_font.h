#pragma once

#include <QFont>
#include <QStringView>

namespace vellora {

// Shaping joins and moves characters, as combining marks, Latin pairs and many scripts need. Its
// rules for a Chinese face take half a megabyte and more time than drawing a board's texts, so what
// looks the same without them is drawn without them.

// Whether every face draws the text the same unshaped: Han characters, digits and what stands
// between them.
bool isPlainText(QStringView text);

// The font without shaping, for plain texts and for captions that may lose the kerning of their
// Latin letters.
QFont plainFont(QFont font);

}  // namespace vellora
