#include "random_user/habits.h"

#include "grid/surface/grid_surface.h"
#include "random_user/screen.h"
#include "shell/planner_window.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMap>
#include <QMimeData>

namespace vellora::test {
namespace {

struct Habit {
  int weight;
  QStringView windows;  // by letters: see kindLetter()
  QStringView words;    // see Author
};

constexpr Habit kHabits[]{
    // anywhere
    {6, u"BDATNIMSKO", u"anything"},
    {4, u"BDATNIMSKO", u"key key?"},
    {3, u"BDATNIMSKO", u"text Return|Tab"},
    {1, u"BDATNIMSKO", u"clip"},
    {2, u"BDATNIMSKO", u"other"},
    {9, u"DATNIMK", u"@CmdEND|Esc|frame"},
    {9, u"SO", u"@Command2|@CmdEND|Esc|frame"},
    {3, u"BMSKO", u"clip? Ctrl+V"},
    // grids that are typed into
    {2, u"DATN", u"drag"},
    {3, u"DATN", u"clip? cell? Ctrl+V"},
    {3, u"DATN", u"row|Ctrl+A Ctrl+X|Ctrl+C cell0 Ctrl+V save?"},
    {2, u"DATN", u"drag|Ctrl+A Del @CmdEND|Esc|frame|Down"},
    {6, u"DATN", u"cell F2? text Return|Tab save?"},
    {2, u"DATN", u"cell text Return Ctrl+Z"},
    {1, u"DATN", u"cell Del Ctrl+Z"},
    {3, u"DATN", u"cell F2? text lone? Esc"},
    {3, u"DATN", u"save"},
    // dates
    {4, u"BDAMS", u"picker Ctrl+A date Return|Tab"},
    {1, u"BDAMS", u"picker Ctrl+A date Esc"},
    {4, u"BDM", u"@Cm1|@Cm2|@Cm3|@Cm4|@Command1|@Command2|@Command3|@Command4"},
    // the board
    {30, u"B", u"window"},
    {3, u"B", u"headings"},
    {3, u"B", u"headings twice"},
    {1, u"B", u"lock window giveup? unlock"},
    {2, u"B", u"lock window giveup unlock @CmdNEW|@cmdSV text @cmdOK|Return"},
    {1, u"B",
     u"lock @Command4 giveup unlock @CmdNEW code @Combo1 Down Return @@txtHDMC text @cmdOK"},
    {1, u"B", u"@Command9 !是|!否"},
    {3, u"B", u"Ctrl+Z|Ctrl+Z|Ctrl+Y"},
    {4, u"B", u"boardcell Ctrl+C|Ctrl+X boardcell Ctrl+V !替换|!保留原有|!取消"},
    {3, u"B", u"boarddrag !替换|!保留原有|!取消"},
    {2, u"B", u"boardcell Del"},
    {3, u"B", u"boardcell F2|Insert|a text? Return|Esc"},
    {3, u"B", u"boardcell|@CmdMore Menu Down Down? Down? Down? Return"},
    // the other windows
    {12, u"D", u"cell ==List1 text Return save?"},
    {8, u"A", u"=List1"},
    {8, u"A", u"cell0 ==List2 text Return save?"},
    {4, u"A", u"@@Text2 Ctrl+A name @cmdOP? save?"},
    {6, u"A", u"cell0 date Return save"},
    {5, u"A", u"row Ctrl+C|Ctrl+X cell0 Ctrl+V cell0 date Return save"},
    {5, u"A", u"cell0 @@Text4|@@Text1 number @CmdDAY|@CmdJH save?"},
    {2, u"A", u"@CmdDEL !是|!否"},
    {8, u"T", u"cell0 time Tab time Tab text Tab text Return save"},
    {8, u"N", u"cell0 date Tab date Tab text Return save"},
    {5, u"N", u"cell @CmdBR|@CmdLX text Return save?"},
    {6, u"I", u"cell @@txtHDMC text @cmdOK|@cmdOK|@cmdCancel|@CmdEND"},
    {6, u"I", u"@CmdNEW|cell @@TxtHDBH code @@txtHDMC text @cmdOK"},
    {4, u"I", u"cell @CmdDEL"},
    {3, u"I", u"@Combo2 Down? Down? Return"},
    {12, u"M", u"@Text1 text Ctrl+V? @CmdSV?"},
    {6, u"S", u"@Command1"},
    {6, u"K", u"@cmdO|@cmdO|@CmdI"},
    {2, u"O", u"@Command1"},
    // boxes, and menus and dialogs
    {1, u"b", u"Return|Esc|button|button|button|twice button|twice button"},
    {3, u"d", u"Esc|Esc|Return|Down"},
    {1, u"d", u"skin Return|anything|anything"},
};

const QMap<QString, QString>& abbreviations() {
  static const QMap<QString, QString> kLonger{
      {u"save"_qs, u"@cmdSV|@cmdSV|@cmdSV|Alt+S !!确定|!!确定|Return|Esc"_qs},
      {u"key"_qs,
       u"Up|Down|Left|Right|Tab|Return|Home|End|PgDown|PgUp|F2|Del|Backspace|Space|Esc|F3|"
       u"F5|F7|F8|Shift+Tab|Shift+Down|Shift+Right|Ctrl+A|Ctrl+C|Ctrl+X|Ctrl+V|Ctrl+Z|"
       u"Ctrl+Y|Ctrl+D|Ctrl+T|Ctrl+End|Alt+O|Alt+S|Alt+D|Alt+Return|Menu|lone"_qs},
      {u"window"_qs,
       u"@Command1|@Command2|@Command3|@Command4|@Command5|@Command6|@Command7|"
       u"@Command8|@Command98|@CmdA0|@@Command5|@@Command1|@@Command2|@Command99"_qs}};
  return kLonger;
}

// What is typed for a word: likely and unlikely things.
const QMap<QString, QStringList>& pools() {
  static const QMap<QString, QStringList> kPools{
      {u"text"_qs,
       {u"读书"_qs, u"abc"_qs, u"3"_qs, u"１２"_qs, u"😀"_qs, u"带 空格"_qs, u"第'1'周"_qs,
        u"99999999999"_qs, u"12:30"_qs, u"2026-03-10"_qs, u"活动001"_qs, QString(300, u'长')}},
      {u"date"_qs,
       {u"2027-06-07"_qs, u" 2026-03-10 "_qs, u"2026-03-13"_qs, u"2026/3/11"_qs,
        u"2026年3月12日"_qs, u"20260313"_qs, u"２０２６-03-14"_qs, u"2026-02-30"_qs, u"今天"_qs}},
      {u"time"_qs, {u"8:30"_qs, u"09:00"_qs, u"10:15"_qs, u"８：３０"_qs, u"25:00"_qs, u"中午"_qs}},
      {u"name"_qs, {u"活动001"_qs, u"活动002"_qs, u"活动003"_qs, u"没有的活动"_qs}},
      {u"code"_qs, {u"001"_qs, u"003"_qs, u"009"_qs, u"7"_qs}},
      {u"number"_qs, {u"0"_qs, u"1"_qs, u"3"_qs, u"x"_qs}},
      {u"skin"_qs, {u"KTZ1.SKN"_qs}},
      {u"clip"_qs,
       {QString(), u"abc"_qs, u"2026-03-12\t00:00-03:59 时段\t活动001\t要求\t2\n2026-03-13"_qs,
        u"7:00\t8:00\t090\t早\n8:00\t9:00\t091\t晚\n"_qs, u"\"一\n二\"\t三"_qs, u"\t\t\n\t\t"_qs}},
      {u"other"_qs,
       {u"INSERT INTO JH VALUES('2026-03-11','002','活动004','别处',2)"_qs,
        u"INSERT INTO JH VALUES('2026-03-10','001','活动002','重复',1)"_qs,
        u"INSERT INTO JH VALUES('2026-02-31','001','别处的活动','',NULL)"_qs,
        u"UPDATE JH SET HDYQ='改过' WHERE RQ='2026-03-10'"_qs,
        u"DELETE FROM JH WHERE HDMC='活动002' AND RQ>'2026-03-11'"_qs,
        u"INSERT INTO HD VALUES('001','同号的活动','2-学习',0,255)"_qs,
        u"INSERT INTO BW VALUES('2026-03-11','别处的备忘')"_qs,
        u"DELETE FROM BW WHERE RQ='2026-03-10'"_qs,
        u"INSERT INTO MM VALUES('2026-03-16','2026-03-22','别处的周')"_qs,
        u"INSERT INTO SJ VALUES('001','同号','23:00:00','23:30:00')"_qs}}};
  return kPools;
}

// Turns the words of a habit into deeds. `a|b` is one of both, `a?` half of the time; `@name`
// clicks a control, `@@name` twice, `!caption` a button of a box, `=list` a line; any other word is
// found in the tables above, has a method below, or names a key.
class Author {
 public:
  explicit Author(const Step& step) : step_(step), script_(step.script), dice_(step.dice) {}

