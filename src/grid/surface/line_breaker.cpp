#include "grid/surface/line_breaker.h"

#include <QFontMetricsF>

namespace vellora {
namespace {

constexpr qreal kEndless = 1e6;
constexpr QChar kEllipsis{u'…'};

// From the line's start to the end of what the writer meant as one line.
QString restOfLine(const QString& text, int start) {
  const qsizetype end = text.indexOf(QChar::LineSeparator, start);
  return text.mid(start, end < 0 ? -1 : end - start);
}

QString shownLine(const QTextLayout& layout, int number, const TextRoom& room) {
  const QTextLine line = layout.lineAt(number);
  const QString& text = layout.text();
  const auto end = line.textStart() + line.textLength();
  const bool isLast = number + 1 == room.lines && end < text.size();
  const QFontMetricsF metrics(layout.font());
  if (!isLast && room.wraps)
    return text.mid(line.textStart(), line.textLength()).remove(QChar::LineSeparator);
  const QString rest = restOfLine(text, line.textStart());
  QString elided = metrics.elidedText(rest, Qt::ElideRight, room.width);
  if (!isLast || elided != rest) return elided;
  return metrics.elidedText(rest + kEllipsis, Qt::ElideRight, room.width);
}

}  // namespace

bool breakLines(QTextLayout& layout, const TextRoom& room) {
  bool fits = true;
  layout.beginLayout();
  while (layout.lineCount() < room.lines) {
    QTextLine line = layout.createLine();
    if (!line.isValid()) break;
    line.setLineWidth(room.wraps ? room.width : kEndless);
    if (line.naturalTextWidth() > room.width) fits = false;
  }
  layout.endLayout();
  if (layout.lineCount() == 0) return fits;
  const QTextLine last = layout.lineAt(layout.lineCount() - 1);
  return fits && last.textStart() + last.textLength() == layout.text().size();
}

QString elidedLines(const QTextLayout& layout, const TextRoom& room) {
  QStringList lines;
  for (int i = 0; i < layout.lineCount(); ++i) lines << shownLine(layout, i, room);
  return lines.join(QChar::LineSeparator);
}

}  // namespace vellora
