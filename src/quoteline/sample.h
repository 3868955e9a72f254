// The sample that a new user can try the program with: all of it is made up.
#pragma once

#include <cstddef>
#include <string>

#include "base/date.h"
#include "base/result.h"

namespace vistaplot {

struct SampleSummary {
  std::size_t funds = 0;
  std::size_t stocks = 0;
  std::size_t indexes = 0;
  std::size_t breadth = 0;
  std::size_t families = 0;
  std::size_t signals = 0;
  std::size_t results = 0;
  std::size_t days = 0;
  DateSerial first_date = 0;
  DateSerial last_date = 0;
};

/// Fills a service directory, which is made when it is not there, with the sample: issues,
/// families in all three folders, signal files and result files. Refuses, and changes nothing,
/// when the directory holds issues, or files of the sample's names with other contents.
Result<SampleSummary> FillWithSample(const std::string& directory);

}  // namespace vistaplot
