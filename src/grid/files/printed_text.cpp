#include "grid/files/printed_text.h"

#include "grid/files/drawn_style.h"
#include "routine/calendar_text.h"

#include <QTextOption>

namespace vellora {
namespace {

QString withLineSeparators(QString text) {
  text.replace(u"\r\n"_qs, QString(QChar::LineSeparator));
  text.replace(kLineBreak, QChar::LineSeparator);
  return text.replace(u'\n', QChar::LineSeparator);
}

}  // namespace

PrintedText::PrintedText(const QString& text, const CellStyle& style, double width,
                         QPaintDevice* device)
    : layout_(withLineSeparators(text), fontOf(style.font), device) {
  QTextOption option(alignmentOf(style.align) & Qt::AlignHorizontal_Mask);
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  layout_.setTextOption(option);
  layout_.beginLayout();
  double y = 0;
  for (QTextLine line = layout_.createLine(); line.isValid(); line = layout_.createLine()) {
    line.setLineWidth(width);
    line.setPosition({0, y});
    y += line.height();
  }
  layout_.endLayout();
}

std::vector<LineRun> PrintedText::runs(double room) const {
  std::vector<double> heights;
  heights.reserve(static_cast<std::size_t>(layout_.lineCount()));
  for (int i = 0; i < layout_.lineCount(); ++i) heights.push_back(layout_.lineAt(i).height());
  return flowLines(heights, room);
}

void PrintedText::draw(QPainter& painter, const LineRun& run, QPointF topLeft) const {
  if (run.count == 0) return;
  const double top = layout_.lineAt(run.first).y();
  for (int i = run.first; i < run.first + run.count; ++i) {
    layout_.lineAt(i).draw(&painter, topLeft - QPointF(0, top));
  }
}

}  // namespace vellora
