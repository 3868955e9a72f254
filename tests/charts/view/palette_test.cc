#include "charts/view/palette.h"

#include <gtest/gtest.h>

namespace vistaplot {
namespace {

TEST(Palette, ContrastIsThatOfTheGuidelines) {
  EXPECT_NEAR(Contrast({0, 0, 0}, {255, 255, 255}), 21.0, 1e-9);
  EXPECT_NEAR(Contrast({255, 255, 255}, {119, 119, 119}), 4.48, 0.005);
  EXPECT_EQ(Contrast({9, 9, 9}, {9, 9, 9}), 1.0);
}

TEST(Palette, EveryColourIsSeenOnBothGrounds) {
  for (const ChartTheme& theme : {LightTheme(), DarkTheme()}) {
    for (int s = 1; s <= 60; ++s) {
      EXPECT_GE(Contrast(InkOn(theme, DefaultSeriesColor(s)), theme.background), kLeastContrast)
          << s << (theme.dark ? " dark" : " light");
    }
    for (const ChartColor& pure : {ChartColor{0, 0, 255},
                                   ChartColor{255, 0, 0},
                                   ChartColor{0, 255, 10},
                                   ChartColor{255, 10, 0}}) {
      const PictureColor ink = InkOn(theme, pure);
      EXPECT_GE(Contrast(ink, theme.background), kLeastContrast);
      // Its hue stays: the channel that led still leads.
      EXPECT_EQ(pure.blue == 255, ink.blue > ink.red && ink.blue > ink.green);
      EXPECT_EQ(pure.green == 255, ink.green > ink.red && ink.green > ink.blue);
    }
  }
}

TEST(Palette, AColourThatIsSeenStaysAsTheBuilderSetIt) {
  EXPECT_EQ(InkOn(LightTheme(), {0, 98, 178}), (PictureColor{0, 98, 178, 255}));
}

}  // namespace
}  // namespace vistaplot
