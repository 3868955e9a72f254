// Texts that name files, and patterns.
#include <string>

#include "base/files.h"
#include "base/host_path.h"
#include "harness.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace vistaplot;
  std::string_view text = fuzz::TextOf(data, size);
  const std::string_view pattern = fuzz::TakeLine(text);
  const std::string name(text.substr(0, text.find('\0')));  // paths hold no zero byte
  MatchesPattern(text, pattern);
  fuzz::Require(MatchesPattern(text, "*"), "a star matches any name");
  // Nothing is below these, so that no folder of the host is walked through.
  const PathRoots roots{
      .QuotelineDir = "/none/ql", .drives_dir = "/none/drives", .wine_devices_dir = {}};
  const std::string service = HostPath("C:\\QL\\" + name, roots);
  fuzz::Require(service.starts_with("/none/ql"), "c:\\ql is the service's directory");
  const std::string drive = HostPath("x:" + name, roots);
  fuzz::Require(drive.starts_with("/none/drives/x"), "a drive lies below the drives");
  const std::string absolute = AbsolutePath("/" + name);
  fuzz::Require(AbsolutePath(absolute) == absolute, "an absolute path is one");
  return 0;
}
