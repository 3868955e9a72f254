// The state that the screens share. The program owns one; screens get references.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "base/dialogs.h"
#include "base/host_path.h"
#include "base/result.h"
#include "base/settings.h"
#include "charts/builders/graph_selection.h"
#include "charts/builders/spectrum_chart.h"
#include "charts/view/chart_view.h"
#include "controls/form_host.h"
#include "import/family_summary.h"
#include "import/price_load.h"
#include "marketdata/market_data.h"
#include "marketdata/quoteline_library.h"
#include "table/data_table.h"
#include "table/sheet.h"

namespace vistaplot {

/// What has been loaded since the data type was chosen.
struct LoadFlags {
  bool ResultFileLoaded = false;      ///< something is loaded and may be graphed
  bool KestrelixLoaded = false;       ///< a Kestrelix file is loaded
  bool ComputedSummaryShown = false;  ///< sheet 2 holds a summary computed by the program
  std::string VornaxilKind;           ///< "SM ", "APM" or empty: kind of the last Vornaxil file
  float GraphFraction = 1.0F;         ///< leading part of a summary to chart, 0.1 to 1
};

/// Folders by product, as texts that users typed or the settings hold.
struct Directories {
  std::string ProgramDir;  ///< folder of the executable, no separator at its end
  std::string ZephyrineDir;
  std::string VornaxilDir;
  std::string KestrelixDir;
  std::string ChosenDir;  ///< the directory chooser's result
  std::string SaveDir;    ///< where this run saved last; empty before
};

struct PointAndFigureSettings {
  std::array<float, 8> PfRange{};  ///< bounds of the price ranges, highest first
  std::array<float, 6> PfBox{};    ///< box size by price range; elements 0 to 4 used
  std::int16_t PfReversal = 1;     ///< 0, 1, 2: one, three, five boxes
};

/// What the sheet chooser gave.
struct SheetChoice {
  std::int16_t SheetDialogResult = 0;  ///< 1 OK, 2 Cancel
  std::int32_t ChosenSheetIndex = -1;  ///< 0-based position in its list
};

/// The sheets that the next sort works on, counted from 1.
struct SortSheets {
  std::int16_t SortFirstSheet = 1;
  std::int16_t SortLastSheet = 1;
};

struct SharedState {
  MarketData market;
  DataTable table;
  PriceLoadState load;
  FamilyRecords family_records;
  std::string summary_days;  ///< what the summary covers: "01/04/1999 to 12/29/2023"
  GraphSelection selection;
  SpectrumState spectrum;  ///< of the last maximum-entropy screen
  LoadFlags flags;
  Directories directories;
  PointAndFigureSettings point_and_figure;
  SheetChoice sheet_choice;
  SortSheets sort_sheets;
  std::int16_t TipIndex = 0;  ///< number of the tool tip to show, 1 to 12
  PathRoots roots;            ///< where old-style paths lie on this host
};

// Where charts and sheets go besides the screens: picture files, the printer, the clipboard. The
// part of the program that knows a toolkit provides it.

inline constexpr const char* kPrintingAction = "Printing...";

class Output {
 public:
  virtual ~Output() = default;

  /// Draws a chart into a host file, its kind by the extension (.png, .svg, .pdf), `width` by
  /// `height` pixels. A failure leaves an older file whole.
  virtual Status SaveChart(const ChartView& view,
                           const std::string& path,
                           int width,
                           int height) = 0;

  /// Asks for a printer and prints. Done also when the user cancelled. `progress` shows
  /// kPrintingAction while pages go out, not while the user is asked.
  virtual Status PrintChart(const ChartView& view, Progress& progress) = 0;
  /// The same with `title` above each page; the meter tells how many of the pages are done.
  virtual Status PrintSheet(const Sheet& sheet, const std::string& title, Progress& progress) = 0;

  /// The chart as a picture, `width` by `height` pixels, on the clipboard.
  virtual Status CopyChart(const ChartView& view, int width, int height) = 0;
  /// Tab-separated lines on the clipboard.
  virtual Status CopyText(const std::string& text) = 0;
};

// What a screen is given to work with. Everything referred to outlives the screens.

struct Screens;

struct Context {
  QuotelineApi& quoteline;
  Settings& settings;
  Dialogs& dialogs;
  FormHost& host;
  Output& output;
  SharedState& state;
  Screens& screens;  ///< all screens; for calls from one to another, not for construction
};

}  // namespace vistaplot
