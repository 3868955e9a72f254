#include "charts/kinds/candles.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>

#include "base/text.h"

namespace vistaplot {
namespace {

constexpr int kColumns = 4;          // of a fund
constexpr double kFundsPart = 0.9;   // of a row's width that several funds share
constexpr double kRoomyLines = 8.0;  // pixels from line to line
constexpr double kTickPart = 0.3;    // of the spacing: ticks of open and close
constexpr int kLeastHollow = 3;      // device pixels of a body that has an inside
constexpr double kHitReach = 2.0;    // beside a thin bar
constexpr double kLossShade =
    0.72;  // on light ground, so that bars a pixel wide differ without hue

// One fund's bar of one row.
struct Bar {
  double open = 0.0;
  double high = 0.0;
  double low = 0.0;
  double close = 0.0;
};

std::optional<Bar> BarAt(const ChartView& view, const DrawnSeries& fund, int row) {
  const int c = fund.y_column;
  for (int column = c; column < c + kColumns; ++column) {
    if (!view.HasPoint(row, column)) return std::nullopt;
  }
  return Bar{view.DataAt(row, c),
             view.DataAt(row, c + 1),
             view.DataAt(row, c + 2),
             view.DataAt(row, c + 3)};
}

int FundsOf(const ChartView& view) {
  return view.ColumnCount() / kColumns;
}

// Between two bodies: a pixel of a plain display, in device pixels.
int LeastGap(double ratio) {
  return std::max(1, static_cast<int>(ratio));
}

// The part of a row's width that each fund's bars have.
double SlotWidth(const ChartView& view) {
  const int funds = FundsOf(view);
  return funds > 1 ? kFundsPart / funds : 1.0;
}

// From the middle of a row to that of the fund's slot, in rows.
double SlotShift(const ChartView& view, const DrawnSeries& fund) {
  return (fund.number - 0.5 * (FundsOf(view) + 1)) * SlotWidth(view);
}

struct BarInks {
  PictureColor gain;
  PictureColor loss;
};

BarInks InksOf(const ChartView& view, const DrawnSeries& fund, const ChartTheme& theme) {
  if (FundsOf(view) > 1) {
    const PictureColor own = InkOn(theme, DefaultSeriesColor(fund.number));
    return {own, own};
  }
  const auto& colors = SettingsOf(view, fund.settings).HiLo;
  const PictureColor loss = InkOn(theme, colors.LossColor);
  return {InkOn(theme, colors.GainColor), theme.dark ? loss : Shaded(loss, kLossShade)};
}

bool IsLine(const ChartView& view, const DrawnSeries& fund) {
  return SettingsOf(view, fund.settings).SeriesType == kSeriesCandleLine;
}

// Draws the bars of one fund. Works in device pixels, so that edges are sharp at every scale.
class BarPainter {
 public:
  BarPainter(const DrawContext& context,
             const PlotScale& scale,
             const DrawnSeries& fund,
             ChartPicture& picture)
      : context_(context), scale_(scale), fund_(fund), picture_(picture) {
    const double row = (scale.X(2.0) - scale.X(1.0)) * context.detail;
    spacing_ = SlotWidth(context.view) * row;
    shift_ = SlotShift(context.view, fund) * row;
    wick_ = WickWidth();
    body_ = BodyWidth(spacing_, wick_, context.detail);
    inks_ = InksOf(context.view, fund, context.theme);
  }

  void Draw(int row, const Bar& bar) {
    const double center = scale_.X(row) * context_.detail + shift_;
    left_ = WickLeft(center);
    // Where a body would touch the one before it, its left edge gives way.
    const int before = WickLeft(center - spacing_) - (body_ - wick_) / 2 + body_;
    body_left_ = left_ - (body_ - wick_) / 2;
    if (body_ > wick_) {
      body_left_ = std::clamp(before + LeastGap(context_.detail), body_left_, left_);
    }
    ink_ = bar.close < bar.open ? inks_.loss : inks_.gain;
    if (IsLine(context_.view, fund_)) {
      DrawLine(bar);
    } else {
      DrawBody(bar);
    }
    AddRegion(row, bar);
  }

 private:
  int WickLeft(double center) const {
    return static_cast<int>(std::floor(center - 0.5 * wick_ + 0.5));
  }

  // One pixel, grown with the texts; the lines of a line chart are stronger where they have room.
  int WickWidth() const {
    const double pixel = std::max(1.0, std::floor(context_.scale)) * context_.detail;
    const bool strong = IsLine(context_.view, fund_) && spacing_ >= kRoomyLines * context_.detail;
    const int wanted = static_cast<int>(std::floor(strong ? 2.0 * pixel : pixel));
    return std::clamp(static_cast<int>(spacing_ / 3.0), 1, wanted);
  }

