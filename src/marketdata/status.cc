#include "marketdata/status.h"

#include <array>
#include <string>
#include <utility>

#include "quoteline/quoteline.h"

namespace vistaplot {
namespace {

constexpr std::array<std::pair<std::int32_t, std::string_view>, 10> kTexts{{
    {QL_NO_DATABASE, "unable to open database file"},
    {QL_DATABASE_CORRUPT, "database file corrupt"},
    {QL_BAD_INI, "bad INI file"},
    {QL_BAD_SYMBOLS, "bad symbols file"},
    {QL_NO_SUCH_ISSUE, "no such issue"},
    {QL_ISSUE_CORRUPT, "issue corrupt"},
    {QL_SYMBOLS_MISMATCH, "symbols file-database mismatch"},
    {QL_OUT_OF_BOUNDS, "index out of bounds"},
    {QL_GENERAL_FAILURE, "general failure"},
    {QL_SYSTEM_FAILURE, "system failure"},
}};

}  // namespace

std::string_view QuotelineErrorText(std::int32_t status) {
  for (const auto& [code, text] : kTexts) {
    if (code == status) {
      return text;
    }
  }
  return {};
}

void ReportQuotelineError(std::int32_t status,
                          std::string_view message,
                          bool fatal,
                          Dialogs& dialogs) {
  if (status >= 0) {
    return;
  }
  std::string text(message);
  text += '\r';
  text += QuotelineErrorText(status);
  text += "\r(error " + std::to_string(status) + ")";
  dialogs.ShowMessage({.text = std::move(text), .title = "Error", .buttons = Buttons::kOk});
  if (fatal) {
    dialogs.EndProgram(true);
  }
}

}  // namespace vistaplot
