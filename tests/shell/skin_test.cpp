#include "shell/skin.h"

#include "routine/colour.h"
#include "support/temporary_folder.h"
#include "support/text_output.h"

#include <sys/stat.h>

namespace vellora {
namespace {

double contrast(const QColor& a, const QColor& b) {
  return contrastOf(packColour(a.red(), a.green(), a.blue()),
                    packColour(b.red(), b.green(), b.blue()));
}

QString skinPath(int number) {
  return QStringLiteral(SKIN_DIR "/KTZ%1.SKN").arg(number);
}

}  // namespace

// A text needs four and a half to one, an edge three to one. Fields have edges on dark skins only.
TEST(Skin, EachThatComesAlongCanBeReadAndSeen) {
  using P = QPalette;
  const struct {
    std::vector<P::ColorRole> texts;
    std::vector<P::ColorRole> papers;
  } kRoles[]{{{P::WindowText, P::Text, P::Link}, {P::Window, P::Base}},
             {{P::Text}, {P::AlternateBase}},
             {{P::ButtonText}, {P::Button, P::Window}},
             {{P::HighlightedText}, {P::Highlight}},
             {{P::ToolTipText}, {P::ToolTipBase}},
             {{P::PlaceholderText}, {P::Base, P::Button}}};
  for (int number = 0; number < 3; ++number) {
    SCOPED_TRACE(number);
    const auto skin = loadSkin(skinPath(number));
    ASSERT_TRUE(skin);
    const GridColours& grid = skin->grid;
    const P& colours = skin->palette;
    for (const auto group : {P::Active, P::Inactive, P::Disabled}) {
      for (const auto& [texts, papers] : kRoles) {
        for (const auto text : texts) {
          for (const auto paper : papers) {
            EXPECT_GE(contrast(colours.color(group, text), colours.color(group, paper)), 4.5)
                << "group " << group << ", role " << text << " on " << paper;
          }
        }
      }
    }
    EXPECT_GE(contrast(grid.text, grid.paper), 4.5);
    EXPECT_GE(contrast(grid.headingText, grid.headingPaper), 4.5);
    EXPECT_GE(contrast(grid.headingText, grid.today), 4.5);
    EXPECT_GE(contrast(grid.selectionText, grid.selectionPaper), 4.5);
    EXPECT_GE(contrast(grid.current, grid.paper), 3);
    for (const auto around : {P::Window, P::Base}) {
      EXPECT_TRUE(!skin->dark || contrast(colours.color(P::Mid), colours.color(around)) >= 3);
    }
  }
}

TEST(Skin, IsRefusedWholeWhenAnythingIsMissingOrUnreadable) {
  const QByteArray good = test::bytesOf(skinPath(0));
  const test::TemporaryFolder folder;
  const QString path = folder.path(u"x.skn"_qs);
  const auto loads = [&path](const QByteArray& content) {
    test::writeBytes(path, content);
    return loadSkin(path).has_value();
  };
  ASSERT_TRUE(loads(good));
  const std::pair<const char*, const char*> kChanges[]{
      {"vellora-skin", "other"},    {"\"base\"", "\"bass\""}, {"\"headingText\"", "\"x\""},
      {"\"disabledText\"", "\"\""}, {": \"#", ": \""},        {": 1,", ": 2,"},
      {"\"light\",", "\"grey\","},
  };
  for (const auto& [was, is] : kChanges) {
    ASSERT_TRUE(good.contains(was)) << was;
    EXPECT_FALSE(loads(QByteArray(good).replace(was, is))) << was;
  }
  EXPECT_FALSE(loads(good.first(good.size() / 2)) || loads("[]"));
  EXPECT_FALSE(loadSkin(folder.path(u"missing.skn"_qs)));
  const QString pipe = folder.path(u"pipe.skn"_qs);
  ASSERT_EQ(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
  EXPECT_FALSE(loadSkin(pipe));
}

}  // namespace vellora
