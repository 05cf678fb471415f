#pragma once

#include <QString>

namespace vellora {

// The letters under which a Chinese name is looked up: of each Han character the first letter of
// its usual reading, of everything else its own lower-case letter. "高等数学A" gives "gdsxa".
QString pinyinInitials(const QString& name);

}  // namespace vellora
