#pragma once

#include <QIcon>
#include <QString>

namespace vellora {

// One of the line icons in data/icons, by its file's name, drawn in the palette's text colour, so
// that it follows the skin.
QIcon lineIcon(const QString& name);

}  // namespace vellora
