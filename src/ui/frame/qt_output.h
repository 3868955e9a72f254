// Charts and sheets on paper and on the clipboard, by the desktop's own means.
#pragma once

#include <QPointer>
#include <QPrinter>
#include <QWidget>
#include <algorithm>
#include <functional>

#include "base/dialogs.h"
#include "forms/shared_state.h"
#include "ui/controls/control_adapter.h"
#include "ui/grid/sheet_pages.h"

namespace vistaplot {

class QtOutput : public Output {
 public:
  /// `guard` outlives the output.
  explicit QtOutput(EventGuard& guard) : guard_(guard) {}

  /// The window that the print dialog stands over, and where long prints are asked about; both
  /// outlive the output.
  void Use(QWidget* window, Dialogs& dialogs);

  Status SaveChart(const ChartView& view, const std::string& path, int width, int height) override;
  Status PrintChart(const ChartView& view, Progress& progress) override;
  Status PrintSheet(const Sheet& sheet, const std::string& title, Progress& progress) override;
  Status CopyChart(const ChartView& view, int width, int height) override;
  Status CopyText(const std::string& text) override;

 private:
  bool AskForPrinter(QPrinter& printer, const QString& title) const;
  bool AgreedTo(int pages) const;

  EventGuard& guard_;
  QPointer<QWidget> window_;
  Dialogs* dialogs_ = nullptr;
};

/// Draws a chart as one page, on white and as large as the page allows.
Status PrintChartPage(const ChartView& view, QPrinter& printer);

/// The pages that a sheet takes on the printer's paper, which is turned where the sheet is too wide
/// for it upright. `printer` must not print yet.
SheetPages PagesOn(const Sheet& sheet, const QString& title, QPrinter& printer);

/// The pages that the printer's page range asks for, from 1; none when `first` is above `last`.
struct PageRange {
  int first = 1;
  int last = 0;

  int Count() const { return std::max(0, last - first + 1); }
};
PageRange RangeOf(const SheetPages& pages, const QPrinter& printer);

/// Draws the pages of the range; `page_done` (may be empty) hears how many of them are.
Status PrintPages(const SheetPages& pages,
                  QPrinter& printer,
                  const std::function<void(int done)>& page_done);

}  // namespace vistaplot
