#include "schedule/automatic_copies.h"

#include "grid/files/file_error.h"
#include "grid/files/workbook_file.h"
#include "schedule/backup.h"
#include "store/statements.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

#include <algorithm>

namespace vellora {
namespace {

constexpr std::size_t kKept = 14;
constexpr int kPlanTable = 2;

QString timeText(const QDateTime& time) {
  return time.toString(u"yyyy-MM-dd HH-mm-ss");
}

std::optional<AutomaticCopy> readName(const QFileInfo& file) {
  static const QRegularExpression kName(
      u"^自动备份 (\\d{4}-\\d\\d-\\d\\d \\d\\d-\\d\\d-\\d\\d) 计划(\\d+) 共(\\d+)\\.KTZ$"_qs);
  const auto match = kName.match(file.fileName());
  if (!match.hasMatch()) return {};
  const auto time = QDateTime::fromString(match.captured(1), u"yyyy-MM-dd HH-mm-ss"_qs);
  return AutomaticCopy{file.filePath(), time, match.captured(2).toLongLong(),
                       match.captured(3).toLongLong(), file.size()};
}

bool canBeRead(const AutomaticCopy& copy) {
  try {
    readWorkbookFile(copy.path);
    return true;
  } catch (const FileError&) {
    return false;
  }
}

qint64 recordsOf(ScheduleStore& store, const QString& table) {
  return store.open(table).count();
}

}  // namespace

AutomaticCopies::AutomaticCopies(const QString& programDir)
    : program_dir_(programDir), folder_(programDir + u"/备份"_qs) {}

std::vector<AutomaticCopy> AutomaticCopies::list() const {
  std::vector<AutomaticCopy> copies;
  for (const QFileInfo& file : QDir(folder_).entryInfoList(QDir::Files)) {
    if (const auto copy = readName(file)) copies.push_back(*copy);
  }
  std::sort(copies.begin(), copies.end(), [](const AutomaticCopy& one, const AutomaticCopy& other) {
    return one.time > other.time;
  });
  return copies;
}

QString AutomaticCopies::freePath(const QDateTime& now, qint64 plans, qint64 records) const {
  QDateTime time = now;
  QString path;
  do {
    path = folder_ + u"/自动备份 %1 计划%2 共%3.KTZ"_qs.arg(timeText(time)).arg(plans).arg(records);
    time = time.addSecs(1);
  } while (QFile::exists(path));
  return path;
}

// The file's name is known once the file is: it tells what was read in one view.
void AutomaticCopies::make(ScheduleStore& store, const QDateTime& now,
                           const WorkProgress& progress) {
  QDir().mkpath(folder_);
  const QString unfinished = folder_ + u"/自动备份.tmp"_qs;
  Workbook content;
  const qint64 records = BackupTables(store, content, unfinished, program_dir_, progress);
  const qint64 plans = content.sheetAt(kPlanTable).Rows();
  if (records == 0) {
    QFile::remove(unfinished);
    return;
  }
  const QString path = freePath(now, plans, records);
  if (!QFile::rename(unfinished, path)) {
    throw FileError(u"文件“%1”不能改名为“%2”。"_qs.arg(unfinished, path));
  }
  prune();
}

bool AutomaticCopies::isMadeOn(QDate day) const {
  const auto copies = list();
  return std::any_of(copies.begin(), copies.end(),
                     [day](const AutomaticCopy& copy) { return copy.time.date() == day; });
}

std::optional<AutomaticCopy> AutomaticCopies::lostSince(ScheduleStore& store) const {
  const auto copies = list();
  if (copies.empty() || copies.front().plans == 0) return {};
  const qint64 now = recordsOf(store, backedUpTable(kPlanTable));
  return now * 2 < copies.front().plans ? std::optional(copies.front()) : std::nullopt;
}

void AutomaticCopies::prune() const {
  auto copies = list();
  if (copies.size() <= kKept) return;
  const auto old = copies.begin() + kKept;
  const auto fullest = std::max_element(
      old, copies.end(),
      [](const AutomaticCopy& one, const AutomaticCopy& other) { return one.plans < other.plans; });
  const bool isCovered = std::any_of(copies.begin(), old, [&](const AutomaticCopy& copy) {
    return copy.plans * 2 >= fullest->plans && canBeRead(copy);
  });
  for (auto copy = old; copy != copies.end(); ++copy) {
    if (isCovered || copy != fullest) QFile::remove(copy->path);
  }
}

}  // namespace vellora
