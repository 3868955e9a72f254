#include "ui/chart/chart_export.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QXmlStreamReader>
#include <filesystem>

#include "base/files.h"
#include "support/chart_pictures.h"
#include "support/temporary_folder.h"

namespace vistaplot {
namespace {

using namespace test;

ChartView Curve() {
  return LineChart({{0.0, 0.05, 0.02, 0.1}});
}

TEST(ChartExport, APngHasTheSizeAskedForAndNoTransparency) {
  const TemporaryFolder folder;
  const Status written = ExportChart(Curve(), folder.Path("chart.PNG"), 800, 300);
  ASSERT_TRUE(written.Ok()) << PlainText(written.Error());
  const QImage image(QString::fromStdString(folder.Path("chart.PNG")));
  EXPECT_EQ(image.size(), QSize(800, 300));
  EXPECT_FALSE(image.hasAlphaChannel());
  EXPECT_EQ(image.pixelColor(1, 1), QColor(Qt::white));
}

TEST(ChartExport, SvgAndPdfHoldLinesAndTexts) {
  const TemporaryFolder folder;
  ChartView view = Curve();
  view.TitleText = "P & F <1>";
  ASSERT_TRUE(ExportChart(view, folder.Path("a.svg"), 640, 480).Ok());
  const std::string svg = folder.Read("a.svg");
  QXmlStreamReader reader(QByteArray::fromStdString(svg));
  while (!reader.atEnd()) reader.readNext();
  EXPECT_FALSE(reader.hasError()) << reader.errorString().toStdString();
  EXPECT_NE(svg.find("<polyline"), std::string::npos);
  EXPECT_NE(svg.find(">P &amp; F &lt;1&gt;</text>"), std::string::npos);
  EXPECT_EQ(svg.find("<image"), std::string::npos);
  ASSERT_TRUE(ExportChart(Curve(), folder.Path("a.pdf"), 640, 480).Ok());
  const std::string pdf = folder.Read("a.pdf");
  EXPECT_TRUE(pdf.starts_with("%PDF-"));
  EXPECT_NE(pdf.find("/FontFile"), std::string::npos);
  EXPECT_EQ(pdf.find("/Subtype /Image"), std::string::npos);
  EXPECT_NE(pdf.find("/MediaBox [0 0 480.0"), std::string::npos);  // 96 pixels are 72 points
}

TEST(ChartExport, RefusalsSayWhyAndLeaveTheOldFile) {
  const TemporaryFolder folder;
  const std::string kept = folder.Write("old.png", "old");
  folder.MakeFolder("taken.svg");
  struct Case {
    std::string path;
    int width;
    const char* words;
  };
  for (const Case& c : {Case{folder.Path("a.bmp"), 640, ".png, .svg or .pdf"},
                        Case{folder.Path("png"), 640, ".png, .svg or .pdf"},
                        Case{folder.Path("none/a.png"), 640, "Path not found"},
                        Case{kept, 63, "63 by 480"},
                        Case{kept, 16385, "64 to 16384"},
                        Case{folder.Path("taken.svg"), 640, "error"}}) {
    const Status refused = ExportChart(Curve(), c.path, c.width, 480);
    ASSERT_FALSE(refused.Ok()) << c.path;
    const std::string text = PlainText(refused.Error());
    EXPECT_NE(text.find(c.path), std::string::npos) << text;
    EXPECT_NE(text.find(c.words), std::string::npos) << text;
  }
  EXPECT_EQ(folder.Read("old.png"), "old");
  const auto entries = std::filesystem::directory_iterator(folder.Path());
  EXPECT_EQ(std::distance(begin(entries), end(entries)), 2);
}

}  // namespace
}  // namespace vistaplot
