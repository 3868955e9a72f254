#include "ui/frame/qt_output.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QImage>
#include <QTimer>
#include <set>

#include "support/chart_pictures.h"
#include "support/recording_dialogs.h"
#include "support/temporary_folder.h"
#include "ui/grid/sheet_pages.h"

namespace vistaplot {
namespace {

using namespace test;

// A heading row, a column of days, then prices.
Sheet Prices(int days, int funds) {
  Sheet sheet;
  sheet.SheetName = "Prices";
  sheet.MaxRow = days + 1;
  sheet.MaxCol = funds + 1;
  sheet.FixedRows = 1;
  sheet.FixedCols = 1;
  std::vector<std::string> column{"Date"};
  for (int day = 1; day <= days; ++day) column.push_back("01/01/" + std::to_string(1000 + day));
  sheet.SetTextColumn(1, column);
  for (int fund = 1; fund <= funds; ++fund) {
    sheet.SetPriceColumn(fund + 1,
                         "FUND" + std::to_string(fund),
                         std::vector<float>(static_cast<std::size_t>(days), 123.45F));
  }
  return sheet;
}

int Occurrences(const std::string& text, const std::string& word) {
  int count = 0;
  for (auto at = text.find(word); at != std::string::npos; at = text.find(word, at + 1)) ++count;
  return count;
}

void PrintInto(QPrinter& printer, const std::string& path) {
  printer.setOutputFormat(QPrinter::PdfFormat);
  printer.setOutputFileName(QString::fromStdString(path));
}

TEST(SheetPages, EveryCellStandsOnOnePage) {
  const Sheet sheet = Prices(120, 30);
  QImage paper(600, 800, QImage::Format_RGB32);
  const SheetPages pages(sheet, QFont(), &paper, QSizeF(600, 800), QStringLiteral("Prices"));
  std::set<std::pair<int, int>> cells;
  std::size_t count = 0;
  for (const SheetPage& page : pages.Pages()) {
    for (int row = page.first_row; row <= page.last_row; ++row) {
      for (int col = page.first_col; col <= page.last_col; ++col, ++count) cells.insert({row, col});
    }
  }
  EXPECT_EQ(count, 120U * 30U);
  EXPECT_EQ(cells.size(), count);
  EXPECT_EQ(*cells.begin(), std::pair(2, 2));
  EXPECT_GT(pages.Pages().size(), 8U);
}

TEST(SheetPages, HeadingsNameAndNumberStandOnTheLastPageToo) {
  const Sheet sheet = Prices(120, 30);
  QImage paper(600, 800, QImage::Format_RGB32);
  const SheetPages pages(sheet, QFont(), &paper, QSizeF(600, 800), QStringLiteral("Prices"));
  paper.fill(Qt::white);
  QPainter painter(&paper);
  pages.Paint(painter, pages.Pages().size() - 1);
  painter.end();
  const auto inked = [&paper](const QRect& area) {
    for (int y = area.top(); y <= area.bottom(); ++y) {
      for (int x = area.left(); x <= area.right(); ++x) {
        if (paper.pixelColor(x, y).lightness() < 100) return true;
      }
    }
    return false;
  };
  const int line = static_cast<int>(QFontMetricsF(QFont(), &paper).height() * 1.25);
  EXPECT_TRUE(inked({0, 0, 60, line})) << "name";
  EXPECT_TRUE(inked({0, 2 * line, 60, line - 3})) << "heading row";
  EXPECT_TRUE(inked({0, 3 * line + 3, 60, line - 3})) << "heading column";
  EXPECT_TRUE(inked({500, 800 - line, 100, line})) << "page number";
  EXPECT_TRUE(inked({0, 800 - line, 100, line})) << "day";
  EXPECT_FALSE(inked({200, 800 - line, 250, line}));
}

TEST(SheetPages, NoCellIsCutAndNoColumnLeftAlone) {
  QImage paper(600, 800, QImage::Format_RGB32);
  Sheet sheet = Prices(5, 7);
  sheet.SetCellText(3, 4, "WWWWWWW");  // no longer than others, but wider
  const QFontMetricsF letters(QFont(), &paper);
  const SheetPages wide(sheet, QFont(), &paper, QSizeF(600, 800), {});
  EXPECT_GT(wide.ColumnWidth(4), letters.horizontalAdvance(QStringLiteral("WWWWWWW")));
  const double heading = wide.ColumnWidth(1);
  // Room for all columns but the last, which letters of 0.7 of their size cannot make up for.
  const double narrow = (wide.NaturalWidth() - wide.ColumnWidth(8)) * 0.6;
  const SheetPages parted(sheet, QFont(), &paper, QSizeF(narrow, 800), {});
  ASSERT_GT(parted.Pages().size(), 1U);
  for (const SheetPage& page : parted.Pages()) EXPECT_GT(page.last_col, page.first_col);
  // Nearly enough room: all on one page in smaller letters.
  const SheetPages fitted(sheet, QFont(), &paper, QSizeF(wide.NaturalWidth() * 0.8, 800), {});
  ASSERT_EQ(fitted.Pages().size(), 1U);
  EXPECT_LT(fitted.ColumnWidth(1), heading);
  EXPECT_GT(fitted.ColumnWidth(1), 0.7 * heading);
  sheet.SetCellText(2, 2, std::string(300, 'm'));
  const SheetPages huge(sheet, QFont(), &paper, QSizeF(600, 800), {});
  EXPECT_LE(huge.ColumnWidth(1) + huge.ColumnWidth(2), 600.0);
  for (int col = 2; col <= sheet.MaxCol; ++col) sheet.SetCellText(1, col, "");
  sheet.SetCellText(1, 1, std::string(100, 'm'));
  const SheetPages titled(sheet, QFont(), &paper, QSizeF(2000, 800), {});
  EXPECT_LT(titled.ColumnWidth(1), 2.0 * heading) << "a title runs on over its row";
}

TEST(QtOutput, AWideSheetTurnsThePage) {
  QPrinter printer(QPrinter::HighResolution);
  printer.setPageSize(QPageSize(QPageSize::A4));
  EXPECT_EQ(PagesOn(Prices(3, 4), {}, printer).Pages().size(), 1U);
  EXPECT_EQ(printer.pageLayout().orientation(), QPageLayout::Portrait);
  EXPECT_EQ(PagesOn(Prices(3, 14), {}, printer).Pages().size(), 1U);
  EXPECT_EQ(printer.pageLayout().orientation(), QPageLayout::Landscape);
}

TEST(QtOutput, PrintsAllPagesOrThoseAskedFor) {
  const TemporaryFolder folder;
  const Sheet sheet = Prices(400, 3);
  const auto pages_in = [&](const char* name, int from, int to) {
    QPrinter printer(QPrinter::HighResolution);
    PrintInto(printer, folder.Path(name));
    printer.setPageSize(QPageSize(QPageSize::A4));
    if (from > 0) {
      printer.setPrintRange(QPrinter::PageRange);
      printer.setFromTo(from, to);
    }
    std::vector<int> done;
    const SheetPages pages = PagesOn(sheet, QStringLiteral("Prices"), printer);
    EXPECT_TRUE(PrintPages(pages, printer, [&done](int page) { done.push_back(page); }).Ok());
    EXPECT_EQ(done.size(), static_cast<std::size_t>(RangeOf(pages, printer).Count()));
    EXPECT_EQ(done.back(), RangeOf(pages, printer).Count());
    return Occurrences(folder.Read(name), "/Type /Page\n");
  };
  const int all = pages_in("all.pdf", 0, 0);
  EXPECT_GT(all, 3);
  EXPECT_EQ(pages_in("two.pdf", 2, 3), 2);
}

TEST(QtOutput, AChartIsOnePageOfLinesAndTexts) {
  const TemporaryFolder folder;
  QPrinter printer(QPrinter::HighResolution);
  PrintInto(printer, folder.Path("chart.pdf"));
  ASSERT_TRUE(PrintChartPage(LineChart({{0.0, 0.1, 0.05}}), printer).Ok());
  const std::string pdf = folder.Read("chart.pdf");
  EXPECT_EQ(Occurrences(pdf, "/Type /Page\n"), 1);
  EXPECT_EQ(pdf.find("/Subtype /Image"), std::string::npos);
  EXPECT_NE(pdf.find("/FontFile"), std::string::npos);
}

TEST(QtOutput, AFileThatCannotBeWrittenIsNamed) {
  const TemporaryFolder folder;
  QPrinter printer(QPrinter::HighResolution);
  PrintInto(printer, folder.Path("none/chart.pdf"));
  const Status printed = PrintChartPage(LineChart({{0.0, 0.1}}), printer);
  ASSERT_FALSE(printed.Ok());
  EXPECT_NE(PlainText(printed.Error()).find("none/chart.pdf"), std::string::npos);
}

TEST(QtOutput, CancellingThePrintDialogIsNoFailure) {
  EventGuard guard;
  QtOutput output(guard);
  SilentProgress progress;
  int asked = 0;
  QTimer::singleShot(0, [&asked] {
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    ++asked;
    dialog->reject();
  });
  EXPECT_TRUE(output.PrintSheet(Prices(3, 1), "Prices", progress).Ok());
  EXPECT_EQ(asked, 1);
  EXPECT_TRUE(progress.actions.empty()) << "\"Printing...\" while it only asks";
  EXPECT_FALSE(output.PrintSheet(Sheet(), "", progress).Ok());
}

TEST(QtOutput, TheClipboardTakesPicturesOnWhiteAndTexts) {
  EventGuard guard;
  QtOutput output(guard);
  ASSERT_TRUE(output.CopyChart(LineChart({{0.0, 0.1, 0.05}}), 320, 200).Ok());
  const QImage image = QGuiApplication::clipboard()->image();
  EXPECT_EQ(image.size(), QSize(320, 200));
  EXPECT_EQ(image.pixelColor(1, 1), QColor(Qt::white));
  ASSERT_TRUE(output.CopyText("A\tB\n1\tß\n").Ok());
  EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(), "A\tB\n1\tß\n");
}

}  // namespace
}  // namespace vistaplot
