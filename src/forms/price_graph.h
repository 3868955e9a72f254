// The graph of prices as the screens ask for it: reads the boxes, calls the builder, shows what
// came back. One instance serves both graph screens.
#pragma once

#include <string_view>

#include "charts/builders/price_chart.h"
#include "controls/value_controls.h"
#include "forms/context.h"

namespace vistaplot {

/// What the action panel says while a chart is drawn.
inline constexpr std::string_view kGraphingAction = "Graphing Data...";

/// The graph screen whose scroll bar was moved.
enum class ScrolledScreen { kGraph, kThreeCharts };

class PriceGraph {
 public:
  explicit PriceGraph(const Context& context) : context_(context) {}
  PriceGraph(const PriceGraph&) = delete;
  PriceGraph& operator=(const PriceGraph&) = delete;

  /// Draws the chosen graph type of prices, with the selection read anew.
  void Graph();

  /// Draws it again up to the scroll bar's day, with the same funds.
  void Redraw();

  /// A scroll bar was moved to market day `endDay`.
  void Scrolled(int endDay, ScrolledScreen screen);

  /// Reads the selection anew and draws lines or markers, once, up to the scroll bar's day. A bar
  /// that is not set up for the histories loaded now is, and starts at the last market day.
  void ShowLineGraph();

  /// Draws lines or markers up to market day `endDay`. "y" in `reselect` reads the selection of the
  /// data screen first; that also happens when there is none yet.
  void StartPriceGraph(int endDay, std::string_view reselect);

  /// True when the last call drew a chart; false when it was refused.
  bool Drawn() const { return drawn_; }

 private:
  void Draw(int endDay, std::string_view reselect);
  void Build(int endDay);
  PriceChartRequest Request(int endDay) const;
  /// The scroll bar of the screen that the ticked analyses ask for.
  ScrollBar& EndDayBar() const;

  const Context& context_;
  bool moving_bar_ = false;  ///< the bar follows a build: its change must not build again
  bool drawn_ = false;
};

}  // namespace vistaplot
