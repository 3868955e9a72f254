#include "app/options.h"

#include <array>
#include <cstddef>
#include <filesystem>
#include <system_error>
#include <utility>

#include "base/files.h"
#include "base/number_text.h"
#include "base/version.h"

namespace vistaplot {

namespace {

constexpr std::string_view kHelp =
    "Usage: vistaplot [--quoteline DIR] [--settings FILE] [--display WxH]\n"
    "                 [--batch SCRIPT | --script FILE]\n"
    "\n"
    "  --quoteline DIR   directory of the market-data service\n"
    "                    (else $QUOTELINE_DIR, else $XDG_DATA_HOME/quoteline)\n"
    "  --settings FILE   settings file (else $XDG_CONFIG_HOME/vistaplot/settings.ini)\n"
    "  --display WxH     display size in pixels that the screens scale to\n"
    "                    (else the real display; 1280x960 with --batch)\n"
    "  --batch SCRIPT    run a script without a window; - is standard input\n"
    "  --script FILE     play a script in the visible program, which stays open\n"
    "  --help            show this text\n"
    "  --version         show the version\n"
    "\n"
    "Exit status of --batch: 0 the script ran to its end, 1 a script error, 2 wrong use,\n"
    "3 the program ended itself after a fatal error.\n";

std::optional<int> Pixels(std::string_view text) {
  for (const char c : text) {
    if (c < '0' || c > '9') return std::nullopt;
  }
  const auto number = WholeInteger(text);
  if (!number || *number < 1 || *number > kLargestDisplay) return std::nullopt;
  return static_cast<int>(*number);
}

std::optional<PixelSize> SizeFromText(std::string_view text) {
  const std::size_t cross = text.find_first_of("xX");
  if (cross == std::string_view::npos) return std::nullopt;
  const auto width = Pixels(text.substr(0, cross));
  const auto height = Pixels(text.substr(cross + 1));
  if (!width || !height) return std::nullopt;
  return PixelSize{*width, *height};
}

// Takes the value of option `name`; gives what is wrong with it, or nothing.
std::string TakeValue(Options& options, std::string_view name, const std::string& value) {
  if (value.empty()) return std::string(name) + " needs a value";
  if (name == "--quoteline") options.quoteline_dir = value;
  if (name == "--settings") options.settings_file = value;
  if (name == "--batch") options.batch_script = value;
  if (name == "--script") options.window_script = value;
  if (name == "--display") {
    options.display = SizeFromText(value);
    if (!options.display) {
      return "--display: \"" + value + "\" is no size in pixels such as 1280x960";
    }
  }
  return {};
}

struct Argument {
  std::string_view name;
  std::optional<std::string_view> value;  ///< the part behind "="
};

Argument SplitArgument(std::string_view text) {
  const std::size_t equals = text.find('=');
  if (!text.starts_with("--") || equals == std::string_view::npos) return {text, std::nullopt};
  return {text.substr(0, equals), text.substr(equals + 1)};
}

bool TakesValue(std::string_view name) {
  constexpr std::array<std::string_view, 5> kNames{
      "--quoteline", "--settings", "--display", "--batch", "--script"};
  for (const std::string_view known : kNames) {
    if (name == known) return true;
  }
  return false;
}

// Takes an option without a value; gives what is wrong with it, or nothing.
std::string TakeFlag(Options& options, const Argument& argument) {
  const std::string name(argument.name);
  if (name != "--help" && name != "-h" && name != "--version") {
    return name.starts_with('-') ? "unknown option " + name
                                 : "unexpected argument \"" + name + "\"";
  }
  if (argument.value) return name + " takes no value";
  (name == "--version" ? options.version : options.help) = true;
  return {};
}

void FillDefaults(Options& options, const EnvironmentLookup& environment) {
  if (options.quoteline_dir.empty()) options.quoteline_dir = DefaultServiceFolder(environment);
  if (options.settings_file.empty()) {
    options.settings_file = JoinPath(ConfigFolder(environment), "vistaplot/settings.ini");
  }
  if (options.batch_script && !options.display) options.display = kBatchDisplay;
}

}  // namespace

ParsedOptions ParseOptions(std::span<const char* const> arguments,
                           const EnvironmentLookup& environment) {
  ParsedOptions parsed;
  for (std::size_t i = 0; i < arguments.size() && parsed.error.empty(); ++i) {
    Argument argument = SplitArgument(arguments[i]);
    if (!TakesValue(argument.name)) {
      parsed.error = TakeFlag(parsed.options, argument);
      continue;
    }
    const bool follows =
        i + 1 < arguments.size() && !std::string_view(arguments[i + 1]).starts_with("--");
    if (!argument.value && follows) argument.value = arguments[++i];
    parsed.error =
        TakeValue(parsed.options, argument.name, std::string(argument.value.value_or("")));
  }
  if (parsed.Ok() && parsed.options.batch_script && parsed.options.window_script) {
    parsed.error = "--batch and --script do not go together";
  }
  if (parsed.Ok()) FillDefaults(parsed.options, environment);
  return parsed;
}

std::string_view HelpText() {
  return kHelp;
}

std::string VersionText() {
  return std::string("Vistaplot ") + kVersion + "\n";
}

std::string FatalEndText(const Options& options) {
  return "vistaplot: ended by a fatal error; the service directory was " + options.quoteline_dir +
         "\n";
}

DisplaySize DisplayInTwips(const PixelSize& pixels) {
  return {.width = static_cast<float>(pixels.width) * kTwipsPerPixel,
          .height = static_cast<float>(pixels.height) * kTwipsPerPixel};
}

std::string ProgramFolder() {
  std::error_code error;
  const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
  return error ? std::string(".") : program.parent_path().string();
}

}  // namespace vistaplot
