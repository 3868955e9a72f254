// FNU files (*.FNU): a symbol, a title and one value a day, as the program and others write them.
// docs/formats/fnu.md describes the lines.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/date.h"
#include "base/result.h"

namespace vistaplot {

struct FnuValue {
  DateSerial date = 0;
  float value = 0.0F;
};

struct FnuFile {
  std::string symbol;            ///< upper case, 1 to 5 ASCII characters without blanks
  std::string title;             ///< UTF-8; may be empty
  std::vector<FnuValue> values;  ///< in the order of the lines
};

/// Reads the bytes of an FNU file. The error's subject is "NAME:LINE", its description what is
/// wrong there: no symbol or one that is too long, a line that is no date and value, no line.
Result<FnuFile> ParseFnuFile(std::string_view name, std::string_view bytes);

/// What a file says of itself, as a chooser proposes it.
struct FnuTitle {
  std::string symbol;  ///< the first field of line 1, upper case
  std::string title;   ///< the first field of line 2
};

/// The titles of a file's bytes, whatever stands behind them; what is missing is empty. A comma
/// ends a text, quotes around it are dropped.
FnuTitle ReadFnuTitle(std::string_view bytes);

/// Lines 1 and 2, the texts as they are given (UTF-8), unquoted.
void AppendFnuTitle(std::string& bytes, std::string_view symbol, std::string_view title);

/// The line of one market day: "mm/dd/yyyy" in quotes, the value with at most seven significant
/// digits, the digit 0. Days go in ascending order.
void AppendFnuValue(std::string& bytes, const FnuValue& value);

}  // namespace vistaplot
