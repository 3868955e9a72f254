#include "forms/indicator_boxes.h"

#include <cstddef>
#include <string_view>
#include <utility>

#include "base/number_text.h"

namespace vistaplot {

namespace {

// Places in twips: rows from the top of the screen on, parameters in a column at its right edge.
constexpr float kLeft = 5910.0F;
constexpr float kRight = 9420.0F;
constexpr float kTop = 60.0F;
constexpr float kPitch = 294.0F;  // ten rows end above the list
constexpr float kHeight = 276.0F;
constexpr float kBoxWidth = 630.0F;
constexpr float kGap = 75.0F;
constexpr float kBoxLeft = kRight - kBoxWidth;
constexpr float kLabelLeft = kRight - 3.0F * kBoxWidth - 2.0F * kGap;  // as the first of three
constexpr float kLabelWidth = kBoxLeft - kGap - kLabelLeft;

float RowTop(int row) {
  return kTop + kPitch * static_cast<float>(row);
}

/// A check box that ends before `right`.
Place CheckAt(int row, float right) {
  return At(kLeft, RowTop(row), right - kGap - kLeft, kHeight);
}

Place LabelAt(int row) {
  return At(kLabelLeft, RowTop(row), kLabelWidth, kHeight);
}

Place BoxAt(int row) {
  return At(kBoxLeft, RowTop(row), kBoxWidth, kHeight);
}

/// Box `number` of three side by side.
Place ThirdAt(int row, int number) {
  const float left = kLabelLeft + static_cast<float>(number) * (kBoxWidth + kGap);
  return At(left, RowTop(row), kBoxWidth, kHeight);
}

double NumberIn(const TextBox& box) {
  return LeadingNumber(box.Text());
}

}  // namespace

std::vector<Design> IndicatorBoxes::Designs() {
  return {
      {&chkMoveAvg, "chkMoveAvg", "Show Exp Moving Avg          # days", CheckAt(0, kBoxLeft)},
      {&chkAMA, "chkAMA", "Show AMA                               # days", CheckAt(1, kBoxLeft)},
      {&chkParabolic, "chkParabolic", "Show Parabolic", CheckAt(3, kLabelLeft)},
      {&chkBollinger, "chkBollinger", "Show Bollinger Bands", CheckAt(4, kLabelLeft)},
      {&chkHurst, "chkHurst", "Show Hurst Exponent", CheckAt(5, kLabelLeft)},
      {&chkCorrelation, "chkCorrelation", "Show Correlation", CheckAt(7, kLabelLeft)},
      {&chkMem, "chkMem", "Show MEM", CheckAt(8, kLabelLeft)},
      {&txtMoveAvg, "txtMoveAvg", "", BoxAt(0)},
      {&txtAMA, "txtAMA", "", BoxAt(1)},
      {&lblParabolic,
       "lblParabolic",
       "Start     Maximum    Accel",
       At(kLabelLeft, RowTop(2) + 39.0F, kRight - kLabelLeft, 255.0F)},
      {&txtPBStart, "txtPBStart", "", ThirdAt(3, 0)},
      {&txtPBMax, "txtPBMax", "", ThirdAt(3, 1)},
      {&txtPBAcc, "txtPBAcc", "", ThirdAt(3, 2)},
      {&lblBollinger, "lblBollinger", "# of days", LabelAt(4)},
      {&txtBollinger, "txtBollinger", "", BoxAt(4)},
      {&lblHurstDays, "lblHurstDays", "Period", LabelAt(5)},
      {&txtHurstDays, "txtHurstDays", "", BoxAt(5)},
      {&lblHurstPeriod, "lblHurstPeriod", "# of Subperiods", LabelAt(6)},
      {&txtHurstPeriod, "txtHurstPeriod", "", BoxAt(6)},
      {&lblCorrPeriod, "lblCorrPeriod", "Period", LabelAt(7)},
      {&txtCorrPeriod, "txtCorrPeriod", "", BoxAt(7)},
      {&lblMemPeriod, "lblMemPeriod", "Max Period", LabelAt(8)},
      {&txtMemPeriod, "txtMemPeriod", "", BoxAt(8)},
      {&lblMemPoles, "lblMemPoles", "# of Poles", LabelAt(9)},
      {&txtMemPoles, "txtMemPoles", "", BoxAt(9)}};
}

void IndicatorBoxes::SetHelpTopics() {
  struct Topic {
    std::string_view heading;
    std::vector<Control*> controls;
  };
  for (const Topic& topic : std::initializer_list<Topic>{
           {"Exponential moving average", {&chkMoveAvg, &txtMoveAvg}},
           {"Adaptive moving average (AMA)", {&chkAMA, &txtAMA}},
           {"Parabolic stop", {&chkParabolic, &txtPBStart, &txtPBMax, &txtPBAcc}},
           {"Bollinger bands", {&chkBollinger, &txtBollinger}},
           {"Hurst exponent", {&chkHurst, &txtHurstDays, &txtHurstPeriod}},
           {"Correlation", {&chkCorrelation, &txtCorrPeriod}},
           {"Maximum entropy (MEM)", {&chkMem, &txtMemPeriod, &txtMemPoles}}}) {
    for (Control* control : topic.controls) control->SetHelpTopic(topic.heading);
  }
}

void IndicatorBoxes::SetDefaults() {
  struct Preset {
    TextBox* box;
    std::string_view text;
    std::string_view description;  ///< for assistive tools: captions name the unit alone
  };
  const std::array<Preset, 11> presets = {
      {{&txtMoveAvg, "50", "Exponential moving average, days"},
       {&txtAMA, "150", "Adaptive moving average, days"},
       {&txtPBStart, "0.02", "Parabolic stop, start"},
       {&txtPBMax, "0.2", "Parabolic stop, maximum"},
       {&txtPBAcc, "0.0001", "Parabolic stop, acceleration"},
       {&txtBollinger, "20", "Bollinger bands, days"},
       {&txtHurstDays, "100", "Hurst exponent, days"},
       {&txtHurstPeriod, "5", "Hurst exponent, number of subperiods"},
       {&txtCorrPeriod, "50", "Correlation, days"},
       {&txtMemPeriod, "50", "Maximum entropy, longest period in days"},
       {&txtMemPoles, "15", "Maximum entropy, number of poles"}}};
  for (const Preset& preset : presets) {
    preset.box->SetText(preset.text);
    preset.box->SetDescription(preset.description);
  }
}

std::array<CheckBox*, 7> IndicatorBoxes::CheckBoxes() {
  return {&chkMoveAvg, &chkAMA, &chkParabolic, &chkBollinger, &chkHurst, &chkCorrelation, &chkMem};
}

std::array<CheckBox*, 4> IndicatorBoxes::Overlays() {
  return {&chkMoveAvg, &chkAMA, &chkParabolic, &chkBollinger};
}

void IndicatorBoxes::Show(bool shown) {
  for (const Design& design : Designs()) design.control->SetVisible(shown);
}

void IndicatorBoxes::ClearAll() {
  for (CheckBox* box : CheckBoxes()) box->SetChecked(false);
}

void IndicatorBoxes::ClearOverlays() {
  for (CheckBox* box : Overlays()) box->SetChecked(false);
}

bool IndicatorBoxes::AnalysisTicked() const {
  return chkMem.Checked() || chkHurst.Checked() || chkCorrelation.Checked();
}

IndicatorNumbers::Mem IndicatorBoxes::MemNumbers() const {
  return {.longest_period = NumberIn(txtMemPeriod), .poles = NumberIn(txtMemPoles)};
}

IndicatorNumbers IndicatorBoxes::Numbers() const {
  IndicatorNumbers numbers;
  if (chkMoveAvg.Checked()) numbers.average = NumberIn(txtMoveAvg);
  if (chkAMA.Checked()) numbers.adaptive = NumberIn(txtAMA);
  if (chkParabolic.Checked()) {
    numbers.parabolic = ParabolicSteps{.start = static_cast<float>(NumberIn(txtPBStart)),
                                       .most = static_cast<float>(NumberIn(txtPBMax)),
                                       .increase = static_cast<float>(NumberIn(txtPBAcc))};
  }
  if (chkBollinger.Checked()) numbers.bands = NumberIn(txtBollinger);
  if (chkHurst.Checked()) {
    numbers.hurst = {.days = NumberIn(txtHurstDays), .subperiods = NumberIn(txtHurstPeriod)};
  }
  if (chkCorrelation.Checked()) numbers.correlation = NumberIn(txtCorrPeriod);
  if (chkMem.Checked()) numbers.mem = MemNumbers();
  return numbers;
}

}  // namespace vistaplot
