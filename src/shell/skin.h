#pragma once

#include "grid/surface/grid_surface.h"

#include <QPalette>
#include <QString>

#include <optional>

class QWidget;

namespace vellora {

// The look of the windows: colours only. Category colours and printed pages never change with it.
struct Skin {
  QString name;
  bool dark = false;
  QPalette palette;
  GridColours grid;
};

// Reads a .skn file: one JSON object of format "vellora-skin", version 1, with "name", "mode"
// ("light" or "dark"), "palette" (QPalette's roles by name) and "grid" (the members of
// GridColours by name), colours as "#rrggbb". Nothing when anything is missing or unreadable, or
// when the path leads to anything but a plain file.
std::optional<Skin> loadSkin(const QString& path);

// Puts the skin on the program, and on every grid in the window: windows, boxes, menus, pop-ups and
// previews all take the application's palette, so that none needs one of its own. A skin that
// cannot be loaded leaves all as it was: false.
bool applySkin(const QString& path, QWidget& window);

}  // namespace vellora
