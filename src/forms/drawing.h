// Drawing charts: the one front door for every kind of graph. A request says what to draw, where
// and up to which day; behind the door the selection is read, the kind's builder called, and what
// came back is applied to the screens: the scroll bar, the message, the screen that is shown.
//
// A new kind of graph is an enumerator here, a drawer in chart_drawers.h and a row of the table in
// drawing.cc.
#pragma once

#include <string>
#include <string_view>

#include "charts/builders/chart_parts.h"
#include "charts/builders/price_chart.h"
#include "controls/value_controls.h"
#include "forms/shared_state.h"

namespace vistaplot {

/// What the action panel says while a chart is drawn.
inline constexpr std::string_view kGraphingAction = "Graphing Data...";

/// All kinds of graph. Prices first, in the order of their list on the parameter screen; then those
/// of result files, in the order of theirs.
enum class GraphType {
  kLine,
  kScatter,
  kCandleLine,
  kCandleBar,
  kPointAndFigure,
  kContour,
  kCaseScatter,
  kCaseLine,
  kSurface
};

struct DrawRequest {
  GraphType type = GraphType::kLine;
  PriceScreen screen = PriceScreen::kGraph;
  int end_day = 1;  ///< wanted last market day; of no meaning to charts of result files
  bool reselect =
      false;  ///< read the data screen's selection first; done anyway when there is none
};

/// What became of a request; a builder's outcome, or the refusal of a missing selection.
using Outcome = BuildOutcome;

class Drawing {
 public:
  explicit Drawing(const Context& context) : context_(context) {}
  Drawing(const Drawing&) = delete;
  Drawing& operator=(const Drawing&) = delete;

  /// Draws a chart and shows its screen. A refused request shows its message in a box, leaves the
  /// charts of its screen empty and brings no screen up; the scroll bar is set in either case.
  Outcome Draw(const DrawRequest& request);

  /// Draws the kind of graph chosen on the parameter screen, with the selection read anew. The end
  /// day is the scroll bar's; candles always end at the newest day.
  Outcome Graph();

  /// Draws the chosen kind of prices again up to the scroll bar's day, with the same funds. A bar
  /// that is not set up for the calendar loaded now is, and then stands at the newest day.
  Outcome Redraw();

  /// The scroll bar of `screen` was moved.
  void Scrolled(PriceScreen screen);

  /// A calendar was loaded: bars that are not set up for it cannot be used until a chart is drawn.
  void CalendarLoaded();

  // The procedures of each kind by their agreed names. `endDay` is a market day; `reselect` "y"
  // reads the selection first. Charts of result files have DrawTestCaseChart and DrawParameterChart
  // of chart_drawers.h alone.
  Outcome ShowLineGraph();
  Outcome StartPriceGraph(int endDay, std::string_view reselect);
  Outcome ShowCandleGraph();
  Outcome StartCandleGraph(int endDay, std::string_view reselect);
  Outcome StartPointAndFigure(int endDay, std::string_view reselect);

 private:
  /// The chosen kind of graph, prices taken for granted.
  GraphType ChosenPrices() const;
  PriceScreen ScreenOf(GraphType type) const;
  ScrollBar& BarOf(PriceScreen screen) const;
  Outcome DrawPrices(GraphType type, int end_day, bool reselect);
  Outcome DrawAgain(int end_day);

  /// Shows the bar and, when it is not set up for the calendar, or always with `newest`, puts it at
  /// the newest day. Draws nothing.
  void SetUpBar(PriceScreen screen, bool newest);
  bool IsSetUp(const ScrollBar& bar) const;

  /// Reads the selection where the request needs it; the message that refuses it.
  std::string Select(const DrawRequest& request);
  void Apply(const DrawRequest& request, const Outcome& outcome);
  void EmptyCharts(PriceScreen screen);
  void TellWhyEmpty(PriceScreen screen, const std::string& why);

  const Context& context_;
  bool moving_bar_ = false;  ///< the bar follows a build: its change must not build again
};

}  // namespace vistaplot
