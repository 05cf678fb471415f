#include "grid/files/file_error.h"

#include <cerrno>

namespace vellora {
namespace {

QString reason(int systemError) {
  switch (systemError) {
    case ENOSPC:
      return u"磁盘空间不足"_qs;
    case EDQUOT:
      return u"磁盘配额已用完"_qs;
    case EFBIG:
      return u"文件超过了系统允许的大小"_qs;
    case EACCES:
    case EPERM:
      return u"没有权限"_qs;
    case EROFS:
      return u"所在磁盘是只读的"_qs;
    case ENOENT:
      return u"文件或文件夹不存在"_qs;
    case ENOTDIR:
    case EISDIR:
      return u"路径有误，该处不是普通文件"_qs;
    case ENAMETOOLONG:
      return u"文件名太长"_qs;
    case EIO:
      return u"磁盘读写出错"_qs;
    case EMFILE:
    case ENFILE:
      return u"打开的文件太多"_qs;
    default:
      return u"系统错误 %1"_qs.arg(systemError);
  }
}

}  // namespace

WrittenFileError::WrittenFileError(const QString& path)
    : FileError(u"文件“%1”已经写好，但磁盘随后报告了错误，请检查磁盘。"_qs.arg(path)) {}

FileError cannotWrite(const QString& path, int systemError) {
  return FileError(u"无法写入文件“%1”：%2。"_qs.arg(path, reason(systemError)));
}

FileError cannotRead(const QString& path, int systemError) {
  return FileError(u"无法读取文件“%1”：%2。"_qs.arg(path, reason(systemError)));
}

}  // namespace vellora
