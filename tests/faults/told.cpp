#include "faults/told.h"

#include "schedule/backup_records.h"
#include "faults/saving_jobs.h"
#include "grid/files/file_error.h"
#include "store/store_error.h"

#include <algorithm>
#include <cstdio>

namespace vellora::test {
namespace {

Told refusal(const std::exception& error) {
  return isChinese(QString::fromUtf8(error.what())) ? kRefused : kRefusedWithoutAReason;
}

}  // namespace

bool isChinese(const QString& description) {
  return std::any_of(description.begin(), description.end(),
                     [](QChar c) { return c.script() == QChar::Script_Han; });
}

Told toldBy(const std::function<void()>& work) {
  try {
    work();
    return kDone;
  } catch (const StoreError& error) {
    return error.fault() == StoreFault::SavedDespiteError ? kDoneDespiteAnError : refusal(error);
  } catch (const WrittenFileError&) {
    return kDoneDespiteAnError;
  } catch (const FileError& error) {
    return refusal(error);
  } catch (const BackupError& error) {
    return refusal(error);
  } catch (const Refusal& error) {
    return refusal(error);
  } catch (const std::exception& error) {
    std::fputs(error.what(), stderr);
    return kOther;
  }
}

}  // namespace vellora::test
