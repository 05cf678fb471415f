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
  QProxyStyle::drawComplexControl(control, option, painter, widget);
  const bool isField = control == CC_ComboBox || control == CC_SpinBox;
  if (isField && !hasOwnOutline(*option)) outline(*option, *painter);
}

int SkinStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                         QStyleHintReturn* returned) const {
  const bool isOff = hint == SH_ComboBox_Popup || hint == SH_EtchDisabledText;
  return isOff ? 0 : QProxyStyle::styleHint(hint, option, widget, returned);
}

}  // namespace vellora
