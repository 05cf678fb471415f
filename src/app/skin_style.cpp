#include "app/skin_style.h"

#include <QPainter>
#include <QStyleOption>

namespace vellora {
namespace {

constexpr int kDark = 128;  // lightness of 255

void outline(const QStyleOption& option, QPainter& painter) {
  const QPalette& palette = option.palette;
  if (palette.color(QPalette::Window).lightness() >= kDark) return;
  painter.save();
  painter.setPen(palette.color(QPalette::Mid));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(option.rect.adjusted(0, 0, -1, -1));
  painter.restore();
}

// With the focus these have an outline of their own.
bool hasOwnOutline(const QStyleOption& option) {
  return option.state.testFlag(QStyle::State_HasFocus);
}

QColor sliderColour(const QStyleOptionSlider& bar) {
  const QColor button = bar.palette.color(QPalette::Button);
  const bool isHeld = bar.state.testFlag(QStyle::State_Sunken);
  const bool isUnderMouse = bar.activeSubControls.testFlag(QStyle::SC_ScrollBarSlider);
  if (!isUnderMouse) return button;
  return isHeld ? button.darker(112) : button.lighter(112);
}

void drawTrack(const QRect& groove, const QRect& slider, const QStyleOptionSlider& bar,
               QPainter& painter) {
  const QColor line = bar.palette.color(QPalette::Mid);
  painter.fillRect(groove, bar.palette.color(QPalette::Button).darker(108));
  painter.fillRect(slider, line);
  painter.fillRect(slider.adjusted(1, 1, -1, -1), sliderColour(bar));
}

}  // namespace

SkinStyle::SkinStyle() : QProxyStyle(u"Fusion"_qs) {}

void SkinStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                              QPainter* painter, const QWidget* widget) const {
  QProxyStyle::drawPrimitive(element, option, painter, widget);
  const bool isField = element == PE_FrameLineEdit || element == PE_IndicatorCheckBox;
  const bool isFrame = element == PE_Frame || element == PE_PanelMenu;
  if (isFrame || (isField && !hasOwnOutline(*option))) outline(*option, *painter);
}

void SkinStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                   QPainter* painter, const QWidget* widget) const {
  if (control == CC_ScrollBar) return drawScrollBar(*option, *painter, widget);
  QProxyStyle::drawComplexControl(control, option, painter, widget);
  const bool isField = control == CC_ComboBox || control == CC_SpinBox;
  if (isField && !hasOwnOutline(*option)) outline(*option, *painter);
}

// Only the buttons at the ends are left to Fusion.
void SkinStyle::drawScrollBar(const QStyleOptionComplex& option, QPainter& painter,
                              const QWidget* widget) const {
  QStyleOptionSlider bar = static_cast<const QStyleOptionSlider&>(option);
  const auto rectOf = [&](SubControl part) {
    return subControlRect(CC_ScrollBar, &bar, part, widget);
  };
  drawTrack(rectOf(SC_ScrollBarGroove), rectOf(SC_ScrollBarSlider), bar, painter);
  bar.subControls &= SC_ScrollBarAddLine | SC_ScrollBarSubLine;
  QProxyStyle::drawComplexControl(CC_ScrollBar, &bar, &painter, widget);
}

int SkinStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                         QStyleHintReturn* returned) const {
  const bool isOff = hint == SH_ComboBox_Popup || hint == SH_EtchDisabledText;
  return isOff ? 0 : QProxyStyle::styleHint(hint, option, widget, returned);
}

}  // namespace vellora
