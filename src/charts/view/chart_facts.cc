#include "charts/view/chart_facts.h"

#include <cstddef>

namespace vistaplot {
namespace {

const SeriesFacts kNoFacts;

}  // namespace

SeriesFacts& ChartFacts::Series(int number) {
  const auto count = static_cast<std::size_t>(number);
  if (series.size() < count) series.resize(count);
  return series[count - 1];
}

const SeriesFacts& ChartFacts::SeriesAt(int number) const {
  const auto index = static_cast<std::size_t>(number) - 1;
  return index < series.size() ? series[index] : kNoFacts;
}

}  // namespace vistaplot