  int Pixel(double value) const {
    return static_cast<int>(std::lround(scale_.Y(value) * context_.detail));
  }

  void Fill(int left, int top, int right, int bottom, PictureColor color) {
    const double d = context_.detail;
    picture_.Add(FillBox{{left / d, top / d, right / d, bottom / d}, color});
  }

  // A vertical line from low to high, both included, with the ticks of open and close.
  void DrawLine(const Bar& bar) {
    Fill(left_, Pixel(bar.high), left_ + wick_, Pixel(bar.low) + wick_, ink_);
    const int tick = std::max(1, static_cast<int>(std::lround(kTickPart * spacing_)));
    Fill(left_ - tick, Pixel(bar.open), left_, Pixel(bar.open) + wick_, ink_);
    const int right = left_ + wick_;
    Fill(right, Pixel(bar.close), right + tick, Pixel(bar.close) + wick_, ink_);
  }

  void DrawBody(const Bar& bar) {
    const int top = Pixel(std::max(bar.open, bar.close));
    const int bottom = std::max(Pixel(std::min(bar.open, bar.close)), top + wick_);
    const int whole_left = left_ - (body_ - wick_) / 2;
    const int right = whole_left + body_;
    Fill(body_left_, top, right, bottom, ink_);
    const bool hollow = bar.close > bar.open && body_ >= kLeastHollow * wick_ &&
                        bottom - top >= kLeastHollow * wick_;
    if (hollow) {
      // A body that gave way is open at its left.
      Fill(whole_left + wick_,
           top + wick_,
           right - wick_,
           bottom - wick_,
           context_.theme.background);
    }
    if (Pixel(bar.high) < top) Fill(left_, Pixel(bar.high), left_ + wick_, top, ink_);
    if (Pixel(bar.low) > bottom) Fill(left_, bottom, left_ + wick_, Pixel(bar.low), ink_);
  }

  void AddRegion(int row, const Bar& bar) {
    const double d = context_.detail;
    const double half = std::max(0.5 * body_ / d, kHitReach);
    const double middle = (left_ + 0.5 * wick_) / d;
    picture_.regions.push_back({{middle - half,
                                 scale_.Y(bar.high) - kHitReach,
                                 middle + half,
                                 scale_.Y(bar.low) + kHitReach},
                                fund_.number,
                                row});
  }

  const DrawContext& context_;
  const PlotScale& scale_;
  const DrawnSeries& fund_;
  ChartPicture& picture_;
  double spacing_ = 1.0;  // from bar to bar of this fund's slot, device pixels
  double shift_ = 0.0;    // of the fund's slot from the row's middle
  int wick_ = 1;
  int body_ = 1;
  int left_ = 0;  // of the wick
  int body_left_ = 0;
  BarInks inks_;
  PictureColor ink_;
};

// What stands for the weeks that gained, or lost, in the legend; edges on whole units as the box's.
void AddSwatchLine(
    const PictureBox& box, double edge, PictureColor ink, bool gain, ChartPicture& picture) {
  const double left = box.left + std::floor((box.Width() - edge) / 2.0);
  const double high = box.top + edge;
  const double low = box.bottom - 2.0 * edge;
  const double open = gain ? low : high;
  const double close = gain ? high : low;
  picture.Add(FillBox{{left, box.top, left + edge, box.bottom}, ink});
  picture.Add(FillBox{{box.left, open, left, open + edge}, ink});
  picture.Add(FillBox{{left + edge, close, box.right, close + edge}, ink});
}

void AddSwatchBody(const PictureBox& box,
                   double edge,
                   PictureColor ink,
                   const PictureColor* inside,
                   ChartPicture& picture) {
  picture.Add(FillBox{box, ink});
  if (inside == nullptr) return;
  picture.Add(
      FillBox{{box.left + edge, box.top + edge, box.right - edge, box.bottom - edge}, *inside});
}

std::string WordsOf(const std::vector<ReadOutValue>& values) {
  constexpr const char* kWords[] = {"open ", " high ", " low ", " close "};
  std::string text;
  for (std::size_t i = 0; i < values.size(); ++i) text += kWords[i] + values[i].text;
  return text;
}

// The price alone; the last of the four says the change as well.
std::string WithoutChange(const ReadOutValue& value) {
  const std::size_t blank = value.text.find(' ');
  return blank == std::string::npos ? value.text : value.text.substr(0, blank);
}

class CandleKind : public Kind {
 public:
  std::vector<DrawnSeries> Series(const ChartView& view) const override {
    std::vector<DrawnSeries> funds;
    for (int k = 1; k <= FundsOf(view); ++k) {
      const int first = kColumns * (k - 1) + 1;
      funds.push_back({.number = k, .settings = first, .x_column = 0, .y_column = first});
    }
    return funds;
  }

