#pragma once

#include <QString>

class QWidget;

namespace vellora {

// Asks for an existing file in Qt's own dialog, in Chinese and in the skin's colours; skins are
// shown as small pictures of themselves. Empty when the user cancels. A filter reads
// "名称|*.扩展名".
QString askForFile(QWidget* parent, const QString& title, const QString& filter,
                   const QString& folder);

}  // namespace vellora
