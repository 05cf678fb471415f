#include "store/schema_tables.h"

#include "store/column.h"

#include <algorithm>
#include <array>

namespace vellora {
namespace {

constexpr std::array kItems{
    SchemaColumn{"HDBH", "VARCHAR(255)", u"编号"},
    SchemaColumn{"HDMC", "VARCHAR(255)", u"名称"},
    SchemaColumn{"HDLB", "VARCHAR(255)", u"类别"},
    SchemaColumn{"SFWC", "SMALLINT DEFAULT 0", u"状态"},
    SchemaColumn{"FRGB", "INTEGER", u"颜色"},
};
constexpr std::array kBlocks{
    SchemaColumn{"SJKH", "VARCHAR(255)", u"时间块编号"},
    SchemaColumn{"sjkm", "VARCHAR(255)", u"时间块名称"},
    SchemaColumn{"SJ0", "DATETIME", u"开始时间"},
    SchemaColumn{"SJ1", "DATETIME", u"结束时间"},
};
constexpr std::array kPlans{
    SchemaColumn{"RQ", "DATETIME", u"日期"},
    SchemaColumn{"SJKH", "VARCHAR(255)", u"时间块编号"},
    SchemaColumn{"HDMC", "VARCHAR(255)", u"内容"},
    SchemaColumn{"HDYQ", "VARCHAR(255)", u"要求"},
    SchemaColumn{"ZYDJ", "INTEGER", u"等级"},
};
constexpr std::array kMemos{
    SchemaColumn{"RQ", "DATETIME", u"日期"},
    SchemaColumn{"Memo", "LONGTEXT", u"备忘内容"},
};
constexpr std::array kWeekNames{
    SchemaColumn{"KSRQ", "DATETIME", u"开始时间"},
    SchemaColumn{"JSRQ", "DATETIME", u"结束时间"},
    SchemaColumn{"MM", "VARCHAR(255)", u"本周命名"},
};
constexpr std::array kSkinSetting{SchemaColumn{"jm", "VARCHAR(255)", u"界面文件"}};

constexpr std::array kTables{
    SchemaTable{"HD", kItems, u"活动项目"},     SchemaTable{"SJ", kBlocks, u"时间划分"},
    SchemaTable{"JH", kPlans, u"活动计划"},     SchemaTable{"BW", kMemos, u"备忘录"},
    SchemaTable{"MM", kWeekNames, u"每周命名"}, SchemaTable{"JM", kSkinSetting, u"界面设置"},
};

// Null when the planner has none of that name.
template <typename Named>
const Named* find(std::span<const Named> all, QStringView name) {
  const auto found = std::find_if(all.begin(), all.end(), [name](const Named& one) {
    return isSameName(name, QString::fromLatin1(one.name));
  });
  return found == all.end() ? nullptr : &*found;
}

template <typename Named>
QString shownName(const Named* found, const QString& name) {
  return found ? QString::fromUtf16(found->shown) : name;
}

}  // namespace

std::span<const SchemaTable> schemaTables() {
  return kTables;
}

QString shownTable(const QString& table) {
  return shownName(find(schemaTables(), table), table);
}

QString shownColumn(const QString& table, const QString& column) {
  const SchemaTable* found = find(schemaTables(), table);
  return found ? shownName(find(found->columns, column), column) : column;
}

}  // namespace vellora