  AxisRanges Values(const ChartView& view) const override {
    ValueRange values = EmptyRange();
    for (int c = 1; c <= FundsOf(view) * kColumns; ++c) IncludeFinite(values, view.ColumnData(c));
    // Half a row at both ends for the outer bars.
    return {{0.5, std::max(view.rowcount(), 1) + 0.5}, FixedOrMargin(view, values)};
  }

  void Draw(const DrawContext& context,
            const PlotScale& scale,
            ChartPicture& picture) const override {
    const ChartView& view = context.view;
    for (const DrawnSeries& fund : Series(view)) {
      BarPainter painter(context, scale, fund, picture);
      for (int row = 1; row <= view.rowcount(); ++row) {
        if (const auto bar = BarAt(view, fund, row)) painter.Draw(row, *bar);
      }
    }
  }

  void DrawSwatch(const DrawContext& context,
                  const DrawnSeries& fund,
                  const PictureBox& box,
                  ChartPicture& picture) const override {
    const BarInks inks = InksOf(context.view, fund, context.theme);
    const double edge = std::max(1.0, std::floor(context.scale));
    const double half = std::round(box.Height() * 0.28);
    const double middle = std::round((box.top + box.bottom) / 2.0);
    const double width = std::floor(box.Width() * 0.4);
    const PictureBox gain{box.left, middle - half, box.left + width, middle + half};
    const PictureBox loss{box.right - width, gain.top, box.right, gain.bottom};
    if (IsLine(context.view, fund)) {
      AddSwatchLine(gain, edge, inks.gain, true, picture);
      AddSwatchLine(loss, edge, inks.loss, false, picture);
    } else {
      AddSwatchBody(gain, edge, inks.gain, &context.theme.background, picture);
      AddSwatchBody(loss, edge, inks.loss, nullptr, picture);
    }
  }

  /// Every row up to the last that has a bar.
  StopList Stops(const ChartView& view) const override {
    const std::vector<DrawnSeries> funds = Series(view);
    int last = view.rowcount();
    const auto has_bar = [&](const DrawnSeries& fund) {
      return BarAt(view, fund, last).has_value();
    };
    while (last > 0 && std::none_of(funds.begin(), funds.end(), has_bar)) --last;
    return StopList::OfRows(last);
  }

  ReadOut ReadAt(const ChartView& view,
                 int row,
                 int /*column*/,
                 const ChartTheme& theme) const override {
    const std::string week(TrimBlanks(view.RowLabelAt(row)));
    ReadOut read_out{week, week, {}};
    for (const DrawnSeries& fund : Series(view)) {
      read_out.entries.push_back(ReadEntry(view, fund, row, theme));
    }
    return read_out;
  }

 private:
  static ReadOutEntry ReadEntry(const ChartView& view,
                                const DrawnSeries& fund,
                                int row,
                                const ChartTheme& theme) {
    const BarInks inks = InksOf(view, fund, theme);
    ReadOutEntry entry{.series = fund.number,
                       .mark = inks.gain,
                       .label = ReadOutName(view, fund),
                       .text = kNoReading,
                       .values = {},
                       .at = {}};
    const auto bar = BarAt(view, fund, row);
    if (!bar) return entry;
    if (bar->close < bar->open) entry.mark = inks.loss;
    constexpr const char* kNames[] = {" open", "high", "low", "close"};
    const double parts[] = {bar->open, bar->high, bar->low, bar->close};
    for (std::size_t i = 0; i < kColumns; ++i) {
      ReadOutValue value = ReadValue(view, fund, parts[i], false);
      value.name = i == 0 ? entry.label + kNames[i] : kNames[i];
      if (i + 1 < kColumns) value.text = WithoutChange(value);
      entry.values.push_back(std::move(value));
    }
    entry.text = WordsOf(entry.values);
    entry.at = PicturePoint{row + SlotShift(view, fund), bar->close};
    return entry;
  }
};

}  // namespace

int BodyWidth(double spacing, int wick, double ratio) {
  constexpr double kNarrow = 2.5;
  constexpr double kWide = 4.0;
  constexpr double kBetween = 3.0;
  constexpr double kFall = 0.2;
  const double plain = spacing / ratio;
  double width = spacing;
  if (plain >= kNarrow && plain < kWide) {
    width = kBetween * ratio;
  } else if (plain >= kWide) {
    width = spacing * (1.0 - kFall * std::atan(plain - kWide) * 2.0 / std::numbers::pi);
    width = std::min(width, spacing - LeastGap(ratio));
  }
  int whole = static_cast<int>(std::floor(std::min(width, spacing)));
  whole = std::max(whole, 1);
  if (whole > wick && (whole - wick) % 2 != 0) --whole;
  return std::max(whole, wick);
}

const Kind& Candles() {
  static const CandleKind kind;
  return kind;
}

}  // namespace vistaplot
