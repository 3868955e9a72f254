#include "charts/kinds/value_bands.h"

#include <gtest/gtest.h>

#include <cmath>

#include "charts/kinds/value_range.h"

namespace vistaplot {
namespace {

TEST(ValueBands, HaveRoundStepsAndAboutTenOfThem) {
  struct Case {
    double lowest, highest, first, step;
    int count;
  };
  for (const Case& c : {Case{0, 10, 0, 1, 10},
                        Case{3.1, 21.7, 2.5, 2.5, 8},
                        Case{-0.02, 0.074, -0.02, 0.01, 10},
                        Case{1000, 1250, 1000, 25, 10},
                        Case{0, 6, 0, 0.5, 12}}) {
    const ValueBands bands = BandsOf(c.lowest, c.highest);
    EXPECT_NEAR(bands.first, c.first, 1e-12);
    EXPECT_DOUBLE_EQ(bands.step, c.step);
    EXPECT_EQ(bands.count, c.count);
  }
  for (double highest = 1.01; highest < 10.0; highest += 0.173) {
    const ValueBands bands = BandsOf(0.37, highest);
    EXPECT_GE(bands.count, 6) << highest;
    EXPECT_LE(bands.count, 13) << highest;
    EXPECT_LE(bands.LowerLimit(0), 0.37);
    EXPECT_GE(bands.LowerLimit(bands.count), highest);
  }
}

TEST(ValueBands, ValuesOnALimitBelongToTheBandAbove) {
  const ValueBands bands = BandsOf(0, 10);
  EXPECT_EQ(bands.BandOf(3.0), 3);
  EXPECT_EQ(bands.BandOf(2.999), 2);
  EXPECT_EQ(bands.BandOf(10.0), 9);
  EXPECT_EQ(bands.BandOf(-5.0), 0);
  EXPECT_EQ(BandsOf(4, 4).count, 1);
}

double Luminance(PictureColor color) {
  const auto linear = [](int level) {
    const double part = level / 255.0;
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(color.red) + 0.7152 * linear(color.green) + 0.0722 * linear(color.blue);
}

TEST(RampColor, LightnessRisesSteadilyAndKeepsClearOfTheGround) {
  for (const bool dark : {false, true}) {
    double before = -1.0;
    for (int i = 0; i <= 20; ++i) {
      const double light = Luminance(RampColor(i / 20.0, dark));
      EXPECT_GT(light, before);
      before = light;
    }
  }
  const double paper = 1.0;
  EXPECT_GE((paper + 0.05) / (Luminance(RampColor(1.0, false)) + 0.05), 1.3);
  const double night = Luminance({24, 27, 32});
  EXPECT_GE((Luminance(RampColor(0.0, true)) + 0.05) / (night + 0.05), 1.3);
}

TEST(ValueMarks, StepsAreRound) {
  struct Case {
    double span;
    int most;
    double step;
  };
  for (const Case& c : {Case{1.0, 10, 0.1},
                        Case{0.45, 9, 0.05},
                        Case{2.3, 10, 0.25},
                        Case{47.0, 5, 10.0},
                        Case{60000.0, 8, 10000.0},
                        Case{0.009, 4, 0.0025},
                        Case{3.0, 1, 5.0}}) {
    EXPECT_DOUBLE_EQ(RoundStep(c.span, c.most), c.step) << c.span << " in " << c.most;
  }
}

TEST(ValueMarks, TextsSayWhatTheValuesAre) {
  struct Case {
    double value;
    double step;
    ValueUnit unit;
    const char* text;
  };
  for (const Case& c : {Case{0.1, 0.1, ValueUnit::kChange, "+10%"},
                        Case{0.0, 0.025, ValueUnit::kChange, "0%"},
                        Case{-0.025, 0.025, ValueUnit::kChange, "−2.5%"},
                        Case{350.0, 50.0, ValueUnit::kChange, "+35000%"},
                        Case{1.1, 0.1, ValueUnit::kRatio, "+10%"},
                        Case{0.95, 0.05, ValueUnit::kRatio, "−5%"},
                        Case{0.5, 0.25, ValueUnit::kPlain, "0.50"},
                        Case{-3.0, 1.0, ValueUnit::kPlain, "−3"},
                        Case{2.5e6, 5e5, ValueUnit::kPlain, "2.5M"},
                        Case{5e5, 5e5, ValueUnit::kPlain, "500000"}}) {
    EXPECT_EQ(MarkText(c.value, c.step, c.unit), c.text);
  }
}

}  // namespace
}  // namespace vistaplot
