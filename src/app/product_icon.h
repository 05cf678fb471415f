#pragma once

class QPixmap;

namespace vellora {

// The program's icon, that many pixels wide and high: the picture of data/icon/vellora.svg. Drawn,
// because reading a picture file makes the toolkit load its plug-ins for all kinds of them, which
// costs more than showing the splash window.
QPixmap productIcon(int size);

}  // namespace vellora
