#pragma once

#include <QDate>
#include <QStringList>

// What the made-up schedule holds, and what is typed and pressed: likely and unlikely things.
namespace vellora::test {

inline const QDate kToday(2026, 3, 10);

inline const QStringList& texts() {
  static const QStringList kTexts{u"读书"_qs,   u"abc"_qs,        u"3"_qs,
                                  u"１２"_qs,   u"😀"_qs,          u"带 空格"_qs,
                                  u"x"_qs,      u"第'1'周"_qs,    u"99999999999"_qs,
                                  u"12:30"_qs,  u"2026-03-10"_qs, QString(300, u'长'),
                                  u"活动001"_qs};
  return kTexts;
}

inline const QStringList& dateTexts() {
  static const QStringList kDates{u"2027-06-07"_qs,     u" 2026-03-10 "_qs,  u"2026-03-13"_qs,
                                  u"2026/3/11"_qs,      u"2026年3月12日"_qs, u"20260313"_qs,
                                  u"２０２６-03-14"_qs, u"2026-02-30"_qs,    u"今天"_qs};
  return kDates;
}

inline const QStringList& timeTexts() {
  static const QStringList kTimes{u"8:30"_qs,     u"09:00"_qs, u"10:15"_qs,
                                  u"８：３０"_qs, u"25:00"_qs, u"中午"_qs};
  return kTimes;
}

inline const QStringList& activities() {
  static const QStringList kNames{u"活动001"_qs, u"活动002"_qs, u"活动003"_qs, u"没有的活动"_qs};
  return kNames;
}

inline const QStringList& tableTexts() {
  static const QStringList kTables{
      u"2026-03-12\t00:00-03:59 时段\t活动001\t要求\t2\n2026-03-13\t\t活动002\t\t"_qs,
      u"7:00\t8:00\t090\t早\n8:00\t9:00\t091\t晚\n"_qs, u"\"一\n二\"\t三"_qs,
      u"2026-03-16\t2026-03-22\t第三周"_qs, u"\t\t\n\t\t"_qs};
  return kTables;
}

struct PressedKey {
  int key;
  Qt::KeyboardModifiers modifiers = {};
};
inline constexpr PressedKey kKeys[]{
    {Qt::Key_Up},
    {Qt::Key_Down},
    {Qt::Key_Left},
    {Qt::Key_Right},
    {Qt::Key_Tab},
    {Qt::Key_Tab},
    {Qt::Key_Return},
    {Qt::Key_Home},
    {Qt::Key_End},
    {Qt::Key_PageDown},
    {Qt::Key_PageUp},
    {Qt::Key_F2},
    {Qt::Key_F2},
    {Qt::Key_Delete},
    {Qt::Key_Backspace},
    {Qt::Key_Space},
    {Qt::Key_Escape},
    {Qt::Key_F7},
    {Qt::Key_F8},
    {Qt::Key_F5},
    {Qt::Key_Shift},
    {Qt::Key_Menu},
    {Qt::Key_F3},
    {Qt::Key_Tab, Qt::ShiftModifier},
    {Qt::Key_Down, Qt::ShiftModifier},
    {Qt::Key_Right, Qt::ShiftModifier},
    {Qt::Key_A, Qt::ControlModifier},
    {Qt::Key_C, Qt::ControlModifier},
    {Qt::Key_X, Qt::ControlModifier},
    {Qt::Key_V, Qt::ControlModifier},
    {Qt::Key_Z, Qt::ControlModifier},
    {Qt::Key_Y, Qt::ControlModifier},
    {Qt::Key_D, Qt::ControlModifier},
    {Qt::Key_T, Qt::ControlModifier},
    {Qt::Key_End, Qt::ControlModifier},
    {Qt::Key_O, Qt::AltModifier},
    {Qt::Key_S, Qt::AltModifier},
    {Qt::Key_D, Qt::AltModifier},
    {Qt::Key_Return, Qt::AltModifier},
};
inline constexpr int kLoneKeys[]{Qt::Key_Shift, Qt::Key_Control, Qt::Key_Alt, Qt::Key_CapsLock};

// Object names of controls that several windows have.
inline constexpr const char* kDayButtons[]{"Cm1",      "Cm2",      "Cm3",      "Cm4",
                                           "Command1", "Command2", "Command3", "Command4"};
inline constexpr const char* kPickers[]{"D1", "DTP1"};
inline constexpr const char* kWindowButtons[]{
    "Command1", "Command1", "Command2", "Command3", "Command4", "Command4",  "Command5", "Command5",
    "Command6", "Command6", "Command7", "Command7", "Command8", "Command98", "CmdA0"};

}  // namespace vellora::test
