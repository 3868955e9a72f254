#include "controls/form.h"

#include <gtest/gtest.h>

#include <array>

#include "controls/value_controls.h"
#include "support/silent_host.h"

namespace vistaplot {
namespace {

class SmallForm : public Form {
 public:
  explicit SmallForm(FormHost& host) : Form("frmSmall", "Small", FormStyle::kDialog, host) {
    Add({{&box, "txtBox", "", At(10, 20, 30, 40)},
         {&days[0], "txtDays", "", {100.0F, {}, {}, {}}, nullptr, 0},
         {&days[1], "txtDays", "", {}, nullptr, 1}});
  }

  TextBox box;
  std::array<TextBox, 2> days;
  int loads = 0;

 protected:
  void Form_Load() override {
    ++loads;
    ScaleControls(*this, kDesignWidth, kDesignHeight, Host().Display());
  }
};

TEST(Form, TwiceTheDisplayDoublesWhatAControlHas) {
  test::SilentHost host;
  host.display = {.width = 19200.0F, .height = 21600.0F};
  SmallForm form(host);
  form.Load();
  EXPECT_EQ(form.box.Where(), At(20, 60, 60, 120));
  EXPECT_EQ(form.days[0].Where(), (Place{200.0F, {}, {}, {}}));
  EXPECT_EQ(form.days[1].Where(), Place{});
}

TEST(Form, DesignSizeTouchesNothing) {
  test::SilentHost host;
  SmallForm form(host);
  form.Load();
  EXPECT_EQ(form.box.Where(), At(10, 20, 30, 40));
}

TEST(Form, LoadedAgainItIsScaledFromItsDesignNotFromItsLastSize) {
  test::SilentHost host;
  host.display = {.width = 19200.0F, .height = 14400.0F};
  SmallForm form(host);
  form.Show();
  form.Show();
  EXPECT_EQ(form.loads, 1);
  form.Unload();
  EXPECT_FALSE(form.Shown());
  form.Load();
  EXPECT_EQ(form.loads, 2);
  EXPECT_EQ(form.box.Where(), At(20, 40, 60, 80));
}

TEST(Form, FindsControlsByNameAndIndexWithCaseIgnored) {
  test::SilentHost host;
  SmallForm form(host);
  EXPECT_EQ(form.Find("TXTBOX"), &form.box);
  EXPECT_EQ(form.Find("txtdays", 1), &form.days[1]);
  EXPECT_EQ(form.Find("txtDays"), nullptr);
  EXPECT_EQ(form.Find("txtDays", 2), nullptr);
  EXPECT_EQ(form.Find("txtBox", 0), nullptr);
}

TEST(Form, ModalFormReturnsOnceTheUserClosedIt) {
  test::SilentHost host;
  SmallForm form(host);
  host.on_modal = [](Form& shown) { shown.Unload(); };
  form.ShowModal();
  EXPECT_FALSE(form.Loaded());
  EXPECT_EQ(host.front, nullptr);
}

}  // namespace
}  // namespace vistaplot