  void write(const QString& words) {
    for (QString word : words.split(u' ')) {
      const bool isDoubtful = word.endsWith(u'?');
      if (isDoubtful) word.chop(1);
      const QString chosen = dice_.pick(word.split(u'|'));
      if (isDoubtful && dice_.oneIn(2)) continue;
      if (abbreviations().contains(chosen)) {
        write(abbreviations()[chosen]);
      } else if (pools().contains(chosen)) {
        enter(chosen, dice_.pick(pools()[chosen]));
      } else if (methods_.contains(chosen)) {
        methods_[chosen]();
      } else if (!pointAt(chosen)) {
        const auto keys = QKeySequence::fromString(chosen);
        script_.key(keys[0].key(), keys[0].keyboardModifiers());
      }
    }
  }

 private:
  Spot anyCell(int cols) { return cell(dice_.below(cols), dice_.below(8)); }
  Spot boardCell() { return cell(1 + dice_.below(7), dice_.below(7)); }
  Spot anyControl(bool centre);
  void point(const Spot& spot, bool twice = false) {
    script_.click(spot, twice || std::exchange(twice_, false) ? 2 : 1);
  }
  bool pointAt(const QString& word);
  void pointAnyhow();
  void selectRow();
  void enter(const QString& pool, const QString& text);
  void clip(const QString& text);
  void elsewhere(const QString& sql) {
    script_.add(u"elsewhere: "_qs + sql, false, [act = step_.elsewhere, sql] { act(sql); });
  }
  void giveUp();

