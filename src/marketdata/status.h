// The service's status codes as texts, and the box that reports them.
#pragma once

#include <cstdint>
#include <string_view>

#include "base/dialogs.h"

namespace vistaplot {

/// The text of a status code; empty for a code that has none.
std::string_view QuotelineErrorText(std::int32_t status);

/// Nothing when `status` is 0 or positive. Else a box titled "Error" of three parts with a carriage
/// return between them: `message`, the code's text, "(error <status>)". When `fatal`, the program
/// ends after the box: callers return at once.
void ReportQuotelineError(std::int32_t status,
                          std::string_view message,
                          bool fatal,
                          Dialogs& dialogs);

}  // namespace vistaplot
