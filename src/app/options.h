// The command line of vistaplot.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "base/host_path.h"
#include "controls/form_host.h"

namespace vistaplot {

struct PixelSize {
  int width = 0;
  int height = 0;

  bool operator==(const PixelSize&) const = default;
};

inline constexpr int kLargestDisplay = 32767;  ///< pixels, width and height
inline constexpr PixelSize kBatchDisplay{1280, 960};

struct Options {
  std::string quoteline_dir;         ///< directory of the market-data service
  std::string settings_file;         ///< a host path
  std::optional<PixelSize> display;  ///< what the screens scale to; nothing: the real display
  std::optional<std::string> batch_script;   ///< a host path, or "-" for standard input
  std::optional<std::string> window_script;  ///< a host path: played in the visible program
};

/// What the arguments gave, or why they are wrong use (exit status 2).
struct ParsedOptions {
  Options options;
  std::string error;  ///< for the user; empty when all is well
  std::string text;   ///< what --help or --version asks to be shown before the end; else empty

  bool Ok() const { return error.empty(); }
};

/// Reads the arguments behind the program's name: "--name value" or "--name=value", the last one
/// of a name counts. Options that are absent take their defaults from base/host_path.h.
ParsedOptions ParseOptions(std::span<const char* const> arguments,
                           const EnvironmentLookup& environment = ProcessEnvironment());

/// What a run says on standard error when a fatal error ended it, with an end of line.
std::string FatalEndText(const Options& options);

/// A size in pixels as the lengths that screens scale to, kTwipsPerPixel each.
DisplaySize DisplayInTwips(const PixelSize& pixels);

/// The folder that holds the running program's file, without a separator at its end.
std::string ProgramFolder();

}  // namespace vistaplot
