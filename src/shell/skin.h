#pragma once

#include "grid/surface/grid_surface.h"

#include <QPalette>
#include <QString>

#include <optional>

class QWidget;

namespace vellora {

// The look of a window: colours only. Category colours and printed pages never change with it.
struct Skin {
  QString name;
  bool dark = false;
  QPalette palette;
  GridColours grid;
};

// Reads a .skn file: one JSON object of format "vellora-skin", version 1, with "name", "mode"
// ("light" or "dark"), "palette" (QPalette's roles by name) and "grid" (the members of
// GridColours by name), colours as "#rrggbb". Nothing when anything is missing or unreadable.
std::optional<Skin> loadSkin(const QString& path);

// Puts the skin on a window and on every grid in it. A skin that cannot be loaded leaves the
// window as it was.
void applySkin(const QString& path, QWidget& window);

}  // namespace vellora
