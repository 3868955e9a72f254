#include "forms/frm_fam.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "base/date.h"
#include "base/files.h"
#include "base/host_path.h"
#include "base/number_text.h"
#include "base/text.h"
#include "forms/date_boxes.h"
#include "marketdata/market_calendar.h"

namespace vistaplot {

namespace {

constexpr std::array<std::string_view, kGainPeriods> kGainKeys = {
    "gain1", "gain2", "gain3", "gain4", "gain5", "gain6"};
constexpr std::array<std::string_view, kGainPeriods> kDefaultGains = {
    "1", "5", "10", "15", "30", "50"};

std::string TextOr(const std::string& text, std::string_view fallback) {
  return text.empty() ? std::string(fallback) : text;
}

/// The day number in a setting that may hold it in any form, or a date. ShowDateOfDay does the
/// rest.
std::string DayOfSetting(const std::string& text, const MarketCalendar& calendar) {
  const auto entry = ParseDate(text) ? SnapDateEntry(text, calendar) : std::nullopt;
  return entry ? std::to_string(entry->day) : TextOr(text, "1");
}

/// The market day of a day box; the summary brings it into the calendar.
int DayOfBox(const TextBox& box) {
  return RoundHalfEven(std::clamp(LeadingNumber(box.Text()), 1.0, 32767.0));
}

}  // namespace

FrmFam::FrmFam(const Context& context)
    : Form("frmFam", "Family Analysis", FormStyle::kWindow, context.host), context_(context) {
  Add({{&lblbegdate, "lblbegdate", "Begin Date:", At(180, 210, 1200, 255)},
       {&txtbegDate, "txtbegDate", "", At(1440, 180, 1320, 330)},
       {&txtBegDate2, "txtBegDate2", "", At(2880, 180, 720, 330)},
       {&lblEndDate, "lblEndDate", "End Date:", At(180, 630, 1200, 255)},
       {&txtEndDate, "txtEndDate", "", At(1440, 600, 1320, 330)},
       {&txtEndDate2, "txtEndDate2", "", At(2880, 600, 720, 330)},
       {&lblDays, "lblDays", "Gain periods (market days):", At(180, 1080, 3420, 255)}});
  for (std::size_t i = 0; i < txtDays.size(); ++i) {
    const float left = 180.0F + 570.0F * static_cast<float>(i);
    Add({{&txtDays[i], "txtDays", "", At(left, 1380, 510, 330), nullptr, static_cast<int>(i)}});
    txtDays[i].SetDescription("Gain period " + std::to_string(i + 1) + " in market days");
  }
  Add({{&cmdOK, "cmdOK", "OK", At(480, 1920, 1320, 420)},
       {&cmdSave, "cmdSave", "Save", At(1980, 1920, 1320, 420)}});
  Add({{&lblBegNote, "lblBegNote", "", At(2880, 210, 2520, 255)},
       {&lblEndNote, "lblEndNote", "", At(2880, 630, 2520, 255)}});
  txtBegDate2.SetVisible(false);
  txtEndDate2.SetVisible(false);
  txtbegDate.LostFocus = [this] { txtbegDate_LostFocus(); };
  txtEndDate.LostFocus = [this] { txtEndDate_LostFocus(); };
  cmdOK.Click = [this] { cmdOK_Click(); };
  cmdSave.Click = [this] { cmdSave_Click(); };
}

void FrmFam::Form_Load() {
  const MarketCalendar& calendar = context_.state.market.calendar;
  lblBegNote.SetCaption("");
  lblEndNote.SetCaption("");
  txtEndDate2.SetText(std::to_string(calendar.MaxNumDays));
  txtBegDate2.SetText(DayOfSetting(context_.settings.Get("begdate"), calendar));
  ShowDateOfDay(txtbegDate, txtBegDate2, calendar);
  ShowDateOfDay(txtEndDate, txtEndDate2, calendar);
  for (std::size_t i = 0; i < txtDays.size(); ++i) {
    txtDays[i].SetText(TextOr(context_.settings.Get(kGainKeys[i]), kDefaultGains[i]));
  }
}

void FrmFam::txtbegDate_LostFocus() {
  CheckDateEntry(txtbegDate, txtBegDate2, context_.state.market.calendar, &lblBegNote);
}

void FrmFam::txtEndDate_LostFocus() {
  CheckDateEntry(txtEndDate, txtEndDate2, context_.state.market.calendar, &lblEndNote);
}

// A button that Enter pressed does not take the focus from the box.
void FrmFam::CheckDates() {
  txtbegDate_LostFocus();
  txtEndDate_LostFocus();
}

void FrmFam::cmdOK_Click() {
  CheckDates();
  Hide();
}

void FrmFam::cmdSave_Click() {
  CheckDates();
  std::vector<Setting> settings{{"begdate", txtBegDate2.Text()}};
  for (std::size_t i = 0; i < txtDays.size(); ++i) {
    settings.push_back({std::string(kGainKeys[i]), txtDays[i].Text()});
  }
  const Status saved = context_.settings.SaveAll(settings);
  if (!saved) context_.dialogs.Say("Settings not saved: " + PlainText(saved.Error()));
}

FamilyWindow FrmFam::Window() {
  CheckDates();
  FamilyWindow window{
      .begin_day = DayOfBox(txtBegDate2), .end_day = DayOfBox(txtEndDate2), .gain_days = {}};
  for (std::size_t i = 0; i < txtDays.size(); ++i) window.gain_days[i] = txtDays[i].Text();
  return window;
}

FrmDir::FrmDir(const Context& context)
    : Form("frmDir", "Choose a directory", FormStyle::kDialog, context.host), context_(context) {
  Add({{&lblDirectory, "lblDirectory", "", At(180, 180, 6240, 255)},
       {&Drive1, "Drive1", "", At(180, 540, 6240, 330)},
       {&Dir1, "Dir1", "", At(180, 960, 6240, 3300)},
       {&cmdOK, "cmdOK", "OK", At(2640, 4380, 1320, 420)}});
  Drive1.SetDescription("Drive");
  Dir1.SetDescription("Directory");
  Drive1.content = TextContent::kDrive;
  Dir1.content = TextContent::kFolder;
  Drive1.Change = [this] { Drive1_Change(); };
  cmdOK.Click = [this] { cmdOK_Click(); };
}

void FrmDir::Form_Load() {
  Drive1.SetText("");
  Dir1.SetText("");
}

void FrmDir::Drive1_Change() {
  // A drive that cannot be read leaves the directory as it was, without a word.
  const std::string_view drive = TrimBlanks(Drive1.Text());
  if (drive.size() != 2 || drive[1] != ':') return;
  const std::string root = std::string(drive) + "/";
  if (FolderExists(HostPath(root, context_.state.roots))) Dir1.SetText(root);
}

void FrmDir::cmdOK_Click() {
  if (!(Dir1.Text() > " ") || !FolderExists(HostPath(Dir1.Text(), context_.state.roots))) {
    context_.dialogs.Say("Please choose a directory");
    return;
  }
  context_.state.directories.ChosenDir = Dir1.Text();
  Unload();
}

}  // namespace vistaplot
