// The labels of a chart's rows or columns.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vistaplot {

/// Texts numbered from 1, each the letter and its number ("R1") until it is set. They stand in one
/// block: a chart of 12,000 dates is labelled anew at every step of a scroll bar.
class ChartLabels {
 public:
  explicit ChartLabels(char letter) : letter_(letter) {}

  void Clear();
  void CutTo(int count);  ///< labels behind the first `count` are the default ones again
  void Set(int number, std::string_view text);
  std::string At(int number) const;

 private:
  struct Place {
    std::size_t offset;
    std::size_t length;
  };

  void Append(std::string_view text);

  char letter_;
  std::string texts_;
  std::vector<Place> places_;  ///< of the first labels; those behind have default texts
};

}  // namespace vistaplot
