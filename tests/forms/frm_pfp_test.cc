#include "forms/frm_pfp.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/screen_world.h"

namespace vistaplot {
namespace {

using test::ScreenWorld;
using Texts = std::vector<std::string>;

constexpr const char* kNext = "Value must to greater than next range";
constexpr const char* kPrevious = "Value must to less than previous range";

struct BoxWorld : ScreenWorld {
  Frmpfp& frmpfp = screens.frmpfp;

  /// Opens the dialog as the button does; `user` works it.
  void Open(const std::function<void()>& user) {
    host.on_modal = [user](Form&) { user(); };
    screens.frmTab.cboGraphType.SetListIndex(4);
    screens.frmTab.cmdPoint.RaiseClick();
  }

  void Type(int field, const std::string& text) {
    TextBox& box = frmpfp.txtRange[static_cast<std::size_t>(field)];
    box.SetText(text);
    box.RaiseLostFocus();
  }

  std::string Range(int field) { return frmpfp.txtRange[static_cast<std::size_t>(field)].Text(); }
};

TEST(Frmpfp, ShowsTheParametersInUse) {
  BoxWorld world;
  world.settings.values["pfbox5"] = "0.025";
  world.settings.values["pfrev"] = "3";
  world.Start();
  bool shown = false;
  world.Open([&] {
    shown = true;
    Texts texts;
    for (const TextBox& box : world.frmpfp.txtRange) texts.push_back(box.Text());
    for (const TextBox& box : world.frmpfp.txtBox) texts.push_back(box.Text());
    EXPECT_EQ(texts,
              (Texts{"100",
                     "99.99",
                     "40",
                     "39.99",
                     "10",
                     "9.99",
                     "2.5",
                     "2.49",
                     "1",
                     "0.4",
                     "0.2",
                     "0.1",
                     "0.025"}));
    EXPECT_EQ(world.frmpfp.optReversal.ListIndex(), 2);
    world.frmpfp.cmdCancel.RaiseClick();
  });
  EXPECT_TRUE(shown);
  EXPECT_FALSE(world.frmpfp.Shown());
}

TEST(Frmpfp, LeavingALowerBoundKeepsTheRangesInStepOrTellsWhy) {
  struct Case {
    int field;
    const char* typed;
    int follower;  // the upper bound below it
    const char* follows;
    Texts messages;
  };
  const std::vector<Case> cases = {
      {0, "120", 1, "119.99", {}},
      {0, "30", 1, "99.99", {kNext}},
      {0, "40", 1, "99.99", {kNext}},
      {2, "50", 3, "49.99", {}},
      {2, "5", 3, "39.99", {kNext}},
      {2, "100.5", 3, "100.49", {kPrevious}},  // above both: the follower moves all the same
      {2, "100", 3, "99.99", {}},              // as high as the bound above is not above it
      {4, "0.5", 5, "9.99", {kNext}},
      {4, "12.5", 5, "12.49", {}},
      {6, "3", 7, "2.99", {}},
      {6, "10", 7, "9.99", {}},
      {6, "10.01", 7, "2.49", {kPrevious}},
      {6, "abc", 7, "-0.01", {}},
      {1, "5", 1, "5", {}},  // upper bounds are not looked at
      {7, "77", 7, "77", {}}};
  for (const Case& c : cases) {
    SCOPED_TRACE(std::to_string(c.field) + " " + c.typed);
    BoxWorld world;
    world.Start();
    world.Open([&] {
      world.Type(c.field, c.typed);
      EXPECT_EQ(world.Range(c.field), c.typed);  // a wrong value stays
      EXPECT_EQ(world.Range(c.follower), c.follows);
    });
    EXPECT_EQ(world.dialogs.Texts(), c.messages);
  }
}

TEST(Frmpfp, OkTakesTheValuesForThisRunAlone) {
  BoxWorld world;
  world.Start();
  const int saves = world.settings.saves;
  world.Open([&] {
    world.Type(0, "30");  // told, but taken
    world.frmpfp.txtBox[4].SetText(".075 each");
    world.frmpfp.optReversal.SetListIndex(2);
    world.frmpfp.cmdOK.RaiseClick();
  });
  EXPECT_FALSE(world.frmpfp.Shown());
  EXPECT_EQ(world.state.point_and_figure.PfRange[0], 30.0F);
  EXPECT_EQ(world.state.point_and_figure.PfBox[4], 0.075F);
  EXPECT_EQ(world.state.point_and_figure.PfReversal, 2);
  EXPECT_EQ(world.settings.saves, saves);
}

TEST(Frmpfp, SaveStoresTheTextsAtOnceAndNeitherTakesNorCloses) {
  BoxWorld world;
  world.Start();
  const int saves = world.settings.saves;
  world.Open([&] {
    world.frmpfp.txtRange[7].SetText("2.4900");
    world.frmpfp.txtBox[0].SetText("2");
    world.frmpfp.optReversal.SetListIndex(0);
    world.frmpfp.cmdSave.RaiseClick();
    EXPECT_TRUE(world.frmpfp.Shown());
    EXPECT_EQ(world.settings.saves, saves + 1);
    EXPECT_TRUE(world.screens.frmMain.pnlStatus.Caption().ends_with("for the next start"));
    world.settings.refuses = true;
    world.frmpfp.cmdSave.RaiseClick();
  });
  EXPECT_EQ(world.settings.values["pfrange8"], "2.4900");
  EXPECT_EQ(world.settings.values["pfrange1"], "100");
  EXPECT_EQ(world.settings.values["pfbox1"], "2");
  EXPECT_EQ(world.settings.values["pfbox5"], "0.05");
  EXPECT_EQ(world.settings.values["pfrev"], "1");
  EXPECT_EQ(world.state.point_and_figure.PfBox[0], 1.0F);
  EXPECT_EQ(world.state.point_and_figure.PfReversal, 1);
  EXPECT_EQ(world.dialogs.Texts(), (Texts{"Settings not saved: settings.ini: Disk full"}));
}

TEST(Frmpfp, NumberBeyondSinglePrecisionIsToldAndTheDialogStays) {
  BoxWorld world;
  world.Start();
  world.Open([&] {
    world.frmpfp.txtBox[1].SetText("1e99");
    world.frmpfp.cmdOK.RaiseClick();
    EXPECT_TRUE(world.frmpfp.Shown());
  });
  EXPECT_EQ(world.dialogs.Texts(), (Texts{"error: 6 Overflow"}));
  EXPECT_EQ(world.state.point_and_figure.PfBox[1], 0.4F);
}

}  // namespace
}  // namespace vistaplot
