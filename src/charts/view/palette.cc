#include "charts/view/palette.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace vistaplot {
namespace {

// Ordered so that the first few differ in hue, in lightness and under the three kinds of colour
// blindness (blue, vermilion, bluish green, ... after Okabe and Ito, darkened for thin lines).
constexpr std::array<ChartColor, 10> kSeriesColors = {{{0, 98, 178},
                                                       {213, 78, 18},
                                                       {0, 146, 112},
                                                       {189, 84, 154},
                                                       {226, 152, 0},
                                                       {74, 168, 222},
                                                       {122, 74, 38},
                                                       {96, 82, 168},
                                                       {126, 136, 26},
                                                       {104, 112, 122}}};

int Blend(int from, int to, double part) {
  return static_cast<int>(std::lround(from + (to - from) * part));
}

ChartColor BlendTo(const ChartColor& color, int level, double part) {
  return {Blend(color.red, level, part),
          Blend(color.green, level, part),
          Blend(color.blue, level, part)};
}

std::uint8_t Byte(int level) {
  return static_cast<std::uint8_t>(std::clamp(level, 0, 255));
}

// Perceived lightness, 0 to 255 (weights of ITU-R BT.601).
double Luma(const ChartColor& color) {
  return 0.299 * color.red + 0.587 * color.green + 0.114 * color.blue;
}

PictureColor Painted(const ChartColor& color) {
  return {Byte(color.red), Byte(color.green), Byte(color.blue)};
}

// Relative luminance of a colour in sRGB, 0 to 1.
double Luminance(const PictureColor& color) {
  const auto linear = [](std::uint8_t level) {
    const double part = level / 255.0;
    return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(color.red) + 0.7152 * linear(color.green) + 0.0722 * linear(color.blue);
}

}  // namespace

ChartColor DefaultSeriesColor(int s) {
  const int index = std::max(s, 1) - 1;
  const int kinds = static_cast<int>(kSeriesColors.size());
  const ChartColor& color = kSeriesColors[static_cast<std::size_t>(index % kinds)];
  switch (index / kinds % 3) {
    case 1:
      return BlendTo(color, 255, 0.40);
    case 2:
      return BlendTo(color, 0, 0.42);
    default:
      return color;
  }
}

ChartTheme LightTheme() {
  return {.background = {255, 255, 255},
          .title = {28, 36, 46},
          .label = {82, 94, 108},
          .guide = {226, 230, 235},
          .guide_zero = {138, 148, 160},
          .axis = {110, 122, 136},
          .dark = false};
}

ChartTheme DarkTheme() {
  return {.background = {24, 27, 32},
          .title = {232, 235, 239},
          .label = {168, 177, 188},
          .guide = {48, 54, 62},
          .guide_zero = {104, 114, 126},
          .axis = {128, 138, 150},
          .dark = true};
}

double Contrast(const PictureColor& one, const PictureColor& other) {
  const double a = Luminance(one) + 0.05;
  const double b = Luminance(other) + 0.05;
  return std::max(a, b) / std::min(a, b);
}

PictureColor InkOn(const ChartTheme& theme, const ChartColor& color) {
  constexpr double kDarkestOnDark = 120.0;
  constexpr double kStep = 0.02;
  ChartColor ink = color;
  const double luma = Luma(color);
  if (theme.dark && luma < kDarkestOnDark) {
    ink = BlendTo(color, 255, (kDarkestOnDark - luma) / (255.0 - luma));
  }
  const ChartColor start = ink;
  for (double part = kStep; part <= 1.0; part += kStep) {
    if (Contrast(Painted(ink), theme.background) >= kLeastContrast) break;
    ink = BlendTo(start, theme.dark ? 255 : 0, part);
  }
  return Painted(ink);
}

PictureColor PaleInk(const ChartTheme& theme, const PictureColor& ink, double part) {
  constexpr double kStep = 0.05;
  PictureColor pale = ink;
  for (; part > 0.0; part -= kStep) {
    pale = {Byte(Blend(ink.red, theme.background.red, part)),
            Byte(Blend(ink.green, theme.background.green, part)),
            Byte(Blend(ink.blue, theme.background.blue, part)),
            ink.alpha};
    if (Contrast(pale, theme.background) >= kLeastContrast) return pale;
  }
  return ink;
}

PictureColor Shaded(PictureColor color, double factor) {
  const auto part = [factor](std::uint8_t level) {
    return static_cast<std::uint8_t>(std::lround(std::clamp(level * factor, 0.0, 255.0)));
  };
  return {part(color.red), part(color.green), part(color.blue), color.alpha};
}

}  // namespace vistaplot
