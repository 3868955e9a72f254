#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <random>

#include "import/family_records.h"

namespace vistaplot {
namespace {

/// The rule for one issue, written down as it is stated.
GrowthWalk PlainWalk(std::span<const float> p, int begin_day, int end_day) {
  GrowthWalk w;
  bool started = false;
  for (int day = begin_day + 2; day <= end_day; ++day) {
    const float today = p[static_cast<std::size_t>(day)];
    const float before = p[static_cast<std::size_t>(day - 1)];
    if (!started && !(today != before && before > 0.0F)) {
      continue;
    }
    if (!started) {
      started = true;
      w.first = day - 1;
    }
    const float ratio = today / before;
    w.growth = w.growth * ratio;
    if (w.growth > w.peak) {
      w.peak = w.growth;
    }
    const float of_peak = w.growth / w.peak;
    if (of_peak < w.lowest_ratio) {
      w.lowest_ratio = of_peak;
      w.lowest_day = day;
    }
    const float below = (w.growth - w.peak) * 100.0F / w.peak;
    w.square_sum = w.square_sum + below * below;
  }
  return w;
}

void ExpectSameBits(const GrowthWalk& a, const GrowthWalk& b) {
  const auto bits = [](float value) { return std::bit_cast<std::uint32_t>(value); };
  EXPECT_EQ(bits(a.growth), bits(b.growth));
  EXPECT_EQ(bits(a.peak), bits(b.peak));
  EXPECT_EQ(bits(a.lowest_ratio), bits(b.lowest_ratio));
  EXPECT_EQ(bits(a.square_sum), bits(b.square_sum));
  EXPECT_EQ(a.first, b.first);
  EXPECT_EQ(a.lowest_day, b.lowest_day);
}

/// Histories that start on any day or never, stand still for stretches, and turn negative once.
FamilyRecords RandomFamily(int count, int days, std::mt19937& random) {
  FamilyRecords records;
  records.Resize(count, days);
  std::uniform_int_distribution<int> any_day(1, days + 20);
  std::uniform_real_distribution<float> move(0.93F, 1.08F);
  for (int k = 1; k <= count; ++k) {
    const std::span<float> prices = records.Prices(k);
    const int start = k % 3 == 0 ? 1 : any_day(random);
    float price = 20.0F;
    for (int day = 0; day <= days; ++day) {
      price = random() % 4 == 0 ? price : price * move(random);
      prices[static_cast<std::size_t>(day)] = day < start ? -1.0F : price;
    }
    if (k == 5) {
      prices.back() = -3.5F;
    }
  }
  return records;
}

TEST(FamilyWalk, IssuesSideBySideHaveTheBitsOfThePlainLoop) {
  std::mt19937 random(20240607);
  for (const int count : {1, 4, 7, 8, 9, 30}) {
    for (const int days : {1, 2, 3, 9, 10, 11, 18, 400}) {
      const FamilyRecords records = RandomFamily(count, days, random);
      for (const int begin_day : {1, 2, days / 2 + 1}) {
        for (const int end_day : {days, days - days / 5}) {
          SCOPED_TRACE(testing::Message() << count << " issues, " << days << " days, " << begin_day
                                          << " to " << end_day);
          const auto walks = WalkGrowth(records, begin_day, end_day);
          ASSERT_EQ(walks.size(), static_cast<std::size_t>(count));
          for (int k = 1; k <= count; ++k) {
            const auto i = static_cast<std::size_t>(k - 1);
            const GrowthWalk expected = PlainWalk(records.Prices(k), begin_day, end_day);
            ExpectSameBits(walks[i], expected);
          }
        }
      }
    }
  }
}

TEST(FamilyWalk, EmptyFamilyHasNoWalks) {
  FamilyRecords records;
  records.Resize(0, 100);
  EXPECT_TRUE(WalkGrowth(records, 1, 100).empty());
}

}  // namespace
}  // namespace vistaplot
