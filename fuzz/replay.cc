// replay FOLDER...: gives every file of the folders, and no bytes at all, to the harness that this
// is linked with. So the seeds are tests without libFuzzer.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "harness.h"

int main(int argc, char** argv) {
  std::vector<std::filesystem::path> files;
  for (int i = 1; i < argc; ++i) {
    for (const auto& entry : std::filesystem::directory_iterator(argv[i])) files.push_back(entry);
  }
  std::sort(files.begin(), files.end());
  LLVMFuzzerTestOneInput(nullptr, 0);
  for (const auto& path : files) {
    std::ifstream file(path, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    std::printf("%s\n", path.filename().c_str());
    std::fflush(stdout);  // the last one named is the one that fails
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
  }
  return files.empty() ? 1 : 0;
}
