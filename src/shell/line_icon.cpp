#include "shell/line_icon.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QSvgRenderer>

namespace vellora {
namespace {

QColor colourIn(QIcon::Mode mode) {
  const QPalette palette = QGuiApplication::palette();
  if (mode == QIcon::Disabled) return palette.color(QPalette::Disabled, QPalette::ButtonText);
  const bool isHighlighted = mode == QIcon::Selected || mode == QIcon::Active;  // in a menu
  if (isHighlighted) return palette.color(QPalette::HighlightedText);
  return palette.color(QPalette::ButtonText);
}

class LineIconEngine : public QIconEngine {
 public:
  explicit LineIconEngine(const QString& name) : name_(name) {}

  QIconEngine* clone() const override { return new LineIconEngine(name_); }

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
    QFile file(u":/icons/"_qs + name_ + u".svg"_qs);
    if (!file.open(QIODevice::ReadOnly)) return;
    QSvgRenderer drawing(file.readAll().replace("currentColor", colourIn(mode).name().toLatin1()));
    drawing.render(painter, rect);
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap drawn(size);
    drawn.fill(Qt::transparent);
    QPainter painter(&drawn);
    paint(&painter, QRect(QPoint(), size), mode, state);
    return drawn;
  }

 private:
  QString name_;
};

}  // namespace

QIcon lineIcon(const QString& name) {
  return QIcon(new LineIconEngine(name));
}

}  // namespace vellora
