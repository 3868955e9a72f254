#include "formats/kestrelix_file.h"

#include <algorithm>
#include <cassert>

#include "base/text.h"

namespace vistaplot {

void AppendKestrelixLine(std::string& bytes, std::span<const std::string> texts) {
  assert(texts.size() == kKestrelixFields.size());
  for (std::size_t i = 0; i < texts.size(); ++i) {
    std::string text = Windows1252FromUtf8(texts[i]);
    text.resize(std::min(text.size(), kKestrelixFields[i].width));
    bytes.append(kKestrelixFields[i].width - text.size(), ' ');
    bytes += text;
  }
  bytes += "\r\n";
}

}  // namespace vistaplot
