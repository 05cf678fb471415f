#include "app/skin_setting.h"

#include "store/statements.h"

namespace vellora {

void storeSkinPath(ScheduleStore& store, const QString& path) {
  ScheduleStore::Transaction save(store);
  Recordset setting = store.open(statements::skinSetting());
  setting.isEmpty() ? setting.addNew() : setting.edit();
  setting.set(u"jm", path);
  setting.update();
  save.commit();
}

}  // namespace vellora
