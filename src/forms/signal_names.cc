#include "forms/signal_names.h"

#include "base/files.h"
#include "base/host_path.h"
#include "base/text.h"

namespace vistaplot {

std::vector<std::string> ListSignalFiles(const SharedState& state) {
  const std::string folder = HostPath(state.market.QuotelineDir + "/SIG", state.roots);
  const auto names = ListFiles(folder, "*.SIG");
  return names ? names.Value() : std::vector<std::string>{};
}

std::vector<std::string> SignalNames(const std::vector<std::string>& file_names) {
  std::vector<std::string> names;
  names.reserve(file_names.size());
  for (const std::string& file : file_names) {
    names.push_back(PadRight(UpperCase(UpToFirstDot(file)), 8));
  }
  return names;
}

}  // namespace vistaplot
