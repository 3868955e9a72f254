// Parameter files (*.SPA): all inputs of the signal summary in one record of 327 bytes.
// docs/formats/spa.md has every byte.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "base/records.h"

namespace vistaplot {

/// The inputs as plain values. Texts in UTF-8; as read they have the width of their field, padded
/// with blanks.
struct SignalParameters {
  bool makes_signal_fnu = false;    ///< chkCompFile
  bool makes_composite = false;     ///< chkCompSigFile
  bool makes_detail = false;        ///< chkSigDetFile
  bool is_two_dimensional = false;  ///< chkSigRange
  bool makes_summary = false;       ///< chkSigSumFile
  std::string composite_path = {};  ///< txtCompSigFile
  std::string fnu_path = {};        ///< txtCompFile
  std::string fnu_symbol = {};      ///< txtCompSymbol
  std::string fnu_title = {};       ///< txtCompTitle
  std::string detail_path = {};     ///< txtSigDetFile
  std::string family_path = {};     ///< txtSigFamFile
  std::string in_fund = {};         ///< txtSigInFund
  std::string out_fund = {};        ///< txtSigOutFund
  std::int16_t buy_from = 0;        ///< txtSigRange 0
  std::int16_t buy_to = 0;          ///< txtSigRange 1
  std::int16_t sell_from = 0;       ///< txtSigRange 2
  std::int16_t sell_to = 0;         ///< txtSigRange 3
  std::string summary_path = {};    ///< txtSigSumFile
  std::int16_t start_day = 1;       ///< market day, txtStartDate2
  std::int16_t delay = 1;           ///< market days, txtDelay
};

/// A field and the member of SignalParameters that it holds; numbers are signed, low byte first.
struct ParameterField {
  FixedField field;
  std::variant<bool SignalParameters::*,
               std::int16_t SignalParameters::*,
               std::string SignalParameters::*>
      member;
};

// clang-format off
inline constexpr std::array<ParameterField, 20> kParameterFields{{
    {{"signal FNU", 0, 2}, &SignalParameters::makes_signal_fnu},
    {{"composite signal file", 2, 2}, &SignalParameters::makes_composite},
    {{"detail file", 4, 2}, &SignalParameters::makes_detail},
    {{"two-dimensional test", 6, 2}, &SignalParameters::is_two_dimensional},
    {{"summary file", 8, 2}, &SignalParameters::makes_summary},
    {{"path of the composite signal file", 10, 50}, &SignalParameters::composite_path},
    {{"path of the signal FNU", 60, 50}, &SignalParameters::fnu_path},
    {{"symbol of the signal FNU", 110, 5}, &SignalParameters::fnu_symbol},
    {{"title of the signal FNU", 115, 40}, &SignalParameters::fnu_title},
    {{"path of the detail file", 155, 50}, &SignalParameters::detail_path},
    {{"path of the signal family", 205, 50}, &SignalParameters::family_path},
    {{"In Market Fund", 255, 5}, &SignalParameters::in_fund},
    {{"Out of Market Fund", 260, 5}, &SignalParameters::out_fund},
    {{"buy from", 265, 2}, &SignalParameters::buy_from},
    {{"buy to", 267, 2}, &SignalParameters::buy_to},
    {{"sell from", 269, 2}, &SignalParameters::sell_from},
    {{"sell to", 271, 2}, &SignalParameters::sell_to},
    {{"path of the summary file", 273, 50}, &SignalParameters::summary_path},
    {{"start day", 323, 2}, &SignalParameters::start_day},
    {{"delay", 325, 2}, &SignalParameters::delay},
}};
// clang-format on

inline constexpr std::size_t kParameterRecordSize = 327;

/// A file of up to so many bytes is older and has neither a start day nor a delay.
inline constexpr std::size_t kOldParameterSize = 323;

/// The parameters in a file's bytes. Fields of which the bytes hold nothing keep the value that
/// `current` has, a text that is cut is what there is of it, a number that is cut counts as
/// missing; start day and delay are 1 where they are missing. A check value other than 0 is set.
SignalParameters ReadParameters(std::string_view bytes, const SignalParameters& current);

/// The record of 327 bytes; texts are cut or padded to their fields. `too_long` gets the names of
/// the fields whose text did not fit.
std::string ParameterBytes(const SignalParameters& parameters,
                           std::vector<std::string_view>& too_long);

}  // namespace vistaplot
