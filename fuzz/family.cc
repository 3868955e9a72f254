// Family files, read and written again.
#include "formats/family_file.h"
#include "harness.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace vistaplot;
  const std::string_view bytes = fuzz::TextOf(data, size);
  const FamilyHeader header = ReadFamilyHeader(bytes);
  fuzz::Require(!header.name.empty(), "a header's name has its full width");
  const auto family = ParseFamilyFile(bytes);
  if (!family) return 0;
  const auto written = FamilyFileBytes(family.Value().header, family.Value().symbols);
  fuzz::Require(written.Ok(), "what was read can be written");
  const auto again = ParseFamilyFile(written.Value());
  fuzz::Require(again.Ok() && again.Value().symbols == family.Value().symbols,
                "what was written reads back");
  return 0;
}
