#include "charts/layout/layout_parts.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace vistaplot {
namespace {

// Where the characters of UTF-8 text begin, and its end.
std::vector<std::size_t> LetterStarts(const std::string& text) {
  std::vector<std::size_t> starts;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if ((static_cast<unsigned char>(text[i]) & 0xC0U) != 0x80U) starts.push_back(i);
  }
  starts.push_back(text.size());
  return starts;
}

// The first two thirds and the last third of `kept` characters, the rest left out.
std::string MiddleElided(const std::string& text,
                         const std::vector<std::size_t>& starts,
                         std::size_t kept) {
  const std::size_t tail = kept / 3;
  return text.substr(0, starts[kept - tail]) + "…" + text.substr(starts[starts.size() - 1 - tail]);
}

}  // namespace

std::string ElideText(const DrawContext& context,
                      const std::string& text,
                      int pixels,
                      double width) {
  if (context.measure.Width(text, pixels, false) <= width) return text;
  const std::vector<std::size_t> starts = LetterStarts(text);
  std::size_t fits = 1;
  std::size_t too_many = std::max<std::size_t>(starts.size() - 1, 2);
  while (too_many - fits > 1) {
    const std::size_t middle = (fits + too_many) / 2;
    const std::string tried = MiddleElided(text, starts, middle);
    (context.measure.Width(tried, pixels, false) <= width ? fits : too_many) = middle;
  }
  return MiddleElided(text, starts, fits);
}

int RoundFactor(int least) {
  for (int power = 1;; power *= 10) {
    for (const int step : {1, 2, 5}) {
      if (step * power >= least) return step * power;
    }
  }
}

}  // namespace vistaplot
