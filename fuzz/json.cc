// Dumps: JSON compared with itself and with other JSON, CSV with a sheet, texts written as JSON.
#include <string>

#include "base/text.h"
#include "batch/comparison.h"
#include "harness.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace vistaplot;
  std::string_view text = fuzz::TextOf(data, size);
  const auto same = CompareJson(text, text, 0.0);
  if (same) {
    fuzz::Require(same.Value().count == 0, "a value equals itself");
  } else {
    fuzz::Require(same.Error().description.size() < 1000, "a message is short");
  }
  const std::string quoted = JsonQuoted(text);
  fuzz::Require(CompareJson(quoted, quoted, 0.0).Ok(), "any text can be written as JSON");
  const std::string_view first = fuzz::TakeLine(text);
  const auto other = CompareJson(first, text, 1e-6);
  if (other) fuzz::Require(other.Value().told.size() <= 10, "the first differences are told");
  const Sheet sheet;
  CompareSheet(sheet, text, 0.0);
  return 0;
}
