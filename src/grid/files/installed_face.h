#pragma once

#include <QString>

namespace vellora {

// The face that is drawn when the planner asks for one by name: the face itself where it is
// installed, else the best installed stand-in for 宋体 (serif), 楷体_GB2312 (script) and 黑体
// (sans). Asking for an installed face spares the search for substitutes, which costs more than
// painting a board. Needs a QGuiApplication.
QString installedFace(const QString& face);

}  // namespace vellora
