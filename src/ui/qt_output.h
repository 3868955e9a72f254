// Charts and sheets on paper and on the clipboard, by the desktop's own means.
#pragma once

#include <QPointer>
#include <QPrinter>
#include <QWidget>

#include "forms/output.h"
#include "ui/event_guard.h"

namespace vistaplot {

class QtOutput : public Output {
 public:
  /// `guard` outlives the output.
  explicit QtOutput(EventGuard& guard) : guard_(guard) {}

  /// The window that the print dialog stands over.
  void Use(QWidget* window) { window_ = window; }

  Status SaveChart(const ChartView& view, const std::string& path, int width, int height) override;
  Status PrintChart(const ChartView& view) override;
  Status PrintSheet(const Sheet& sheet) override;
  Status CopyChart(const ChartView& view, int width, int height) override;
  Status CopyText(const std::string& text) override;

 private:
  bool AskForPrinter(QPrinter& printer, const QString& title) const;

  EventGuard& guard_;
  QPointer<QWidget> window_;
};

/// Draws a chart as one page, on white and as large as the page allows.
Status PrintChartPage(const ChartView& view, QPrinter& printer);

/// Draws the pages of a sheet that the printer's page range asks for.
Status PrintSheetPages(const Sheet& sheet, QPrinter& printer);

}  // namespace vistaplot
