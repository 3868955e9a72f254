// Made-up result files, one of each kind that the program imports.
#pragma once

#include <string>
#include <vector>

namespace vistaplot {

/// A file of the sample: its path below the service directory and its bytes.
struct SampleFile {
  std::string path;
  std::string bytes;
};

/// RESULTS/SAMPLE.SUM, .VX1, .TXT, .SSM and .SDT. Their cases run over a grid of two parameters,
/// so that charts over two parameters have something to show.
std::vector<SampleFile> MakeSampleResults();

}  // namespace vistaplot
