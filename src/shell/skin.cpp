#include "shell/skin.h"

#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QToolTip>

namespace vellora {
namespace {

constexpr qint64 kLargestSkinFile = 1 << 20;  // bytes

struct PaletteRole {
  const char* name;
  QPalette::ColorRole role;
};

constexpr PaletteRole kPaletteRoles[]{
    {"window", QPalette::Window},
    {"windowText", QPalette::WindowText},
    {"base", QPalette::Base},
    {"alternateBase", QPalette::AlternateBase},
    {"text", QPalette::Text},
    {"button", QPalette::Button},
    {"buttonText", QPalette::ButtonText},
    {"highlight", QPalette::Highlight},
    {"highlightedText", QPalette::HighlightedText},
    {"toolTipBase", QPalette::ToolTipBase},
    {"toolTipText", QPalette::ToolTipText},
    {"placeholderText", QPalette::PlaceholderText},
    {"link", QPalette::Link},
    {"light", QPalette::Light},
    {"midlight", QPalette::Midlight},
    {"mid", QPalette::Mid},
    {"dark", QPalette::Dark},
    {"shadow", QPalette::Shadow},
};

struct GridRole {
  const char* name;
  QColor GridColours::*colour;
};

constexpr GridRole kGridRoles[]{
    {"text", &GridColours::text},
    {"paper", &GridColours::paper},
    {"headingText", &GridColours::headingText},
    {"headingPaper", &GridColours::headingPaper},
    {"line", &GridColours::line},
    {"current", &GridColours::current},
    {"selectionText", &GridColours::selectionText},
    {"selectionPaper", &GridColours::selectionPaper},
    {"today", &GridColours::today},
};

// Reads "#rrggbb" and nothing else.
bool readColour(const QJsonObject& colours, const char* name, QColor& colour) {
  const QString text = colours.value(QLatin1StringView(name)).toString();
  if (text.size() != 7 || text[0] != u'#') return false;
  colour = QColor(text);
  return colour.isValid();
}

bool readPalette(const QJsonObject& colours, QPalette& palette) {
  QColor colour;
  for (const auto& [name, role] : kPaletteRoles) {
    if (!readColour(colours, name, colour)) return false;
    palette.setColor(role, colour);
  }
  if (!readColour(colours, "disabledText", colour)) return false;
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(QPalette::Disabled, role, colour);
  }
  return true;
}

bool readGrid(const QJsonObject& colours, GridColours& grid) {
  for (const auto& [name, member] : kGridRoles) {
    if (!readColour(colours, name, grid.*member)) return false;
  }
  return true;
}

// Opening a pipe would wait for someone to write into it.
QJsonObject readObject(const QString& path) {
  if (!QFileInfo(path).isFile()) return {};
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return {};
  return QJsonDocument::fromJson(file.read(qMin(file.size(), kLargestSkinFile))).object();
}

}  // namespace

std::optional<Skin> loadSkin(const QString& path) {
  const QJsonObject object = readObject(path);
  if (object.value(u"format"_qs) != u"vellora-skin"_qs) return std::nullopt;
  if (object.value(u"version"_qs).toInt() != 1) return std::nullopt;
  const QString mode = object.value(u"mode"_qs).toString();
  if (mode != u"light"_qs && mode != u"dark"_qs) return std::nullopt;
  Skin skin;
  skin.name = object.value(u"name"_qs).toString();
  skin.dark = mode == u"dark"_qs;
  if (!readPalette(object.value(u"palette"_qs).toObject(), skin.palette)) return std::nullopt;
  if (!readGrid(object.value(u"grid"_qs).toObject(), skin.grid)) return std::nullopt;
  skin.grid.faint = skin.palette.color(QPalette::PlaceholderText);
  return skin;
}

bool applySkin(const QString& path, QWidget& window) {
  const auto skin = loadSkin(path);
  if (!skin) return false;
  if (QApplication::palette() != skin->palette) {
    QApplication::setPalette(skin->palette);
    // at once, also for a window that is painted before there is an event loop
    QCoreApplication::sendPostedEvents(nullptr, QEvent::ApplicationPaletteChange);
  }
  QToolTip::setPalette(skin->palette);  // has a palette of its own
  for (auto* grid : window.findChildren<GridSurface*>()) grid->setColours(skin->grid);
  return true;
}

}  // namespace vellora
