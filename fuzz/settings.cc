// The settings file. The first line is a value that is stored into the file that follows.
#include <string>

#include "app/ini_settings.h"
#include "harness.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace vistaplot;
  std::string_view content = fuzz::TextOf(data, size);
  const std::string value(fuzz::TakeLine(content));
  if (!IniText::IsText(content)) return 0;
  IniText text(content);
  fuzz::Require(text.Content() == content, "what is read is what is written");
  const auto other = text.Find("ADTitle");
  text.Put("gain1", value);
  std::string kept = value;
  for (char& c : kept) {
    if (static_cast<unsigned char>(c) < ' ' && c != '\t') c = ' ';
  }
  const std::string written = text.Content();
  fuzz::Require(IniText::IsText(written), "a settings file is text");
  const IniText again(written);
  fuzz::Require(again.Find("gain1") == kept, "a value reads back");
  fuzz::Require(again.Find("ADTitle") == other, "other keys stay");
  fuzz::Require(!text.Put("gain1", value), "a value that is there changes nothing");
  return 0;
}
