// Written HTML files as a browser shows them.

#include "described_sheet.h"
#include "grid/files/exported_sheet.h"
#include "grid/files/html_writer.h"
#include "outside_reader.h"
#include "support/temporary_folder.h"
#include "support/text_output.h"

#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace vellora {
namespace {

class Browser : public testing::Test {
 protected:
  Browser() { writeHtmlFile(sheet_, {}, u"列表"_qs, path_); }

  // What an expression is worth in the page of a window this wide.
  QJsonArray valueOf(const QByteArray& expression, int width) {
    const QString probe = folder_.path(u"probe.html"_qs);
    test::writeBytes(probe, test::bytesOf(path_) +
                                "<script>document.title=encodeURIComponent(JSON.stringify(" +
                                expression + "))</script>");
    const QStringList arguments{u"--window-size=%1,800"_qs.arg(width), u"--dump-dom"_qs, probe};
    const QString dom = test::linesOf(u"chromium"_qs, kQuiet + arguments).join(u'\n');
    const QString title = dom.section(u"<title>"_qs, 1).section(u"</title>"_qs, 0, 0);
    return QJsonDocument::fromJson(QByteArray::fromPercentEncoding(title.toLatin1())).array();
  }
  QImage picture() {
    const QString path = folder_.path(u"page.png"_qs);
    test::linesOf(u"chromium"_qs, kQuiet + QStringList{u"--window-size=800,3000"_qs,
                                                       u"--screenshot="_qs + path, path_});
    return QImage(path);
  }

  const QStringList kQuiet{u"--headless"_qs, u"--no-sandbox"_qs, u"--disable-gpu"_qs,
                           u"--hide-scrollbars"_qs, u"--allow-file-access-from-files"_qs};
  const Sheet sheet_ = test::sampleList();
  test::TemporaryFolder folder_;
  const QString path_ = folder_.path(u"列表.HTM"_qs);
};

QJsonArray textsInView(const Sheet& sheet) {
  QJsonArray texts;
  for (int row = 0; row < sheet.Rows(); ++row) {
    for (int col = 0; col < sheet.Cols() && !isOutOfView(sheet, row); ++col) {
      if (sheet.ColumnWidth(col) != 0) texts << exportedText(sheet.GetCellText(col, row));
    }
  }
  return texts;
}

}  // namespace

TEST_F(Browser, HoldsEveryTextLetterForLetter) {
  EXPECT_EQ(valueOf("[...document.querySelectorAll('td')].map(c=>c.textContent)", 800),
            textsInView(sheet_));
}

TEST_F(Browser, KeepsTheColumnsWidthsInWindowsOfAnyWidth) {
  for (const int width : {300, 1'200}) {
    const QJsonArray widths = valueOf(
        "[...document.querySelectorAll('th')].map(c=>c.getBoundingClientRect().width)", width);
    ASSERT_EQ(widths.size(), 3);
    for (int col = 0; col < 3; ++col) {
      EXPECT_NEAR(widths[col].toDouble(), exportedWidth(sheet_, col), 1) << col;
    }
  }
}

TEST_F(Browser, PaintsTheCellsColoursAndBorders) {
  const QJsonArray places = valueOf(
      "['th:nth-child(2)','tr:nth-child(2) td:nth-child(3)','tr:nth-child(30) td:nth-child(2)']"
      ".map(s=>document.querySelector(s).getBoundingClientRect())",
      800);
  const QImage image = picture();
  const auto colourAt = [&](int cell, int dx, int dy) {
    const QJsonObject place = places[cell].toObject();
    return image
        .pixelColor(qRound(place[u"x"].toDouble()) + dx, qRound(place[u"y"].toDouble()) + dy)
        .name();
  };
  EXPECT_EQ(colourAt(0, 4, 4), u"#010203"_qs);
  EXPECT_EQ(colourAt(1, 4, 4), u"#0c2238"_qs);
  EXPECT_EQ(colourAt(2, 0, 12), u"#0000ff"_qs);
  EXPECT_EQ(colourAt(2, 12, 12), u"#ffffff"_qs);
}

}  // namespace vellora
