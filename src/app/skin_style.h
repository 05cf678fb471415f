#pragma once

#include <QProxyStyle>

namespace vellora {

// The Fusion style as dark skins need it. Fusion outlines fields, check boxes and menus in a darker
// shade of the window, which nobody could see on a dark window: they are outlined in the palette's
// `mid` there. Lists of combo boxes take the palette of their box, and disabled texts stand without
// a shadow, which would be the brighter of the two.
//
// Scroll bars are flat: the toolkit spreads a shade as tall as a window over threads, and starting
// them takes longer than painting the board.
class SkinStyle : public QProxyStyle {
 public:
  SkinStyle();

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                          QPainter* painter, const QWidget* widget) const override;
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* returned) const override;

 private:
  void drawScrollBar(const QStyleOptionComplex& option, QPainter& painter,
                     const QWidget* widget) const;
};

}  // namespace vellora
