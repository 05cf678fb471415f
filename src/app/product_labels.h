#pragma once

#include <QFrame>
#include <QString>

class QLabel;

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

QLabel* makeProductTitle(int points, QWidget* parent);
QLabel* makeProductIcon(QWidget* parent);
QFrame* makeSeparator(QFrame::Shape shape, QWidget* parent);

}  // namespace vellora
