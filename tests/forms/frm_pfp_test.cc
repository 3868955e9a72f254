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
  int saves = 0;  // before the dialog

  /// Opens the dialog as the button does; `user` works it.
  void Open(const std::function<void()>& user) {
    Start();
    saves = settings.saves;
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

struct Frmpfp : testing::Test, BoxWorld {};

TEST_F(Frmpfp, ShowsTheParametersInUse) {
  settings.values["pfbox5"] = "0.025";
  settings.values["pfrev"] = "3";
  bool shown = false;
  Open([&] {
    shown = true;
    std::string texts;
    for (const TextBox& box : frmpfp.txtRange) texts += box.Text() + " ";
    for (const TextBox& box : frmpfp.txtBox) texts += box.Text() + " ";
    EXPECT_EQ(texts, "100 99.99 40 39.99 10 9.99 2.5 2.49 1 0.4 0.2 0.1 0.025 ");
    EXPECT_EQ(frmpfp.optReversal.ListIndex(), 2);
    frmpfp.cmdCancel.RaiseClick();
  });
  EXPECT_TRUE(shown);
  EXPECT_FALSE(frmpfp.Shown());
}

TEST_F(Frmpfp, LeavingALowerBoundKeepsTheRangesInStepOrTellsWhy) {
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
    world.Open([&] {
      world.Type(c.field, c.typed);
      EXPECT_EQ(world.Range(c.field), c.typed);  // a wrong value stays
      EXPECT_EQ(world.Range(c.follower), c.follows);
    });
    EXPECT_EQ(world.dialogs.Texts(), c.messages);
  }
}

TEST_F(Frmpfp, OkTakesTheValuesForThisRunAlone) {
  Open([&] {
    Type(0, "30");  // told, but taken
    frmpfp.txtBox[4].SetText(".075 each");
    frmpfp.optReversal.SetListIndex(2);
    frmpfp.cmdOK.RaiseClick();
  });
  EXPECT_FALSE(frmpfp.Shown());
  EXPECT_EQ(state.point_and_figure.PfRange[0], 30.0F);
  EXPECT_EQ(state.point_and_figure.PfBox[4], 0.075F);
  EXPECT_EQ(state.point_and_figure.PfReversal, 2);
  EXPECT_EQ(settings.saves, saves);
}

TEST_F(Frmpfp, SaveStoresTheTextsAtOnceAndNeitherTakesNorCloses) {
  Open([&] {
    frmpfp.txtRange[7].SetText("2.4900");
    frmpfp.txtBox[0].SetText("2");
    frmpfp.optReversal.SetListIndex(0);
    frmpfp.cmdSave.RaiseClick();
    EXPECT_TRUE(frmpfp.Shown());
    EXPECT_EQ(settings.saves, saves + 1);
    EXPECT_TRUE(screens.frmMain.pnlStatus.Caption().ends_with("for the next start"));
    settings.refuses = true;
    frmpfp.cmdSave.RaiseClick();
  });
  for (const auto& [key, text] : {std::pair("pfrange8", "2.4900"),
                                  {"pfrange1", "100"},
                                  {"pfbox1", "2"},
                                  {"pfbox5", "0.05"},
                                  {"pfrev", "1"}}) {
    EXPECT_EQ(settings.values[key], text);
  }
  EXPECT_EQ(state.point_and_figure.PfBox[0], 1.0F);
  EXPECT_EQ(state.point_and_figure.PfReversal, 1);
  EXPECT_EQ(dialogs.Texts(), (Texts{"Settings not saved: settings.ini: Disk full"}));
}

TEST_F(Frmpfp, NumberBeyondSinglePrecisionIsToldAndTheDialogStays) {
  Open([&] {
    frmpfp.txtBox[1].SetText("1e99");
    frmpfp.cmdOK.RaiseClick();
    EXPECT_TRUE(frmpfp.Shown());
  });
  EXPECT_EQ(dialogs.Texts(), (Texts{"error: 6 Overflow"}));
  EXPECT_EQ(state.point_and_figure.PfBox[1], 0.4F);
}

}  // namespace
}  // namespace vistaplot
