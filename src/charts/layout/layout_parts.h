// What the parts of the layout share: text metrics. For the layout's own sources.
#pragma once

#include <string>

#include "charts/kinds/draw_context.h"
#include "charts/kinds/kind.h"

namespace vistaplot {

/// 1, 2, 5, 10, 20, 50, ...: the first at or above `least`.
int RoundFactor(int least);

/// Text metrics of the charts' fonts as parts of the pixel size.
inline constexpr double kCapHeight = 0.73;
inline constexpr double kLineHeight = 1.35;

/// `text` cut to `width` with an ellipsis two thirds along it, so that names that differ at their
/// end alone stay apart; at least one letter stays. A text that fits comes back whole.
std::string ElideText(const DrawContext& context,
                      const std::string& text,
                      int pixels,
                      double width);

}  // namespace vistaplot
