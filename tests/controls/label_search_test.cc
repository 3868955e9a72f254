#include <gtest/gtest.h>

#include "controls/list_controls.h"
#include "controls/value_controls.h"
#include "support/silent_host.h"

namespace vistaplot {
namespace {

/// Captions on the left of boxes and above them, and places where none fits.
class LabelledForm : public Form {
 public:
  explicit LabelledForm(FormHost& host) : Form("frmLabels", "", FormStyle::kScreen, host) {
    Add({{&find, "lblFind", "Find:", At(180, 210, 1200, 255)},
         {&text, "txtFind", "", At(1440, 180, 1320, 330)},
         {&beside, "txtBeside", "", At(2880, 180, 720, 330)},
         {&below, "lstBelow", "", At(180, 540, 3000, 1200)},
         {&average, "chkAverage", "Average", At(180, 1800, 1800, 300)},
         {&days, "txtDays", "", At(2040, 1785, 600, 330)},
         {&files, "lblFiles", "Files:", At(180, 2400, 2400, 255)},
         {&list, "lstFiles", "", At(180, 2670, 2400, 3000)},
         {&shares, "lblShares", "Shares:", At(3000, 2400, 2400, 510)},
         {&first, "txtFirst", "", At(3000, 2925, 600, 330)},
         {&second, "txtSecond", "", At(3700, 2925, 600, 330)},
         {&far, "lblFar", "Far:", At(3000, 4500, 600, 255)},
         {&away, "txtAway", "", At(8000, 4500, 600, 330)},
         {&frame, "fraInner", "Inner", At(3000, 5000, 3000, 600)},
         {&outer, "lblOuter", "Outer:", At(1900, 5100, 1000, 255)},
         {&inner, "txtInner", "", At(3010, 5100, 600, 330), &frame}});
  }

  /// The caption found for a control; empty when there is none.
  std::string LabelOf(const Control& control) const {
    const auto found = FindLabels(*this);
    const auto label = found.find(&control);
    return label == found.end() ? "" : label->second->Caption();
  }

  Label find, files, shares, far, outer;
  TextBox text, beside, days, first, second, away, inner;
  CheckBox average;
  ListBox below, list;
  Frame frame;
};

TEST(LabelSearch, TheCaptionOnTheLeftOrAboveIsFound) {
  test::SilentHost host;
  const LabelledForm form(host);
  EXPECT_EQ(form.LabelOf(form.text), "Find:");
  EXPECT_EQ(form.LabelOf(form.days), "Average");
  EXPECT_EQ(form.LabelOf(form.list), "Files:");
  EXPECT_EQ(form.LabelOf(form.first), "Shares:");
  EXPECT_EQ(form.LabelOf(form.second), "Shares:");
  for (const Control* bare : {static_cast<const Control*>(&form.beside),  // behind another box
                              static_cast<const Control*>(&form.below),   // below a taken label
                              static_cast<const Control*>(&form.away),
                              static_cast<const Control*>(&form.inner)}) {  // in its own frame
    EXPECT_EQ(form.LabelOf(*bare), "") << bare->Name();
  }
}

TEST(LabelSearch, HiddenAndEmptyLabelsAndHiddenNeighboursDoNotCount) {
  test::SilentHost host;
  LabelledForm form(host);
  form.text.SetVisible(false);
  EXPECT_EQ(form.LabelOf(form.beside), "");  // too far away
  form.beside.SetPlace(At(1500, 180, 720, 330));
  EXPECT_EQ(form.LabelOf(form.beside), "Find:");
  form.find.SetCaption(" ");
  EXPECT_EQ(form.LabelOf(form.beside), "");
  form.files.SetVisible(false);
  EXPECT_EQ(form.LabelOf(form.list), "");
}

TEST(LabelSearch, AScaledScreenKeepsItsLabels) {
  test::SilentHost host;
  LabelledForm form(host);
  for (Control* control : form.Controls()) {
    const Place at = control->Where();
    control->SetPlace(At(*at.Left * 3.0F, *at.Top * 2.25F, *at.Width * 3.0F, *at.Height * 2.25F));
  }
  EXPECT_EQ(form.LabelOf(form.text), "Find:");
  EXPECT_EQ(form.LabelOf(form.list), "Files:");
  EXPECT_EQ(form.LabelOf(form.below), "");
}

}  // namespace
}  // namespace vistaplot
