// FNU files: a symbol, a title, a value a day.
#include <cmath>

#include "formats/fnu_file.h"
#include "harness.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace vistaplot;
  const auto file = ParseFnuFile("F.FNU", fuzz::TextOf(data, size));
  if (!file) {
    fuzz::RequireMessage(PlainText(file.Error()));
    return 0;
  }
  const std::string& symbol = file.Value().symbol;
  fuzz::Require(!symbol.empty() && symbol.size() <= 5, "a symbol has 1 to 5 characters");
  fuzz::Require(!file.Value().values.empty(), "a series has a value");
  for (const FnuValue& value : file.Value().values) {
    fuzz::Require(std::isfinite(value.value), "values are numbers");
  }
  return 0;
}
