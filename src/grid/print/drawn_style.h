#pragma once

#include "grid/sheet/cell_style.h"

#include <QColor>
#include <QFont>
#include <QStringView>

namespace vellora {

// A cell's colour, font and place as they are drawn, on the screen and on paper. The face is one
// that is installed; without a flag a text is on the left, or in the middle between above and
// below.
QColor colourOf(PackedColour colour);
QFont fontOf(const CellFont& font, qreal scale = 1);
Qt::Alignment alignmentOf(int flags);
// Around a text in colours of its own that is not readable by them; else invalid.
QColor edgeColourOf(const CellStyle& style, double contrast);
PackedColour categoryColour(int category);

// The face that is drawn when the planner asks for one by name: the face itself where it is
// installed, else the best installed stand-in for 宋体 (serif), 楷体_GB2312 (script) and 黑体
// (sans). Asking for an installed face spares the search for substitutes, which costs more than
// painting a board. Needs a QGuiApplication.
QString installedFace(const QString& face);

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
