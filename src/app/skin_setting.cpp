#include "app/skin_setting.h"

#include "store/statements.h"

namespace vellora {

QString readSkinPath(ScheduleStore& store, const QString& programDir) {
  Recordset setting = store.open(statements::skinSetting());
  return setting.isEmpty() ? programDir + u"/KTZ0.SKN"_qs : setting.text(u"jm");
}

void storeSkinPath(ScheduleStore& store, const QString& path) {
  ScheduleStore::Transaction save(store);
  Recordset setting = store.open(statements::skinSetting());
  setting.isEmpty() ? setting.addNew() : setting.edit();
  setting.set(u"jm", path);
  setting.update();
  save.commit();
}

}  // namespace vellora
