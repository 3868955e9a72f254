#include <gtest/gtest.h>

#include "charts/kinds/value_range.h"

namespace vistaplot {
namespace {

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

TEST(ValueMarks, MarksCoverTheRangeAndHitZeroExactly) {
  const std::vector<ValueMark> marks = RoundMarks(-0.07, 0.21, 6, ValueUnit::kChange);
  std::string texts;
  for (const ValueMark& mark : marks) texts += mark.text + (mark.zero ? "! " : " ");
  EXPECT_EQ(texts, "−5% 0%! +5% +10% +15% +20% ");
  EXPECT_EQ(marks[1].value, 0.0);
  EXPECT_EQ(RoundMarks(0.96, 1.07, 5, ValueUnit::kRatio)[1].text, "0%");
}

}  // namespace
}  // namespace vistaplot
