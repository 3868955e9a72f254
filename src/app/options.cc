#include "app/options.h"

#include <CLI/CLI.hpp>
#include <cstddef>
#include <filesystem>
#include <system_error>
#include <utility>
#include <vector>

#include "base/files.h"
#include "base/number_text.h"
#include "base/text.h"
#include "base/version.h"

namespace vistaplot {

namespace {

constexpr const char* kFooter =
    "\nExit status of --batch: 0 the script ran to its end, 1 a script error, 2 wrong use,\n"
    "3 the program ended itself after a fatal error.";

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

// What is wrong with a value, for the reader of the command line; empty when nothing is.
std::string ValueFault(const std::string& value) {
  return value.empty() || value.starts_with("--") ? "a value is needed" : "";
}

std::string SizeFault(const std::string& value) {
  if (SizeFromText(value)) return {};
  return ShownText(value) + " is no size in pixels such as 1280x960";
}

template <class Target>
CLI::Option* AddValue(
    CLI::App& app, const char* name, const char* type, Target& target, const char* help) {
  return app.add_option(name, target, help)->type_name(type)->take_last()->check(ValueFault);
}

// `display` holds the text of --display.
void Declare(CLI::App& app, Options& options, std::string& display) {
  AddValue(app,
           "--quoteline",
           "DIR",
           options.quoteline_dir,
           "Directory of the market-data service (else $QUOTELINE_DIR, else quoteline in "
           "$XDG_DATA_HOME)");
  AddValue(app,
           "--settings",
           "FILE",
           options.settings_file,
           "Settings file (else vistaplot/settings.ini in $XDG_CONFIG_HOME)");
  AddValue(app,
           "--display",
           "WxH",
           display,
           "Display size in pixels that the screens scale to (else the real display; 1280x960 "
           "with --batch)")
      ->check(SizeFault);
  CLI::Option* batch = AddValue(app,
                                "--batch",
                                "SCRIPT",
                                options.batch_script,
                                "Run a script without a window; - is standard input");
  AddValue(app,
           "--script",
           "FILE",
           options.window_script,
           "Play a script in the visible program, which stays open")
      ->excludes(batch);
  app.set_version_flag(
      "--version", std::string("Vistaplot ") + kVersion, "Show the version and leave");
  app.footer(kFooter);
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
  std::string display;
  CLI::App app("Charts and analyses daily price histories.", "vistaplot");
  Declare(app, parsed.options, display);
  try {
    app.parse(
        std::vector<std::string>(arguments.rbegin(), arguments.rend()));  // takes from the back
  } catch (const CLI::CallForHelp&) {
    parsed.text = app.help();
  } catch (const CLI::CallForVersion& version) {
    parsed.text = std::string(version.what()) + "\n";
  } catch (const CLI::ParseError& error) {
    parsed.error = OneLine(error.what());
  }
  if (!display.empty()) parsed.options.display = SizeFromText(display);
  FillDefaults(parsed.options, environment);
  return parsed;
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
