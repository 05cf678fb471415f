#pragma once

#include <QFont>
#include <QString>
#include <QTextLayout>

namespace vellora {

// The room for a text.
struct TextRoom {
  qreal width;
  int lines;
  bool wraps;
};

// Breaks the layout's text into at most the room's lines; false when the text does not fit.
bool breakLines(QTextLayout& layout, const TextRoom& room);

// The text with an ellipsis where a line, or the last one, does not fit; its lines are final.
QString elidedLines(const QTextLayout& layout, const TextRoom& room);

}  // namespace vellora
