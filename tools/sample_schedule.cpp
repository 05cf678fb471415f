#include "sample_schedule.h"

#include "routine/calendar_text.h"
#include "routine/category.h"
#include "store/schedule_store.h"

#include <QTime>

namespace vellora {
namespace {

struct SampleBlock {
  const char16_t* code;
  const char16_t* start;
  const char16_t* end;
  const char16_t* name;
};

constexpr SampleBlock kBlocks[]{
    {u"01", u"06:30", u"07:20", u"清晨"},   {u"02", u"07:20", u"08:00", u"早餐"},
    {u"03", u"08:00", u"09:40", u"上午一"}, {u"04", u"10:00", u"11:40", u"上午二"},
    {u"05", u"11:40", u"12:30", u"午餐"},   {u"06", u"12:30", u"13:30", u"午休"},
    {u"07", u"13:30", u"15:10", u"下午一"}, {u"08", u"15:30", u"17:10", u"下午二"},
    {u"09", u"17:10", u"18:10", u"傍晚"},   {u"10", u"18:10", u"19:00", u"晚餐"},
    {u"11", u"19:00", u"20:30", u"晚间一"}, {u"12", u"20:30", u"21:40", u"晚间二"},
    {u"13", u"21:40", u"22:30", u"睡前"},
};

struct SampleItem {
  const char16_t* number;
  const char16_t* name;
  std::size_t category;
};

constexpr SampleItem kItems[]{
    {u"001", u"项目工作", 0}, {u"002", u"部门例会", 0}, {u"003", u"整理邮件", 0},
    {u"004", u"英语学习", 1}, {u"005", u"专业阅读", 1}, {u"006", u"练习书法", 1},
    {u"007", u"晨跑", 2},     {u"008", u"游泳", 2},     {u"009", u"朋友聚会", 3},
    {u"010", u"家人通话", 3}, {u"011", u"看电影", 4},   {u"012", u"听音乐", 4},
    {u"013", u"午间小睡", 5}, {u"014", u"散步", 5},
};

constexpr int kWorkdays = 0b0011111;  // bit 0 is Monday
constexpr int kWeekend = 0b1100000;
constexpr int kEveryDay = kWorkdays | kWeekend;

// An activity that returns on the same weekdays.
struct SamplePlan {
  const char16_t* code;
  int weekdays;
  const char16_t* activity;
  const char16_t* requirement;
  int level;
};

constexpr SamplePlan kPlans[]{
    {u"01", 0b0010101, u"晨跑", u"五公里", 2},
    {u"01", 0b0001010, u"英语学习", u"听力三十分钟", 1},
    {u"03", 0b0000001, u"部门例会", u"汇报上周进度", 1},
    {u"03", 0b0011110, u"项目工作", u"先做最难的一件", 1},
    {u"03", kWeekend, u"专业阅读", u"读一章并做笔记", 2},
    {u"04", kWorkdays, u"项目工作", u"不看手机", 1},
    {u"04", 0b1000000, u"练习书法", u"楷书两页", 3},
    {u"06", kEveryDay, u"午间小睡", u"", 3},
    {u"07", 0b0010101, u"项目工作", u"写文档，整理下一步要做的事情", 1},
    {u"07", 0b0001010, u"专业阅读", u"第三章", 2},
    {u"07", 0b0100000, u"游泳", u"一千米", 2},
    {u"08", kWorkdays, u"整理邮件", u"当日清空", 2},
    {u"08", 0b0100000, u"朋友聚会", u"带上相册", 2},
    {u"09", kEveryDay, u"散步", u"", 3},
    {u"11", 0b0010101, u"英语学习", u"精读一篇，背二十个单词", 1},
    {u"11", 0b0001000, u"练习书法", u"行书一页", 3},
    {u"11", 0b0100000, u"看电影", u"", 3},
    {u"12", 0b1000010, u"家人通话", u"", 1},
    {u"12", 0b0010000, u"听音乐", u"古典", 3},
    {u"13", 0b0001111, u"专业阅读", u"睡前二十页", 3},
};

constexpr const char16_t* kMemos[]{
    u"交季度总结",
    u"缴水电费，取快递",
    u"体检，空腹",
    u"给老同学打电话\n订周末的票",
};

QString text(const char16_t* literal) {
  return QString::fromUtf16(literal);
}

void writeBlocks(ScheduleStore& store) {
  Recordset rows = store.open(u"SJ"_qs);
  for (const SampleBlock& block : kBlocks) {
    rows.addNew();
    rows.set(u"SJKH", text(block.code));
    rows.set(u"sjkm", text(block.name));
    rows.set(u"SJ0", text(block.start));
    rows.set(u"SJ1", text(block.end));
    rows.update();
  }
}

void writeItem(Recordset& rows, const QString& number, const QString& name, std::size_t category) {
  rows.addNew();
  rows.set(u"HDBH", number);
  rows.set(u"HDMC", name);
  rows.set(u"HDLB", categories()[category].label);
  rows.set(u"FRGB", categories()[category].colour);
  rows.update();
}

void writeItems(ScheduleStore& store) {
  Recordset rows = store.open(u"HD"_qs);
  for (const SampleItem& item : kItems) {
    writeItem(rows, text(item.number), text(item.name), item.category);
  }
}

void writePlan(Recordset& rows, QDate day, const QString& code, const QString& activity,
               const QString& requirement, int level) {
  rows.addNew();
  rows.set(u"RQ", day);
  rows.set(u"SJKH", code);
  rows.set(u"HDMC", activity);
  rows.set(u"HDYQ", requirement);
  rows.set(u"ZYDJ", level);
  rows.update();
}

void writePlans(ScheduleStore& store, QDate first, int days) {
  Recordset rows = store.open(u"JH"_qs);
  for (QDate day = first; day < first.addDays(days); day = day.addDays(1)) {
    const int weekday = 1 << (day.dayOfWeek() - 1);
    for (const SamplePlan& plan : kPlans) {
      if ((plan.weekdays & weekday) == 0) continue;
      writePlan(rows, day, text(plan.code), text(plan.activity), text(plan.requirement),
                plan.level);
    }
  }
}

void writeMemo(ScheduleStore& store, QDate day, const QString& memo) {
  Recordset rows = store.open(u"BW"_qs);
  rows.addNew();
  rows.set(u"RQ", day);
  rows.set(u"Memo", memo);
  rows.update();
}

void writeWeekName(ScheduleStore& store, QDate first, QDate last, const QString& name) {
  Recordset rows = store.open(u"MM"_qs);
  rows.addNew();
  rows.set(u"KSRQ", first);
  rows.set(u"JSRQ", last);
  rows.set(u"MM", name);
  rows.update();
}

}  // namespace

void writeStarter(ScheduleStore& store, QDate today) {
  ScheduleStore::Transaction all(store);
  writeBlocks(store);
  writeItems(store);
  writePlans(store, today, 7);
  writeWeekName(store, today, today.addDays(6), u"我的第一周"_qs);
  writeMemo(store, today, u"欢迎使用！这一周是示例，看过以后可用“清空计划”清除"_qs);
  all.commit();
}

void writeDemonstration(ScheduleStore& store, QDate today) {
  ScheduleStore::Transaction all(store);
  writeBlocks(store);
  writeItems(store);
  writePlans(store, today.addDays(-14), 43);
  const QDate monday = today.addDays(1 - today.dayOfWeek());
  for (int week = -8; week < 12; ++week) {
    writeWeekName(store, monday.addDays(7 * week), monday.addDays(7 * week + 6),
                  u"秋季学期第%1周"_qs.arg(week + 9));
  }
  int day = 0;
  for (const char16_t* memo : kMemos) writeMemo(store, today.addDays(3 * day++), text(memo));
  all.commit();
}

void writeYears(ScheduleStore& store, QDate today, int years, int blocks) {
  ScheduleStore::Transaction all(store);
  writeItems(store);
  QStringList codes;
  Recordset rows = store.open(u"SJ"_qs);
  for (int i = 0; i < blocks; ++i) {
    codes.append(QString::number(i + 1).rightJustified(3, u'0'));
    rows.addNew();
    rows.set(u"SJKH", codes.last());
    rows.set(u"sjkm", u"时段%1"_qs.arg(i + 1));
    rows.set(u"SJ0", QTime(0, 0).addSecs(i * 86'400 / blocks));
    rows.set(u"SJ1", QTime(0, 0).addSecs((i + 1) * 86'400 / blocks - 60));
    rows.update();
  }
  Recordset plans = store.open(u"JH"_qs);
  std::size_t next = 0;
  for (QDate day = today.addYears(-years); day < today.addDays(7); day = day.addDays(1)) {
    for (const QString& code : codes) {
      writePlan(plans, day, code, text(kItems[next++ % std::size(kItems)].name), u"按计划"_qs, 1);
    }
  }
  all.commit();
}

}  // namespace vellora
