// The settings of the point-and-figure parameters: their keys, defaults and how they are read.
#pragma once

#include <array>
#include <string_view>

#include "base/settings.h"
#include "forms/shared_state.h"

namespace vistaplot {

/// Keys of the eight bounds of the price ranges, highest first, and of the five box sizes.
inline constexpr std::array<std::string_view, 8> kRangeKeys = {
    "pfrange1", "pfrange2", "pfrange3", "pfrange4", "pfrange5", "pfrange6", "pfrange7", "pfrange8"};
inline constexpr std::array<std::string_view, 5> kBoxKeys = {
    "pfbox1", "pfbox2", "pfbox3", "pfbox4", "pfbox5"};
/// Key of the reversal: "1" one box, "2" three, "3" five.
inline constexpr std::string_view kReversalKey = "pfrev";

/// The stored parameters. A text that is no number, none that single precision can hold, or no
/// reversal that there is counts as never written and gives the default.
PointAndFigureSettings ReadPointAndFigureSettings(const Settings& settings);

}  // namespace vistaplot
