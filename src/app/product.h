#pragma once

#include <QFrame>
#include <QString>

class QLabel;
class QPixmap;

namespace vellora {

// What the splash, about and usage windows say and show of the product alike.

inline QString versionLine() {
  return u"版本 2.8 FOR WINDOWS"_qs;
}
inline QString makersLine() {
  return u"Vellora 日程表项目组"_qs;
}
inline QString legalNotice() {
  return u"本程序按现状提供，日程数据只保存在本机，请定期备份。"_qs;
}

// The program's icon, that many pixels wide and high: the picture of data/icon/vellora.svg. Drawn,
// because reading a picture file makes the toolkit load its plug-ins for all kinds of them, which
// costs more than showing the splash window.
QPixmap productIcon(int size);

QLabel* makeProductTitle(int points, QWidget* parent);
QLabel* makeProductIcon(QWidget* parent);
QFrame* makeSeparator(QFrame::Shape shape, QWidget* parent);

}  // namespace vellora
