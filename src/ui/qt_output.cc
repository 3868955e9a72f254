#include "ui/qt_output.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPrintDialog>
#include <algorithm>

#include "charts/layout.h"
#include "ui/chart_canvas.h"
#include "ui/chart_export.h"
#include "ui/pointer_pause.h"
#include "ui/qt_text.h"
#include "ui/sheet_pages.h"

namespace vistaplot {

namespace {

constexpr double kUnitsPerInch = 96.0;  ///< of a chart's picture on paper
constexpr double kPageDetail = 4.0;     ///< curves keep what four columns a unit can show
constexpr double kSheetPoints = 8.0;    ///< size of a sheet's font

RuntimeError Refusal(std::string why, const QString& subject) {
  return {
      .number = kErrorPathFileAccess, .description = std::move(why), .subject = PlainUtf8(subject)};
}

RuntimeError PrinterRefusal(const QPrinter& printer) {
  const QString file = printer.outputFileName();
  if (!file.isEmpty()) return Refusal("The file to print into cannot be written", file);
  return Refusal("The printer does not take the pages", printer.printerName());
}

/// Starts on the printer's page, whose size in device units is `page`; false when it refuses.
bool Begin(QPainter& painter, QPrinter& printer, QSizeF& page) {
  if (!painter.begin(&printer)) return false;
  page = printer.pageLayout().paintRectPixels(printer.resolution()).size();
  return !page.isEmpty();
}

Status End(QPainter& painter, const QPrinter& printer) {
  if (!painter.end() || printer.printerState() == QPrinter::Error) return PrinterRefusal(printer);
  return Done{};
}

}  // namespace

Status QtOutput::SaveChart(const ChartView& view, const std::string& path, int width, int height) {
  return ExportChart(view, path, width, height);
}

Status QtOutput::PrintChart(const ChartView& view) {
  QPrinter printer(QPrinter::HighResolution);
  printer.setPageOrientation(QPageLayout::Landscape);
  printer.setDocName(QtText(view.TitleText));
  if (!AskForPrinter(printer, QStringLiteral("Print Chart"))) return Done{};
  return PrintChartPage(view, printer);
}

Status QtOutput::PrintSheet(const Sheet& sheet) {
  if (sheet.MaxRow < 1 || sheet.MaxCol < 1) {
    return Refusal("There is nothing on the sheet to print", QtText(sheet.SheetName));
  }
  QPrinter printer(QPrinter::HighResolution);
  printer.setDocName(QtText(sheet.SheetName));
  if (!AskForPrinter(printer, QStringLiteral("Print Sheet"))) return Done{};
  return PrintSheetPages(sheet, printer);
}

Status QtOutput::CopyChart(const ChartView& view, int width, int height) {
  QImage image(width, height, QImage::Format_RGB32);
  if (image.isNull()) return Refusal("Not enough memory for this picture", {});
  const PictureSize size{static_cast<double>(width), static_cast<double>(height)};
  QPainter painter(&image);
  PaintPicture(painter, LayoutChart(view, size, QtTextMeasure()));
  painter.end();
  QGuiApplication::clipboard()->setImage(image);
  return Done{};
}

Status QtOutput::CopyText(const std::string& text) {
  QGuiApplication::clipboard()->setText(QtText(text));
  return Done{};
}

bool QtOutput::AskForPrinter(QPrinter& printer, const QString& title) const {
  const PointerPause pause;
  QPrintDialog dialog(&printer, window_);
  dialog.setWindowTitle(title);
  const bool accepted = dialog.exec() == QDialog::Accepted;
  guard_.ThrowIfEnded();
  return accepted;
}

Status PrintChartPage(const ChartView& view, QPrinter& printer) {
  QPainter painter;
  QSizeF page;
  if (!Begin(painter, printer, page)) return PrinterRefusal(printer);
  const double scale = printer.resolution() / kUnitsPerInch;
  painter.scale(scale, scale);
  const PictureSize size{page.width() / scale, page.height() / scale};
  PaintPicture(painter,
               LayoutChart(view, size, QtTextMeasure(), {.dark = false, .detail = kPageDetail}));
  return End(painter, printer);
}

Status PrintSheetPages(const Sheet& sheet, QPrinter& printer) {
  QPainter painter;
  QSizeF page;
  if (!Begin(painter, printer, page)) return PrinterRefusal(printer);
  QFont font = PictureFont(1, false);
  font.setPointSizeF(kSheetPoints);
  const SheetPages pages(sheet, font, &printer, page);
  const bool all = printer.printRange() != QPrinter::PageRange || printer.fromPage() < 1;
  const auto count = static_cast<int>(pages.Pages().size());
  const int first = all ? 1 : printer.fromPage();
  const int last = all ? count : std::min(count, std::max(first, printer.toPage()));
  for (int number = first; number <= last; ++number) {
    if (number > first && !printer.newPage()) return PrinterRefusal(printer);
    pages.Paint(painter, static_cast<std::size_t>(number - 1));
  }
  return End(painter, printer);
}

}  // namespace vistaplot
