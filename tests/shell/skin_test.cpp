#include "shell/skin.h"

#include "support/text_output.h"

#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QMenu>
#include <QTemporaryDir>
#include <QToolTip>

#include <cmath>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace vellora {
namespace {

// Relative luminance and contrast as in WCAG 2.1.
double luminance(const QColor& colour) {
  const auto linear = [](double part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
         0.0722 * linear(colour.blueF());
}

double contrast(const QColor& a, const QColor& b) {
  const auto [dark, light] = std::minmax({luminance(a), luminance(b)});
  return (light + 0.05) / (dark + 0.05);
}

QStringList skinFiles() {
  QStringList paths;
  const QDir folder(QStringLiteral(SKIN_DIR));
  for (const auto& name : folder.entryList({u"*.SKN"_qs})) paths << folder.filePath(name);
  return paths;
}

QByteArray contentOf(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

}  // namespace

TEST(Skin, EverySkinThatComesAlongKeepsItsTextsReadable) {
  using Role = QPalette::ColorRole;
  constexpr std::pair<Role, Role> kTextsOnPapers[]{
      {QPalette::WindowText, QPalette::Window},
      {QPalette::WindowText, QPalette::Base},
      {QPalette::Text, QPalette::Window},
      {QPalette::Text, QPalette::Base},
      {QPalette::Text, QPalette::AlternateBase},
      {QPalette::ButtonText, QPalette::Button},
      {QPalette::ButtonText, QPalette::Window},
      {QPalette::HighlightedText, QPalette::Highlight},
      {QPalette::ToolTipText, QPalette::ToolTipBase},
      {QPalette::PlaceholderText, QPalette::Base},
      {QPalette::PlaceholderText, QPalette::Button},
      {QPalette::Link, QPalette::Window},
      {QPalette::Link, QPalette::Base},
  };
  const QStringList files = skinFiles();
  ASSERT_GE(files.size(), 3);
  for (const auto& path : files) {
    const auto skin = loadSkin(path);
    ASSERT_TRUE(skin) << path.toStdString();
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
      for (const auto& [text, paper] : kTextsOnPapers) {
        EXPECT_GE(contrast(skin->palette.color(group, text), skin->palette.color(group, paper)),
                  4.5)
            << path.toStdString() << ": group " << group << ", role " << text << " on " << paper;
      }
    }
    const GridColours& grid = skin->grid;
    EXPECT_GE(contrast(grid.text, grid.paper), 4.5) << path.toStdString();
    EXPECT_GE(contrast(grid.headingText, grid.headingPaper), 4.5) << path.toStdString();
    EXPECT_GE(contrast(grid.headingText, grid.today), 4.5) << path.toStdString();
    EXPECT_GE(contrast(grid.selectionText, grid.selectionPaper), 4.5) << path.toStdString();
  }
}

// Three to one is what the edge of a control needs to be found.
TEST(Skin, ADarkOneTellsFieldsAndTheCurrentCellFromWhatIsAroundThem) {
  for (const auto& path : skinFiles()) {
    const auto skin = loadSkin(path);
    ASSERT_TRUE(skin) << path.toStdString();
    EXPECT_GE(contrast(skin->grid.current, skin->grid.paper), 3) << path.toStdString();
    if (!skin->dark) continue;
    const QColor edge = skin->palette.color(QPalette::Mid);
    EXPECT_GE(contrast(edge, skin->palette.color(QPalette::Window)), 3) << path.toStdString();
    EXPECT_GE(contrast(edge, skin->palette.color(QPalette::Base)), 3) << path.toStdString();
  }
}

TEST(Skin, IsRefusedWholeWhenAnythingIsMissingOrUnreadable) {
  const QByteArray good = contentOf(skinFiles().value(0));
  const QTemporaryDir folder;
  const QString path = folder.filePath(u"x.skn"_qs);
  const auto loads = [&](const QByteArray& content) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
    file.close();
    return loadSkin(path).has_value();
  };
  ASSERT_TRUE(loads(good));
  for (qsizetype length = 0; length < good.trimmed().size(); length += 7) {
    ASSERT_FALSE(loads(good.first(length))) << length;
  }
  EXPECT_FALSE(loads(QByteArray(good).replace("vellora-skin", "other")));
  EXPECT_FALSE(loads(QByteArray(good).replace("\"base\"", "\"bass\"")));
  EXPECT_FALSE(loads(QByteArray(good).replace("\"headingText\"", "\"x\"")));
  EXPECT_FALSE(loads(QByteArray(good).replace(": \"#", ": \"")));
  EXPECT_FALSE(loads("[]"));
  EXPECT_FALSE(loadSkin(folder.filePath(u"missing.skn"_qs)));
  const QString pipe = folder.filePath(u"pipe.skn"_qs);
  ASSERT_EQ(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
  EXPECT_FALSE(loadSkin(pipe));
}

TEST(Skin, IsPutOnTheWholeProgramUnlessItCannotBeLoaded) {
  QWidget window;
  QDialog box(&window);
  ASSERT_TRUE(applySkin(skinFiles().value(1), window));
  const QPalette skin = loadSkin(skinFiles().value(1))->palette;
  QMenu menu;
  for (QWidget* each : std::initializer_list<QWidget*>{&window, &box, &menu}) {
    EXPECT_EQ(each->palette().color(QPalette::Base), skin.color(QPalette::Base));
  }
  EXPECT_EQ(QToolTip::palette(), skin);
  EXPECT_FALSE(applySkin(u"/nowhere/missing.skn"_qs, window));
  EXPECT_EQ(QApplication::palette(), skin);
}

}  // namespace vellora
