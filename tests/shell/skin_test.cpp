#include "shell/skin.h"

#include "support/text_output.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cmath>
#include <gtest/gtest.h>

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
  const QStringList files = skinFiles();
  ASSERT_GE(files.size(), 3);
  for (const auto& path : files) {
    SCOPED_TRACE(path.toStdString());
    const auto skin = loadSkin(path);
    ASSERT_TRUE(skin);
    const auto role = [&](QPalette::ColorRole r) { return skin->palette.color(r); };
    const auto& grid = skin->grid;
    EXPECT_GE(contrast(role(QPalette::WindowText), role(QPalette::Window)), 4.5);
    EXPECT_GE(contrast(role(QPalette::Text), role(QPalette::Base)), 4.5);
    EXPECT_GE(contrast(role(QPalette::Text), role(QPalette::AlternateBase)), 4.5);
    EXPECT_GE(contrast(role(QPalette::ButtonText), role(QPalette::Button)), 4.5);
    EXPECT_GE(contrast(role(QPalette::HighlightedText), role(QPalette::Highlight)), 4.5);
    EXPECT_GE(contrast(role(QPalette::ToolTipText), role(QPalette::ToolTipBase)), 4.5);
    EXPECT_GE(contrast(role(QPalette::PlaceholderText), role(QPalette::Base)), 4.5);
    EXPECT_GE(contrast(role(QPalette::Link), role(QPalette::Window)), 4.5);
    EXPECT_GE(contrast(grid.text, grid.paper), 4.5);
    EXPECT_GE(contrast(grid.headingText, grid.headingPaper), 4.5);
    EXPECT_GE(contrast(grid.headingText, grid.today), 4.5);
    EXPECT_GE(contrast(grid.selectionText, grid.selectionPaper), 4.5);
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
}

TEST(Skin, ThatCannotBeLoadedLeavesTheWindowAsItWas) {
  QWidget window;
  applySkin(skinFiles().value(1), window);
  const QPalette before = window.palette();
  applySkin(u"/nowhere/missing.skn"_qs, window);
  EXPECT_EQ(window.palette(), before);
}

}  // namespace vellora
