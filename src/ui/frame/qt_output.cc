#include "ui/frame/qt_output.h"

#include <QApplication>
#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPrintDialog>
#include <algorithm>

#include "charts/layout/layout.h"
#include "ui/chart/chart_canvas.h"
#include "ui/chart/chart_export.h"
#include "ui/controls/widgets.h"
#include "ui/frame/escape_watch.h"

namespace vistaplot {

namespace {

constexpr double kUnitsPerInch = 96.0;  ///< of a chart's picture on paper
constexpr double kPageDetail = 4.0;     ///< curves keep what four columns a unit can show
constexpr double kSheetPoints = 8.0;    ///< size of a sheet's font
constexpr int kManyPages = 20;          ///< more are asked about

RuntimeError Refusal(std::string why, const QString& subject) {
  return {
      .number = kErrorPathFileAccess, .description = std::move(why), .subject = PlainUtf8(subject)};
}

RuntimeError PrinterRefusal(const QPrinter& printer) {
  const QString file = printer.outputFileName();
  if (!file.isEmpty()) return Refusal("The file to print into cannot be written", file);
  return Refusal("The printer does not take the pages", printer.printerName());
}

/// The room on the printer's page in device units.
QSizeF PageSize(const QPrinter& printer) {
  return printer.pageLayout().paintRectPixels(printer.resolution()).size();
}

/// Starts on the printer's first page; false when it refuses.
bool Begin(QPainter& painter, QPrinter& printer) {
  return painter.begin(&printer) && !PageSize(printer).isEmpty();
}

/// Lets the windows be painted that a dialog has covered, but nobody use them.
void ShowWindows() {
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

/// Tells that pages go out, and shows the hourglass, while a scope lasts.
class PrintingScope {
 public:
  explicit PrintingScope(Progress& progress) : action_(progress, kPrintingAction) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
    ShowWindows();
  }
  ~PrintingScope() { QApplication::restoreOverrideCursor(); }
  PrintingScope(const PrintingScope&) = delete;
  PrintingScope& operator=(const PrintingScope&) = delete;

 private:
  ProgressScope action_;
};

Status End(QPainter& painter, const QPrinter& printer) {
  if (!painter.end() || printer.printerState() == QPrinter::Error) return PrinterRefusal(printer);
  return Done{};
}

}  // namespace

void QtOutput::Use(QWidget* window, Dialogs& dialogs) {
  window_ = window;
  dialogs_ = &dialogs;
}

Status QtOutput::SaveChart(const ChartView& view, const std::string& path, int width, int height) {
  return ExportChart(view, path, width, height);
}

Status QtOutput::PrintChart(const ChartView& view, Progress& progress) {
  QPrinter printer(QPrinter::HighResolution);
  printer.setPageOrientation(QPageLayout::Landscape);
  printer.setDocName(QtText(view.TitleText));
  if (!AskForPrinter(printer, QStringLiteral("Print Chart"))) return Done{};
  const PrintingScope printing(progress);
  return PrintChartPage(view, printer);
}

Status QtOutput::PrintSheet(const Sheet& sheet, const std::string& title, Progress& progress) {
  if (sheet.MaxRow < 1 || sheet.MaxCol < 1) {
    return Refusal("There is nothing on the sheet to print", QtText(sheet.SheetName));
  }
  QPrinter printer(QPrinter::HighResolution);
  printer.setDocName(QtText(sheet.SheetName));
  if (!AskForPrinter(printer, QStringLiteral("Print Sheet"))) return Done{};
  const SheetPages pages = PagesOn(sheet, QtText(title), printer);
  const int count = RangeOf(pages, printer).Count();
  if (count == 0) {
    return Refusal("The sheet has no page " + std::to_string(printer.fromPage()) + ", it takes " +
                       std::to_string(pages.Pages().size()),
                   QtText(sheet.SheetName));
  }
  if (!AgreedTo(count)) return Done{};
  const PrintingScope printing(progress);
  return PrintPages(pages, printer, [&progress, count](int done) {
    progress.ShowMeter(100.0 * done / count);
    ShowWindows();
  });
}

Status QtOutput::CopyChart(const ChartView& view, int width, int height) {
  QImage image(width, height, QImage::Format_RGB32);
  if (image.isNull()) return Refusal("Not enough memory for this picture", {});
  const PictureSize size{static_cast<double>(width), static_cast<double>(height)};
  QPainter painter(&image);
  const PictureTexts texts;
  PaintPicture(painter, LayoutChart(view, size, texts), texts);
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
  ShowWindows();
  return accepted;
}

// Years of daily prices take hundreds of pages, which are rarely meant.
bool QtOutput::AgreedTo(int pages) const {
  if (pages <= kManyPages || dialogs_ == nullptr) return true;
  const Answer answer = dialogs_->ShowMessage(
      {.text = "This prints " + std::to_string(pages) + " pages. Print them all?",
       .title = "Print Sheet",
       .buttons = Buttons::kOkCancel,
       .icon = Icon::kQuestion,
       .default_answer = Answer::kCancel});
  return answer == Answer::kOk;
}

Status PrintChartPage(const ChartView& view, QPrinter& printer) {
  QPainter painter;
  if (!Begin(painter, printer)) return PrinterRefusal(printer);
  const QSizeF page = PageSize(printer);
  const double scale = printer.resolution() / kUnitsPerInch;
  painter.scale(scale, scale);
  const PictureSize size{page.width() / scale, page.height() / scale};
  const PictureTexts texts;
  PaintPicture(
      painter, LayoutChart(view, size, texts, {.dark = false, .detail = kPageDetail}), texts);
  return End(painter, printer);
}

SheetPages PagesOn(const Sheet& sheet, const QString& title, QPrinter& printer) {
  QFont font = PictureFont(1, false);
  font.setPointSizeF(kSheetPoints);
  SheetPages upright(sheet, font, &printer, PageSize(printer), title);
  const bool is_upright = printer.pageLayout().orientation() == QPageLayout::Portrait;
  if (!is_upright || upright.NaturalWidth() <= PageSize(printer).width()) return upright;
  printer.setPageOrientation(QPageLayout::Landscape);
  return {sheet, font, &printer, PageSize(printer), title};
}

PageRange RangeOf(const SheetPages& pages, const QPrinter& printer) {
  const auto count = static_cast<int>(pages.Pages().size());
  const bool all = printer.printRange() != QPrinter::PageRange || printer.fromPage() < 1;
  if (all) return {.first = 1, .last = count};
  const int first = printer.fromPage();
  return {.first = first, .last = std::min(count, std::max(first, printer.toPage()))};
}

Status PrintPages(const SheetPages& pages,
                  QPrinter& printer,
                  const std::function<void(int done)>& page_done) {
  QPainter painter;
  if (!Begin(painter, printer)) return PrinterRefusal(printer);
  const PageRange range = RangeOf(pages, printer);
  for (int number = range.first; number <= range.last; ++number) {
    if (number > range.first && !printer.newPage()) return PrinterRefusal(printer);
    pages.Paint(painter, static_cast<std::size_t>(number - 1));
    if (page_done) page_done(number - range.first + 1);
  }
  return End(painter, printer);
}

}  // namespace vistaplot