  const Step& step_;
  Script& script_;
  Dice& dice_;
  bool twice_ = false;
  const QMap<QString, std::function<void()>> methods_{
      {u"cell"_qs, [this] { point(anyCell(5), dice_.oneIn(8)); }},
      {u"cell0"_qs, [this] { point(anyCell(1)); }},
      {u"headings"_qs, [this] { point(cell(1 + dice_.below(7), dice_.below(5)), dice_.oneIn(2)); }},
      {u"boardcell"_qs,
       [this] {  // the left button would open what is planned
         script_.click(boardCell(), 1, Qt::RightButton);
         script_.key(Qt::Key_Escape);
       }},
      {u"boarddrag"_qs, [this] { script_.drag(boardCell(), boardCell()); }},
      {u"button"_qs, [this] { point(anyControl(true)); }},
      {u"twice"_qs, [this] { twice_ = true; }},
      {u"anything"_qs, [this] { pointAnyhow(); }},
      {u"picker"_qs,
       [this] { point(control(controlNamed(*front(), u"D1"_qs) ? u"D1"_qs : u"DTP1"_qs)); }},
      {u"drag"_qs, [this] { script_.drag(anyCell(5), anyCell(5)); }},
      {u"row"_qs, [this] { selectRow(); }},
      {u"lone"_qs,
       [this] {
         script_.key(
             dice_.pick(std::array{Qt::Key_Shift, Qt::Key_Control, Qt::Key_Alt, Qt::Key_CapsLock}));
       }},
      {u"lock"_qs, [this] { elsewhere(u"BEGIN EXCLUSIVE"_qs); }},
      {u"unlock"_qs, [this] { elsewhere(u"ROLLBACK"_qs); }},
      {u"giveup"_qs, [this] { giveUp(); }},
      {u"frame"_qs, [this] {
         script_.add(u"close by its frame"_qs, true, [] {
           auto* window = windowInHand();
           if (window && window == front()) window->close();
         });
       }}};
};

Spot Author::anyControl(bool centre) {
  const auto controls = controlsOf(*front());
  if (controls.empty()) return {};
  QWidget* control = dice_.pick(controls);
  if (centre) return inside(control, 0.5, 0.5);
  return inside(control, dice_.below(100) / 99.0, dice_.below(100) / 99.0);
}

bool Author::pointAt(const QString& word) {
  const bool isDouble = word.size() > 2 && word[0] == word[1];
  const QString name = word.mid(isDouble ? 2 : 1);
  if (word[0] == u'@') return point(control(name), isDouble), true;
  if (word[0] == u'!') return point(caption(name), isDouble), true;
  if (word[0] == u'=') return point(line(name, dice_.below(6)), isDouble), true;
  return false;
}

void Author::pointAnyhow() {
  const auto button = dice_.oneIn(5) ? Qt::RightButton : Qt::LeftButton;
  script_.click(anyControl(false), dice_.oneIn(5) ? 2 : 1, button,
                dice_.oneIn(5) ? Qt::ShiftModifier : Qt::NoModifier);
}

void Author::selectRow() {
  const int row = dice_.below(6);
  script_.click(cell(0, row));
  script_.click(cell(4, row), 1, Qt::LeftButton, Qt::ShiftModifier);
}

void Author::enter(const QString& pool, const QString& text) {
  if (pool == u"clip"_qs) return clip(text);
  if (pool == u"other"_qs) return elsewhere(text);
  script_.type(text);
}

// What lies in the clipboard comes from any program, or there is nothing in it.
void Author::clip(const QString& text) {
  const bool isPicture = dice_.oneIn(6);
  const QString shown = QString(text).replace(u'\n', u'/');
  script_.add(u"clipboard “"_qs + shown + u'”', false, [text, isPicture] {
    auto* clipboard = QGuiApplication::clipboard();
    if (!isPicture) return text.isEmpty() ? clipboard->clear() : clipboard->setText(text);
    auto* data = new QMimeData;
    data->setData(u"image/x-anything"_qs, "1");
    clipboard->setMimeData(data);
  });
}

// Ends the waiting for the other program by hand, and closes what is said about it.
void Author::giveUp() {
  const int key = dice_.oneIn(4) ? Qt::Key_Escape : Qt::Key_Return;
  for (int i = 0; i < 6; ++i) {
    script_.add(u"give up waiting"_qs, false, [&hands = script_.hands, key] {
      if (!isWaiting() && boxText(front()).isEmpty()) return;
      hands.pressKey(key, {});
      hands.releaseKey(key, {});
    });
  }
}

QChar kindLetter(const QWidget& window) {
  const QString kind = kindOf(window);
  if (kind == u"QMessageBox"_qs || isWaiting()) return u'b';
  if (&window != windowInHand()) return u'd';
  static const QMap<QString, QChar> kLetters{
      {u"WeekBoard"_qs, u'B'},          {u"DailyPlanWindow"_qs, u'D'},
      {u"ActivityPlanWindow"_qs, u'A'}, {u"TimeBlockEditor"_qs, u'T'},
      {u"WeekNameEditor"_qs, u'N'},     {u"ActivityItemEditor"_qs, u'I'},
      {u"MemoWindow"_qs, u'M'},         {u"StatisticsWindow"_qs, u'S'},
      {u"BackupWindow"_qs, u'K'}};
  return kLetters.value(kind, u'O');
}

}  // namespace

void makeStep(const Step& step) {
  const QChar letter = kindLetter(*front());
  int weights = 0;
  for (const Habit& habit : kHabits) weights += habit.windows.contains(letter) ? habit.weight : 0;
  int drawn = step.dice.below(weights);
  for (const Habit& habit : kHabits) {
    if (!habit.windows.contains(letter)) continue;
    drawn -= habit.weight;
    if (drawn < 0) return Author(step).write(habit.words.toString());
  }
}

}  // namespace vellora::test
