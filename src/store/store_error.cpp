#include "store/store_error.h"

#include "store/schema_tables.h"

#include <array>
#include <cerrno>
#include <sqlite3.h>

namespace vellora {
namespace {

struct CodeMeaning {
  int code;
  StoreFault fault;
  const char16_t* description;
};

constexpr const char16_t* kBusy = u"另一个程序正在使用日程文件，请稍后再试。";
constexpr const char16_t* kReadOnly = u"日程文件或它所在的文件夹不允许写入，不能保存。";

// Extended codes come before the primary codes that they refine.
constexpr std::array kMeanings{
    CodeMeaning{SQLITE_READONLY_ROLLBACK, StoreFault::ReadOnly,
                u"上一次保存没有完成，需要恢复，但日程文件或它所在的文件夹不允许写入。"},
    CodeMeaning{SQLITE_IOERR_NOMEM, StoreFault::Other, u"内存不足，不能完成这个操作。"},
    CodeMeaning{SQLITE_BUSY, StoreFault::Busy, kBusy},
    CodeMeaning{SQLITE_LOCKED, StoreFault::Busy, kBusy},
    CodeMeaning{SQLITE_READONLY, StoreFault::ReadOnly, kReadOnly},
    CodeMeaning{SQLITE_FULL, StoreFault::DiskFull, u"磁盘空间已满，不能保存。"},
    CodeMeaning{SQLITE_IOERR, StoreFault::InputOutput, u"读写日程文件时出错，请检查磁盘。"},
    CodeMeaning{SQLITE_CANTOPEN, StoreFault::InputOutput,
                u"日程文件打不开，请检查文件和文件夹的权限。"},
    CodeMeaning{SQLITE_CORRUPT, StoreFault::Damaged, u"日程文件已损坏，请从备份恢复。"},
    CodeMeaning{SQLITE_NOTADB, StoreFault::NotADatabase, u"这个文件不是日程文件。"},
    CodeMeaning{SQLITE_NOMEM, StoreFault::Other, u"内存不足，不能完成这个操作。"},
    CodeMeaning{SQLITE_TOOBIG, StoreFault::TextTooLong, u"内容太长，日程文件存不下。"},
};

const CodeMeaning* meaningOf(int code) {
  for (const CodeMeaning& meaning : kMeanings) {
    if (meaning.code == code || meaning.code == (code & 0xFF)) return &meaning;
  }
  return nullptr;
}

bool isTroubleWithTheFile(int code) {
  switch (code & 0xFF) {
    case SQLITE_READONLY:
    case SQLITE_IOERR:
    case SQLITE_CANTOPEN:
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
      return true;
    default:
      return false;
  }
}

// The code of the last failure, put right where the engine's own misleads: it calls a file damaged
// that the disk did not let it read, and knows no quota.
int trueCode(sqlite3* handle) {
  const int code = sqlite3_extended_errcode(handle);
  int systemError = sqlite3_system_errno(handle);
  const bool isFull = systemError == EDQUOT || systemError == ENOSPC;
  if ((code & 0xFF) == SQLITE_IOERR && isFull) return SQLITE_FULL;
  sqlite3_file_control(handle, "main", SQLITE_FCNTL_LAST_ERRNO, &systemError);
  const bool isDiskFailing = systemError == EIO || systemError == ENXIO;
  return (code & 0xFF) == SQLITE_CORRUPT && isDiskFailing ? SQLITE_IOERR_READ : code;
}

// What follows a fixed beginning of the engine's message; null when it begins otherwise.
QString nameAfter(const QString& message, QLatin1String beginning) {
  return message.startsWith(beginning) ? message.sliced(beginning.size()) : QString();
}

StoreError statementError(const QString& message) {
  const QString table = nameAfter(message, QLatin1String("no such table: "));
  if (!table.isNull()) {
    return {StoreFault::TableMissing,
            u"日程文件中没有表“%1”（%2）。"_qs.arg(shownTable(table), table)};
  }
  const QString column = nameAfter(message, QLatin1String("no such column: "));
  if (!column.isNull()) {
    return {StoreFault::ColumnMissing, u"日程文件中没有列“%1”。"_qs.arg(column)};
  }
  const QString function = nameAfter(message, QLatin1String("no such function: "));
  if (!function.isNull()) {
    return {StoreFault::Syntax, u"语句中的函数“%1”不存在。"_qs.arg(function)};
  }
  const QString time = nameAfter(message, QLatin1String(kNotATime));
  if (!time.isNull()) {
    return {StoreFault::NotADateOrTime, u"日程文件中的“%1”不是日期或时间。"_qs.arg(time)};
  }
  const QString place = message.section(u'"', 1, 1);
  if (message.startsWith(QLatin1String("near "))) {
    return {StoreFault::Syntax, u"语句在“%1”附近有语法错误。"_qs.arg(place)};
  }
  return {StoreFault::Syntax, u"语句有错误，不能执行（%1）。"_qs.arg(message)};
}

}  // namespace

StoreError engineError(int code, const QString& message) {
  if (code == SQLITE_ERROR && message == u"unsupported file format"_qs) {
    return {StoreFault::NotADatabase, u"日程文件由更新版本的程序写成，不能打开。"_qs};
  }
  if (code == SQLITE_ERROR) return statementError(message);
  if (code == SQLITE_CONSTRAINT_NOTNULL) {
    const QString place = message.section(u' ', -1);
    const QString column = shownColumn(place.section(u'.', 0, 0), place.section(u'.', 1));
    return {StoreFault::Other, u"“%1”不能为空，没有保存。"_qs.arg(column)};
  }
  if (const CodeMeaning* meaning = meaningOf(code)) {
    return {meaning->fault, QString::fromUtf16(meaning->description)};
  }
  return {StoreFault::Other, u"日程文件出错（%1：%2）。"_qs.arg(code).arg(message)};
}

bool isMoved(sqlite3* handle) {
  int moved = 0;
  sqlite3_file_control(handle, "main", SQLITE_FCNTL_HAS_MOVED, &moved);
  return moved != 0;
}

StoreError movedError(sqlite3* handle) {
  return {StoreFault::FileMoved,
          u"日程文件“%1”已被移动、替换或删除。请把它放回原处，或重新启动程序。"_qs.arg(
              QString::fromUtf8(sqlite3_db_filename(handle, "main")))};
}

StoreError engineError(sqlite3* handle) {
  const int code = trueCode(handle);
  if (isTroubleWithTheFile(code) && isMoved(handle)) return movedError(handle);
  return engineError(code, QString::fromUtf8(sqlite3_errmsg(handle)));
}

}  // namespace vellora
