// All that a chart view holds, as JSON.
#pragma once

#include <string>

#include "charts/view/chart_view.h"

namespace vistaplot {

/// One line of JSON, form: docs/formats/chart_json.md. Rows and columns run from 1 and are stored
/// in order; "data" has one number a column in each row, null where a point is empty or not finite;
/// "Markers" has the points whose mark differs from the default one, "PointLabels" those with a
/// text. `visible` says whether the chart's own control is.
std::string ChartJson(const ChartView& view, bool visible);

/// What is read off a chart at `row`, which it has, as `dump reading` writes it:
/// {"reading": {"at", "row", "series": [{"name", "text", "value", "percent"}...]}}; with a `column`
/// above 0, of charts over two parameters, "column" too. Series without a point there are left out.
std::string ReadingJson(const ChartView& view, int row, int column);

}  // namespace vistaplot
