#include "fuzz/fuzz_target.h"
#include "shell/skin.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>

namespace vellora::test {
namespace {

void requireOpaque(const QColor& colour) {
  require(colour.isValid() && colour.alpha() == 255, "every colour of a skin can be seen");
}

void requireWhole(const Skin& skin) {
  for (int role = 0; role < QPalette::NColorRoles; ++role) {
    if (role == QPalette::NoRole) continue;
    requireOpaque(skin.palette.color(static_cast<QPalette::ColorRole>(role)));
  }
  const GridColours& grid = skin.grid;
  for (const QColor& colour :
       {grid.text, grid.paper, grid.headingText, grid.headingPaper, grid.line, grid.current,
        grid.selectionText, grid.selectionPaper, grid.today}) {
    requireOpaque(colour);
  }
}

}  // namespace

void fuzzSkin(Bytes bytes) {
  static const QTemporaryDir folder;
  const QString path = folder.filePath(u"x.skn"_qs);
  QFile file(path);
  require(file.open(QIODevice::WriteOnly), "the skin can be written");
  file.write(bytesOf(bytes));
  file.close();
  if (const auto skin = loadSkin(path)) requireWhole(*skin);
}

std::vector<QByteArray> skinSeeds() {
  std::vector<QByteArray> seeds;
  const QDir folder(QStringLiteral(SKIN_DIR));
  for (const QString& name : folder.entryList({u"*.SKN"_qs})) {
    QFile file(folder.filePath(name));
    require(file.open(QIODevice::ReadOnly), "the skins that come along can be read");
    seeds.push_back(file.readAll());
  }
  return seeds;
}

}  // namespace vellora::test
