#include "calc/breadth.h"

#include <algorithm>
#include <cstddef>

namespace vistaplot {
namespace {

constexpr float kHadPriceAbove = -0.5F;

/// Adds one member, whose prices are indexed by market day, to the counts of days 2 and on.
void AddMember(std::span<const float> prices, FamilyBreadth& breadth) {
  const std::size_t days = breadth.advancers.size();
  int* const advancers = breadth.advancers.data();
  int* const decliners = breadth.decliners.data();
  const float* const price = prices.data() + 1;
  for (std::size_t i = 1; i < days; ++i) {
    const int had_price = price[i - 1] > kHadPriceAbove ? 1 : 0;
    advancers[i] += had_price & (price[i] > price[i - 1] ? 1 : 0);
    decliners[i] += had_price & (price[i] < price[i - 1] ? 1 : 0);
  }
}

}  // namespace

std::vector<float> AdvanceDeclineLine(std::span<const float> advancers,
                                      std::span<const float> decliners) {
  std::vector<float> line(std::min(advancers.size(), decliners.size()));
  float sum = 0.0F;
  for (std::size_t i = 0; i < line.size(); ++i) {
    sum = sum + advancers[i] - decliners[i];
    line[i] = sum;
  }
  return line;
}

FamilyBreadth CountFamilyBreadth(const FamilyRecords& records) {
  const auto days = static_cast<std::size_t>(records.Days());
  FamilyBreadth breadth{std::vector<int>(days), std::vector<int>(days), std::vector<float>(days)};
  for (int member = 1; member <= records.Count(); ++member) {
    AddMember(records.Prices(member), breadth);
  }
  float sum = 0.0F;
  for (std::size_t i = 1; i < days; ++i) {
    sum = sum + static_cast<float>(breadth.advancers[i]) - static_cast<float>(breadth.decliners[i]);
    breadth.line[i] = sum;
  }
  return breadth;
}

}  // namespace vistaplot
