#include "forms/frm_pfp.h"

#include <cmath>
#include <cstddef>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "base/number_text.h"
#include "forms/screens.h"

namespace vistaplot {

namespace {

// Keys of the eight bounds of the price ranges, highest first, and of the five box sizes.
constexpr std::array<std::string_view, 8> kRangeKeys = {
    "pfrange1", "pfrange2", "pfrange3", "pfrange4", "pfrange5", "pfrange6", "pfrange7", "pfrange8"};
constexpr std::array<std::string_view, 5> kBoxKeys = {
    "pfbox1", "pfbox2", "pfbox3", "pfbox4", "pfbox5"};
// Key of the reversal: "1" one box, "2" three, "3" five.
constexpr std::string_view kReversalKey = "pfrev";

constexpr std::array<float, 8> kDefaultRanges = {
    100.0F, 99.99F, 40.0F, 39.99F, 10.0F, 9.99F, 2.5F, 2.49F};
constexpr std::array<float, 5> kDefaultBoxes = {1.0F, 0.4F, 0.2F, 0.1F, 0.05F};
constexpr float kDefaultReversal = 2.0F;
constexpr double kLargestSingle = std::numeric_limits<float>::max();

float ReadNumber(const Settings& settings, std::string_view key, float fallback) {
  const auto number = WholeNumber(settings.Get(key));
  const bool held = number && std::abs(*number) <= kLargestSingle;
  return held ? static_cast<float>(*number) : fallback;
}

constexpr const char* kNotAboveNext = "Value must to greater than next range";
constexpr const char* kNotBelowPrevious = "Value must to less than previous range";
constexpr double kBelow = 0.01;  ///< from a lower bound to the upper one of the range below it

constexpr int kLowerBoundOfTop = 0;
constexpr int kLowerBoundOfBottom = 6;

float RowTop(std::size_t range) {
  return 1020.0F + 420.0F * static_cast<float>(range);
}

template <std::size_t N>
std::array<float, N> Numbers(const std::array<TextBox, N>& boxes) {
  std::array<float, N> numbers{};
  for (std::size_t i = 0; i < N; ++i) {
    numbers[i] = static_cast<float>(LeadingNumber(boxes[i].Text()));
  }
  return numbers;
}

template <std::size_t N>
bool AllFinite(const std::array<float, N>& numbers) {
  for (const float number : numbers) {
    if (!std::isfinite(number)) return false;
  }
  return true;
}

}  // namespace

PointAndFigureSettings ReadPointAndFigureSettings(const Settings& settings) {
  PointAndFigureSettings read;
  for (std::size_t i = 0; i < kRangeKeys.size(); ++i) {
    read.PfRange[i] = ReadNumber(settings, kRangeKeys[i], kDefaultRanges[i]);
  }
  for (std::size_t i = 0; i < kBoxKeys.size(); ++i) {
    read.PfBox[i] = ReadNumber(settings, kBoxKeys[i], kDefaultBoxes[i]);
  }
  const float stored = ReadNumber(settings, kReversalKey, kDefaultReversal);
  const bool known = stored >= 1.0F && stored <= 3.0F;
  const float option = known ? stored : kDefaultReversal;
  read.PfReversal = static_cast<std::int16_t>(RoundHalfEven(static_cast<double>(option)) - 1);
  return read;
}

Frmpfp::Frmpfp(const Context& context)
    : Form("frmpfp", "Point and Figure Parameters", FormStyle::kDialog, context.host),
      context_(context) {
  Add({{&lblTitle, "lblTitle", "POINT AND FIGURE PARAMETERS", At(360, 180, 4320, 255)},
       {&lblRanges, "lblRanges", "Nav ranges", At(360, 660, 2520, 255)},
       {&lblBoxValue, "lblBoxValue", "Box Value", At(3600, 660, 1080, 255)}});
  DesignRanges();
  Add({{&fraReversal, "fraReversal", "Box Reversal", At(360, 3240, 4320, 840)},
       {&optReversal, "optReversal", "", At(510, 3540, 4020, 420), &fraReversal},
       {&cmdOK, "cmdOK", "OK", At(360, 4260, 1320, 420)},
       {&cmdSave, "cmdSave", "Save", At(1860, 4260, 1320, 420)},
       {&cmdCancel, "cmdCancel", "Cancel", At(3360, 4260, 1320, 420)}});
  optReversal.SetEntries({"1 box", "3 box", "5 box"});
  optReversal.Preset(1);
  for (std::size_t i = 0; i < txtRange.size(); ++i) {
    txtRange[i].LostFocus = [this, i] { txtRange_LostFocus(static_cast<int>(i)); };
  }
  cmdOK.Click = [this] { cmdOK_Click(); };
  cmdSave.Click = [this] { cmdSave_Click(); };
  cmdCancel.Click = [this] { cmdCancel_Click(); };
  for (Control* control : Controls()) control->SetHelpTopic("Point and figure");
}

// A row a range: its bounds, lower one first, and its box value. The form's order is the table's.
void Frmpfp::DesignRanges() {
  struct Row {
    int left;   ///< field on the left
    int right;  ///< field behind the word; -1: none
    const char* word;
  };
  constexpr std::array<Row, 5> kRows = {
      {{0, -1, " and up"}, {2, 1, "to"}, {4, 3, "to"}, {6, 5, "to"}, {7, -1, "and lower"}}};
  for (std::size_t i = 0; i < kRows.size(); ++i) {
    const float top = RowTop(i);
    const Row& row = kRows[i];
    const auto add_bound = [&](int field, float left, const std::string& description) {
      TextBox& box = txtRange[static_cast<std::size_t>(field)];
      Add({{&box, "txtRange", "", At(left, top, 1080, 330), nullptr, field}});
      box.SetDescription(description);
    };
    const std::string range = "range " + std::to_string(i + 1);
    const bool two = row.right >= 0;
    add_bound(row.left, 360.0F, (row.left == 7 ? "Upper bound of " : "Lower bound of ") + range);
    Add({{&lblRange[i],
          "lblRange",
          row.word,
          At(1500, top + 45.0F, two ? 240 : 1200, 255),
          nullptr,
          static_cast<int>(i)}});
    if (two) add_bound(row.right, 1800.0F, "Upper bound of " + range);
    Add({{&txtBox[i], "txtBox", "", At(3600, top, 1080, 330), nullptr, static_cast<int>(i)}});
    txtBox[i].SetDescription("Box value of " + range);
  }
}

void Frmpfp::ShowParameters() {
  const PointAndFigureSettings& used = context_.state.point_and_figure;
  for (std::size_t i = 0; i < txtRange.size(); ++i) {
    txtRange[i].SetText(NumberText(used.PfRange[i]));
  }
  for (std::size_t i = 0; i < txtBox.size(); ++i) txtBox[i].SetText(NumberText(used.PfBox[i]));
  optReversal.SetListIndex(used.PfReversal);
}

double Frmpfp::Range(int index) const {
  return LeadingNumber(txtRange[static_cast<std::size_t>(index)].Text());
}

void Frmpfp::SetUpperBound(int index) {
  txtRange[static_cast<std::size_t>(index + 1)].SetText(
      NumberText(static_cast<float>(Range(index) - kBelow)));
}

void Frmpfp::txtRange_LostFocus(int index) {
  if (index % 2 != 0) return;  // an upper bound follows its neighbour
  const bool above_next = index == kLowerBoundOfBottom || Range(index + 2) < Range(index);
  const bool below_previous = index == kLowerBoundOfTop || !(Range(index - 2) < Range(index));
  if (index == kLowerBoundOfBottom && !below_previous) {
    context_.dialogs.Say(kNotBelowPrevious);
    return;
  }
  if (!above_next) {
    context_.dialogs.Say(kNotAboveNext);
    return;
  }
  SetUpperBound(index);
  if (!below_previous) context_.dialogs.Say(kNotBelowPrevious);
}

void Frmpfp::cmdOK_Click() {
  const std::array<float, 8> ranges = Numbers(txtRange);
  const std::array<float, 5> boxes = Numbers(txtBox);
  if (!AllFinite(ranges) || !AllFinite(boxes)) {
    context_.dialogs.Say("error: 6 Overflow");
    return;
  }
  PointAndFigureSettings& used = context_.state.point_and_figure;
  used.PfRange = ranges;
  for (std::size_t i = 0; i < boxes.size(); ++i) used.PfBox[i] = boxes[i];
  used.PfReversal = static_cast<std::int16_t>(optReversal.ListIndex());
  Unload();
}

void Frmpfp::cmdSave_Click() {
  std::vector<Setting> settings;
  for (std::size_t i = 0; i < txtRange.size(); ++i) {
    settings.push_back({std::string(kRangeKeys[i]), txtRange[i].Text()});
  }
  for (std::size_t i = 0; i < txtBox.size(); ++i) {
    settings.push_back({std::string(kBoxKeys[i]), txtBox[i].Text()});
  }
  settings.push_back({std::string(kReversalKey), std::to_string(optReversal.ListIndex() + 1)});
  const Status saved = context_.settings.SaveAll(settings);
  if (!saved) return context_.dialogs.Say("Settings not saved: " + PlainText(saved.Error()));
  context_.screens.frmMain.TellSaved("the point and figure parameters for the next start");
}

void Frmpfp::cmdCancel_Click() {
  Unload();
}

}  // namespace vistaplot
