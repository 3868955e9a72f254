// FNU files: a symbol, a title and one value a day, as the program and others write them.
// docs/formats/fnu.md describes the lines.
#pragma once

#include <cstddef>
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

}  // namespace vistaplot
