#include "forms/calc_frames.h"

#include <initializer_list>

namespace vistaplot {

namespace {

constexpr float kBoxHeight = 330.0F;
constexpr float kLabelDrop = 45.0F;  ///< a label's text stands as high as that of the box beside it
constexpr float kPick = 360.0F;      ///< width of the buttons that open a chooser

// The three frames of series stand side by side, each of five rows.
constexpr float kSeriesTop = 60.0F;
constexpr float kSeriesHeight = 2340.0F;
constexpr float kSeriesWidth = 3090.0F;
constexpr float kRowStep = 390.0F;

/// A place in a frame of series: its column of three, its row of five, the left edge in the frame.
Place InSeries(int column, int row, float left, float width, float height = kBoxHeight) {
  return At(90.0F + 3150.0F * static_cast<float>(column) + left,
            kSeriesTop + 300.0F + kRowStep * static_cast<float>(row),
            width,
            height);
}

Place SeriesLabel(int column, int row, float left = 120.0F, float width = 990.0F) {
  Place place = InSeries(column, row, left, width, 255.0F);
  place.Top = *place.Top + kLabelDrop;
  return place;
}

Place SeriesFrame(int column) {
  return At(90.0F + 3150.0F * static_cast<float>(column), kSeriesTop, kSeriesWidth, kSeriesHeight);
}

constexpr float kBoxLeft = 1110.0F;
constexpr float kBoxWidth = 1860.0F;
constexpr float kPickedWidth = kBoxWidth - kPick - 30.0F;  ///< of a box with a chooser beside it
constexpr float kPickLeft = kBoxLeft + kPickedWidth + 30.0F;
constexpr float kCalcLeft = 1740.0F;
constexpr float kCalcWidth = 1230.0F;
constexpr float kNoteWidth = 1590.0F;

// Rows of the signal summary.
constexpr float kSigTop = 2460.0F;
constexpr float kSigFirst = 2760.0F;

void Append(std::vector<Design>& all, const std::vector<Design>& more) {
  all.insert(all.end(), more.begin(), more.end());
}

}  // namespace

std::vector<Design> ExchangeFrame::Designs() {
  cmdADFile.SetDescription("Choose the advance/decline file");
  Frame* const in = &fraAdvDec;
  return {
      {&fraAdvDec, "fraAdvDec", "NYSE Advance/Decline FNU", SeriesFrame(0)},
      {&lblADFile, "lblADFile", "FNU File:", SeriesLabel(0, 0), in},
      {&txtADFile, "txtADFile", "", InSeries(0, 0, kBoxLeft, kPickedWidth), in},
      {&cmdADFile, "cmdADFile", "...", InSeries(0, 0, kPickLeft, kPick), in},
      {&lblADTitle, "lblADTitle", "FNU Title:", SeriesLabel(0, 1), in},
      {&txtADTitle, "txtADTitle", "", InSeries(0, 1, kBoxLeft, kBoxWidth), in},
      {&lblADSymbol, "lblADSymbol", "FNU Symbol:", SeriesLabel(0, 2), in},
      {&txtADSymbol, "txtADSymbol", "", InSeries(0, 2, kBoxLeft, 900.0F), in},
      {&cmdAD, "cmdAD", "Calc FNU", InSeries(0, 4, kCalcLeft, kCalcWidth), in},
      {&lblADNote, "lblADNote", "", InSeries(0, 3, 120.0F, kNoteWidth, 720.0F), in},
  };
}

std::vector<Design> FamilyFrame::Designs() {
  cmdADFamFam.SetDescription("Choose the family");
  cmdADFamFile.SetDescription("Choose the file of the family's line");
  Frame* const in = &fraADFam;
  return {
      {&fraADFam, "fraADFam", "Family Advance/Decline FNU", SeriesFrame(1)},
      {&lblADFamFam, "lblADFamFam", "Family:", SeriesLabel(1, 0), in},
      {&txtADFamFam, "txtADFamFam", "", InSeries(1, 0, kBoxLeft, kPickedWidth), in},
      {&cmdADFamFam, "cmdADFamFam", "...", InSeries(1, 0, kPickLeft, kPick), in},
      {&lblADFamFile, "lblADFamFile", "FNU File:", SeriesLabel(1, 1), in},
      {&txtADFamFile, "txtADFamFile", "", InSeries(1, 1, kBoxLeft, kPickedWidth), in},
      {&cmdADFamFile, "cmdADFamFile", "...", InSeries(1, 1, kPickLeft, kPick), in},
      {&lblADFamTitle, "lblADFamTitle", "FNU Title:", SeriesLabel(1, 2), in},
      {&txtADFamTitle, "txtADFamTitle", "", InSeries(1, 2, kBoxLeft, kBoxWidth), in},
      {&lblADFamSymbol, "lblADFamSymbol", "FNU Symbol:", SeriesLabel(1, 3), in},
      {&txtADFamSymbol, "txtADFamSymbol", "", InSeries(1, 3, kBoxLeft, 900.0F), in},
      {&cmdADFam, "cmdADFam", "Calc FNU", InSeries(1, 4, kCalcLeft, kCalcWidth), in},
      {&lblADFamNote, "lblADFamNote", "", InSeries(1, 4, 120.0F, kNoteWidth), in},
  };
}

std::vector<Design> BetaFrame::Designs() {
  cmdFnuFile.SetDescription("Choose the file of the series");
  txtBeta.SetText("-1");
  txtFnuNav.SetText("100");
  Frame* const in = &FraBeta;
  return {
      {&FraBeta, "FraBeta", "FNU Beta", SeriesFrame(2)},
      {&lblFnuFile, "lblFnuFile", "FNU File:", SeriesLabel(2, 0), in},
      {&txtFnuFile, "txtFnuFile", "", InSeries(2, 0, kBoxLeft, kPickedWidth), in},
      {&cmdFnuFile, "cmdFnuFile", "...", InSeries(2, 0, kPickLeft, kPick), in},
      {&lblFnuTitle, "lblFnuTitle", "FNU Title:", SeriesLabel(2, 1), in},
      {&txtFnuTitle, "txtFnuTitle", "", InSeries(2, 1, kBoxLeft, kBoxWidth), in},
      {&lblFnuSymbol, "lblFnuSymbol", "FNU Symbol:", SeriesLabel(2, 2), in},
      {&txtFnuSymbol, "txtFnuSymbol", "", InSeries(2, 2, kBoxLeft, 900.0F), in},
      {&lblBeta, "lblBeta", "Beta:", SeriesLabel(2, 3), in},
      {&txtBeta, "txtBeta", "", InSeries(2, 3, kBoxLeft, 480.0F), in},
      {&lblFnuNav, "lblFnuNav", "Start NAV:", SeriesLabel(2, 3, 1650.0F, 780.0F), in},
      {&txtFnuNav, "txtFnuNav", "", InSeries(2, 3, 2430.0F, 540.0F), in},
      {&CmdBetaFnu, "CmdBetaFnu", "Calc FNU", InSeries(2, 4, kCalcLeft, kCalcWidth), in},
      {&lblFnuNote, "lblFnuNote", "", InSeries(2, 4, 120.0F, kNoteWidth), in},
  };
}

std::vector<Design> SignalFrame::Designs() {
  std::vector<Design> all = {
      {&fraSigFam, "fraSigFam", "Signal Summary", At(90, kSigTop, 9390, 4650)}};
  Append(all, SignalDesigns());
  Append(all, FundDesigns());
  Append(all, ThresholdDesigns());
  Append(all, FileDesigns());
  Append(all,
         {{&lblSigNote, "lblSigNote", "", At(3810, 6390, 3000, 600), &fraSigFam},
          {&cmdLoadParms, "cmdLoadParms", "Load Parameters", At(6900, 6180, 1200, 360), &fraSigFam},
          {&cmdSaveParms, "cmdSaveParms", "Save Parameters", At(8160, 6180, 1200, 360), &fraSigFam},
          {&cmdSigSum, "cmdSigSum", "Calc Sig Sum", At(6900, 6600, 2460, 420), &fraSigFam}});
  return all;
}

std::vector<Design> SignalFrame::SignalDesigns() {
  for (ListBox* list : {&lstSigfiles, &lstSigFam}) {
    list->multi_select = true;
    list->fixed_pitch = true;
  }
  cmdSigFamFile.SetDescription("Choose and load a signal family file");
  CmdSaveSigFam.SetDescription("Save the chosen signal files as a signal family");
  Frame* const in = &fraSigFam;
  return {
      {&lblSigfiles, "lblSigfiles", "Signal files:", At(210, kSigFirst, 1290, 255), in},
      {&lstSigfiles, "lstSigfiles", "", At(210, 3030, 1290, 3150), in},
      {&CmdAddSig, "CmdAddSig", "Add", At(1560, 3900, 780, 360), in},
      {&cmdRemSig, "cmdRemSig", "Remove", At(1560, 4350, 780, 360), in},
      {&lblSigFam, "lblSigFam", "Combined:", At(2400, kSigFirst, 1290, 255), in},
      {&lstSigFam, "lstSigFam", "", At(2400, 3030, 1290, 3150), in},
      {&lblSigFamFile, "lblSigFamFile", "Signal Family File:", At(210, 6285, 3000, 255), in},
      {&txtSigFamFile, "txtSigFamFile", "", At(210, 6600, 2310, kBoxHeight), in},
      {&cmdSigFamFile, "cmdSigFamFile", "...", At(2550, 6600, kPick, kBoxHeight), in},
      {&CmdSaveSigFam, "CmdSaveSigFam", "Save", At(2940, 6600, 750, kBoxHeight), in},
  };
}

std::vector<Design> SignalFrame::FundDesigns() {
  txtStartDate2.SetVisible(false);
  txtEndDate2.SetVisible(false);
  txtDelay.SetText("1");
  Frame* const in = &fraSigFam;
  return {
      {&lblSigInFund, "lblSigInFund", "In Market Fund:", At(3810, kSigFirst, 1500, 255), in},
      {&txtSigInFund, "txtSigInFund", "", At(3810, 3030, 1260, kBoxHeight), in},
      {&lblSigOutFund, "lblSigOutFund", "Out of Market Fund:", At(3810, 3450, 1500, 255), in},
      {&txtSigOutFund, "txtSigOutFund", "", At(3810, 3720, 1260, kBoxHeight), in},
      {&lblStartDate, "lblStartDate", "Start Date", At(3810, 4140, 1500, 255), in},
      {&txtStartDate, "txtStartDate", "", At(3810, 4410, 1260, kBoxHeight), in},
      {&txtStartDate2, "txtStartDate2", "", At(5100, 4410, 240, kBoxHeight), in},
      {&lblEndDate, "lblEndDate", "End Date", At(3810, 4830, 1500, 255), in},
      {&txtEndDate, "txtEndDate", "", At(3810, 5100, 1260, kBoxHeight), in},
      {&txtEndDate2, "txtEndDate2", "", At(5100, 5100, 240, kBoxHeight), in},
      {&lblDelay, "lblDelay", "Delay", At(3810, 5520, 1500, 255), in},
      {&txtDelay, "txtDelay", "", At(3810, 5790, 540, kBoxHeight), in},
  };
}

std::vector<Design> SignalFrame::ThresholdDesigns() {
  constexpr std::array<std::string_view, 4> kTexts = {"1", "10", "1", "10"};
  constexpr std::array<std::string_view, 4> kNames = {
      "Buy signals from", "Buy signals to", "Sell signals from", "Sell signals to"};
  Frame* const in = &fraSigFam;
  std::vector<Design> all = {
      {&chkSigRange, "chkSigRange", "2D Test Range", At(5430, 3030, 1410, 300), in}};
  constexpr std::array<std::string_view, 4> kCaptions = {
      "Buy and Sell Range", " to", " to", "       Sell Range"};
  const std::array labels = {At(5430, 3450, 1410, 255),
                             At(5940, 3765, 330, 255),
                             At(5940, 4455, 330, 255),
                             At(5430, 4140, 1410, 255)};
  const std::array boxes = {At(5430, 3720, 480, kBoxHeight),
                            At(6300, 3720, 480, kBoxHeight),
                            At(5430, 4410, 480, kBoxHeight),
                            At(6300, 4410, 480, kBoxHeight)};
  for (const int i : {0, 1, 3, 2}) {
    const auto at = static_cast<std::size_t>(i);
    all.push_back({&lblSigRange[at], "lblSigRange", kCaptions[at], labels[at], in, i});
  }
  for (int i = 0; i < 4; ++i) {
    const auto at = static_cast<std::size_t>(i);
    all.push_back({&txtSigRange[at], "txtSigRange", "", boxes[at], in, i});
    txtSigRange[at].SetText(kTexts[at]);
    txtSigRange[at].SetDescription(kNames[at]);
    lblSigRange[at].SetVisible(i < 2);
    txtSigRange[at].SetVisible(i < 2);
  }
  return all;
}

std::vector<Design> SignalFrame::FileDesigns() {
  Frame* const in = &fraSigFam;
  return {
      {&chkSigSumFile, "chkSigSumFile", "Make Sig Sum File:", At(6900, kSigFirst, 2460, 270), in},
      {&txtSigSumFile, "txtSigSumFile", "", At(6900, 3030, 2460, kBoxHeight), in},
      {&chkSigDetFile, "chkSigDetFile", "Make Detail File:", At(6900, 3420, 2460, 270), in},
      {&txtSigDetFile, "txtSigDetFile", "", At(6900, 3690, 2460, kBoxHeight), in},
      {&chkCompSigFile, "chkCompSigFile", "Make Comp Sig File:", At(6900, 4080, 2460, 270), in},
      {&txtCompSigFile, "txtCompSigFile", "", At(6900, 4350, 2460, kBoxHeight), in},
      {&chkCompFile, "chkCompFile", "Make Signal FNU:", At(6900, 4740, 2460, 270), in},
      {&txtCompFile, "txtCompFile", "", At(6900, 5010, 2460, kBoxHeight), in},
      {&lblCompTitle, "lblCompTitle", "Signal FNU Title:", At(6900, 5445, 1320, 255), in},
      {&txtCompTitle, "txtCompTitle", "", At(8220, 5400, 1140, kBoxHeight), in},
      {&lblCompSymbol, "lblCompSymbol", "Signal FNU Symbol: ", At(6900, 5835, 1320, 255), in},
      {&txtCompSymbol, "txtCompSymbol", "", At(8220, 5790, 1140, kBoxHeight), in},
  };
}

}  // namespace vistaplot
