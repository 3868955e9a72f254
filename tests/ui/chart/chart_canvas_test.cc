// Charts as they are painted, and saved as files.
#include "ui/chart/chart_canvas.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QXmlStreamReader>
#include <algorithm>
#include <cmath>
#include <filesystem>
#include <functional>
#include <vector>

#include "base/files.h"
#include "charts/view/palette.h"
#include "support/chart_pictures.h"
#include "support/temporary_folder.h"
#include "ui/chart/chart_export.h"

namespace vistaplot {
namespace {

using namespace test;

QImage Painted(const ChartPicture& picture, double ratio = 1.0) {
  QImage image(static_cast<int>(picture.width * ratio),
               static_cast<int>(picture.height * ratio),
               QImage::Format_RGB32);
  image.setDevicePixelRatio(ratio);
  image.fill(Qt::magenta);
  QPainter painter(&image);
  PaintPicture(painter, picture, PictureTexts());
  return image;
}

QColor Ink(const PictureColor& color) {
  return QColor(color.red, color.green, color.blue);
}

// The share of another colour that `probe` has, seen from white: 1 is that colour itself.
double Coverage(const QColor& probe, const QColor& ink) {
  const double all = 765.0 - ink.red() - ink.green() - ink.blue();
  return (765.0 - probe.red() - probe.green() - probe.blue()) / all;
}

// Pixels that `ink` covers by more than half.
int PixelsOf(const QImage& image, const QRect& area, const QColor& ink) {
  int count = 0;
  for (int y = area.top(); y <= area.bottom(); ++y) {
    for (int x = area.left(); x <= area.right(); ++x) {
      count += Coverage(image.pixelColor(x, y), ink) > 0.5;
    }
  }
  return count;
}

ChartPicture Sheet() {
  ChartPicture picture;
  picture.width = 100.0;
  picture.height = 80.0;
  picture.background = {255, 255, 255};
  return picture;
}

// Six pixels drawn, four left out; the corner at x 47 does not begin a dash anew.
TEST(ChartCanvas, DashesRunOnAroundCorners) {
  for (const double width : {1.0, 3.0}) {
    ChartPicture picture = Sheet();
    const PictureColor blue{0, 98, 178};
    picture.Add(StrokeLine{{{10, 40.5}, {47, 40.5}, {90, 40.5}}, blue, width, {6.0, 4.0}});
    const QImage image = Painted(picture);
    for (int x = 10; x < 90; ++x) {
      const double covered = Coverage(image.pixelColor(x, 40), Ink(blue));
      EXPECT_NEAR(covered, (x - 10) % 10 < 6 ? 1.0 : 0.0, 0.05) << x << " width " << width;
    }
  }
}

TEST(ChartCanvas, WideLinesAreSolidThroughTheirCorners) {
  ChartPicture picture = Sheet();
  const PictureColor blue{0, 98, 178};
  picture.Add(StrokeLine{{{10, 40.5}, {30, 40.5}, {50, 20.5}, {60, 60.5}, {90, 60.5}}, blue, 3.0});
  const QImage image = Painted(picture);
  for (const auto& [x, y] : {std::pair{20, 40}, {30, 40}, {40, 30}, {50, 21}, {60, 59}, {75, 60}}) {
    EXPECT_GT(Coverage(image.pixelColor(x, y), Ink(blue)), 0.9) << x << " " << y;
  }
  EXPECT_EQ(image.pixelColor(20, 44), QColor(Qt::white));
  EXPECT_EQ(image.pixelColor(5, 40), QColor(Qt::white));
}

// The ink of a picture's columns, in pixels of full colour.
std::vector<double> InkByColumn(const QImage& image, const QColor& ink, int first, int last) {
  std::vector<double> columns;
  for (int x = first; x <= last; ++x) {
    double sum = 0.0;
    for (int y = 0; y < image.height(); ++y) sum += Coverage(image.pixelColor(x, y), ink);
    columns.push_back(sum);
  }
  return columns;
}

TEST(ChartCanvas, FlatLinesHaveNoBeadsWhereTheirPointsLie) {
  const PictureColor ink{0, 0, 0};
  const auto flat = [](double) { return 0.0; };
  const auto ripple = [](double x) { return 0.02 * std::sin(x); };
  const auto slope = [](double x) { return 0.11 * x; };
  const auto bend = [](double x) { return 0.0012 * x * x; };
  for (const auto& shape : std::vector<std::function<double(double)>>{flat, ripple, slope, bend}) {
    StrokeLine line{{}, ink, 2.0};
    for (double x = 5.0; x <= 95.0; x += 1.7) line.points.push_back({x, 30.3 + shape(x)});
    ChartPicture picture = Sheet();
    picture.Add(line);
    const auto columns = InkByColumn(Painted(picture), Ink(ink), 8, 90);
    const auto [least, most] = std::minmax_element(columns.begin(), columns.end());
    EXPECT_GT(*least, 1.85) << shape(50.0);
    EXPECT_LT(*most, 2.2) << shape(50.0);
  }
}

TEST(ChartCanvas, GuidesAreOneSharpRowAndLinesStayInsideTheClip) {
  ChartPicture picture = Sheet();
  picture.Add(FillBox{{10, 30, 90, 31}, {200, 0, 0}});
  picture.Add(SetClip{{20, 0, 80, 80}});
  picture.Add(StrokeLine{{{0, 50.5}, {100, 50.5}}, {0, 0, 0}, 1.0});
  const QImage image = Painted(picture);
  EXPECT_EQ(PixelsOf(image, {0, 0, 100, 45}, QColor(200, 0, 0)), 80);
  EXPECT_EQ(image.pixelColor(50, 29), QColor(Qt::white));
  EXPECT_EQ(image.pixelColor(50, 31), QColor(Qt::white));
  EXPECT_EQ(image.pixelColor(10, 50), QColor(Qt::white));
  EXPECT_EQ(image.pixelColor(50, 50), QColor(Qt::black));
}

TEST(ChartCanvas, MarkersSitOnTheirPointsAtAnyPixelRatio) {
  ChartPicture picture = Sheet();
  const PictureColor red{213, 78, 18};
  double x = 10.5;
  for (const MarkerShape shape : {MarkerShape::kDot,
                                  MarkerShape::kSquare,
                                  MarkerShape::kTriangle,
                                  MarkerShape::kDiamond,
                                  MarkerShape::kCross,
                                  MarkerShape::kPlus,
                                  MarkerShape::kStar}) {
    picture.Add(StampMarkers{shape, 9.0, 2.0, red, {{x, 40.5}}});
    x += 12.0;
  }
  picture.Add(StampMarkers{MarkerShape::kCircle, 9.0, 1.5, red, {{50.5, 20.5}}});
  for (const int ratio : {1, 2}) {
    const QImage image = Painted(picture, ratio);
    for (int marker = 0; marker < 7; ++marker) {
      const QPoint center = QPoint(10 + 12 * marker, 40) * ratio;
      EXPECT_GT(Coverage(image.pixelColor(center), Ink(red)), 0.7) << marker << " at " << ratio;
      EXPECT_EQ(image.pixelColor(center + QPoint(0, -8) * ratio), QColor(Qt::white)) << marker;
    }
    EXPECT_EQ(image.pixelColor(QPoint(50, 20) * ratio), QColor(Qt::white)) << "hollow";
    EXPECT_GT(Coverage(image.pixelColor(QPoint(55, 20) * ratio), Ink(red)), 0.5);
  }
}

TEST(ChartCanvas, TextsEndWhereTheyAreAligned) {
  ChartPicture picture = Sheet();
  picture.Add(DrawText{"HHH", {95, 20}, TextAlign::kRight, 12, true, false, {0, 0, 0}});
  picture.Add(DrawText{"HHH", {20, 75}, TextAlign::kLeft, 12, false, true, {0, 0, 0}});
  const QImage image = Painted(picture);
  EXPECT_GT(PixelsOf(image, {55, 8, 40, 13}, Qt::black), 20);
  EXPECT_EQ(PixelsOf(image, {96, 0, 4, 80}, Qt::black), 0);
  // Upwards: a column of letters left of x = 20, from y = 75 up.
  EXPECT_GT(PixelsOf(image, {9, 45, 12, 31}, Qt::black), 10);
  EXPECT_EQ(PixelsOf(image, {22, 25, 30, 55}, Qt::black), 0);
}

TEST(ChartCanvas, AWholeChartShowsItsCurvesInTheirColours) {
  const ChartView view = LineChart({std::vector<double>(50, 0.2), std::vector<double>(50, 0.1)});
  const ChartPicture picture =
      LayoutChart(view, {640, 480}, PictureTexts(), {.dark = false, .detail = 1.0});
  const QImage image = Painted(picture);
  for (int s = 1; s <= 2; ++s) {
    const QColor ink = Ink(InkOn(LightTheme(), DefaultSeriesColor(s)));
    const double y = picture.scale.Y(s == 1 ? 0.2 : 0.1);
    double strongest = 0.0;
    for (int offset = -1; offset <= 1; ++offset) {
      const int row = static_cast<int>(y) + offset;
      strongest = std::max(strongest, Coverage(image.pixelColor(300, row), ink));
    }
    EXPECT_GT(strongest, 0.7) << s;
  }
  EXPECT_EQ(image.pixelColor(0, 0), QColor(Qt::white));
}

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
