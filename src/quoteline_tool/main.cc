// quoteline: makes, fills and checks the database of the market-data service.
#include <CLI/CLI.hpp>
#include <csignal>
#include <cstddef>
#include <cstdio>
#include <exception>
#include <functional>
#include <string>

#include "base/heap.h"
#include "base/host_path.h"
#include "base/text.h"
#include "base/version.h"
#include "quoteline_tool/commands.h"

namespace {

using vistaplot::FamilyArguments;
using vistaplot::ImportRequest;

constexpr int kWrongUsage = 2;

// What the command line says.
struct Arguments {
  std::string directory = vistaplot::DefaultServiceFolder();
  ImportRequest import;
  FamilyArguments family;
  std::string pattern;
  std::string symbol;
  std::vector<std::string> symbols;
  std::function<int()> run;
};

void AddImport(CLI::App& app, Arguments& arguments) {
  ImportRequest& import = arguments.import;
  CLI::App* command = app.add_subcommand(
      "import", "Load price histories from CSV files, in one transaction: all or nothing");
  command->add_flag(
      "--adjusted", import.options.adjusted, "Take the column \"Adj Close\" instead of \"Close\"");
  command->add_flag("--replace", import.replace, "Drop the old histories of these issues first");
  command->add_flag("--dry-run", import.dry_run, "Say what would happen and store nothing");
  CLI::Option* wide = command->add_flag(
      "--wide", import.options.wide, "Every column but Date is an issue, whatever it is called");
  wide->excludes(command->get_option("--adjusted"));
  command->add_option("--symbol", import.options.symbol, "The symbol of a single file of one issue")
      ->excludes(wide);
  command->add_option("--name", import.options.name, "Its name, at most 80 characters")
      ->check([](const std::string& name) {
        const std::size_t length = vistaplot::CharacterCount(name);
        return length <= vistaplot::kLongestName
                   ? std::string()
                   : std::to_string(length) + " characters are more than 80";
      });
  command->add_option("FILE", import.files, "Price files")->required();
  command->callback([&arguments] {
    ImportRequest& request = arguments.import;
    const bool named = !request.options.symbol.empty() || !request.options.name.empty();
    if (named && request.files.size() > 1) {
      throw CLI::ValidationError("--symbol and --name are for a single FILE");
    }
    request.directory = arguments.directory;
    arguments.run = [&request] { return vistaplot::RunImport(request); };
  });
}

void AddFamily(CLI::App& app, Arguments& arguments) {
  FamilyArguments& family = arguments.family;
  CLI::App* command = app.add_subcommand("family", "Write the family file FOLDER/NAME.FAM");
  command->add_option("FOLDER", family.folder, "QLDEF, QL4WIN/SQLDEF or USERDEF")->required();
  command->add_option("NAME", family.name, "1 to 8 characters")->required();
  command->add_option("TITLE", family.title, "Up to 72 characters")->required();
  command->add_option("SYMBOL", family.symbols, "Its issues")->required();
  command->callback([&arguments] {
    arguments.run = [&arguments] {
      return vistaplot::RunFamily(arguments.directory, arguments.family);
    };
  });
}

// A command whose arguments are already declared.
void Finish(CLI::App* command, Arguments& arguments, std::function<int()> run) {
  command->callback([&arguments, run = std::move(run)] { arguments.run = run; });
}

void AddIssueCommands(CLI::App& app, Arguments& arguments) {
  CLI::App* list = app.add_subcommand(
      "list", "Show symbol, first and last date, number of prices and name of each issue");
  list->add_option("PATTERN", arguments.pattern, "Symbols to show; * and ? stand for others");
  Finish(list, arguments, [&arguments] {
    return vistaplot::RunList(arguments.directory, arguments.pattern);
  });
  CLI::App* prices = app.add_subcommand("prices", "Write an issue's history as CSV");
  prices->add_option("SYMBOL", arguments.symbol)->required();
  Finish(prices, arguments, [&arguments] {
    return vistaplot::RunPrices(arguments.directory, arguments.symbol);
  });
  CLI::App* remove = app.add_subcommand("remove", "Remove issues");
  remove->add_option("SYMBOL", arguments.symbols)->required();
  Finish(remove, arguments, [&arguments] {
    return vistaplot::RunRemove(arguments.directory, arguments.symbols);
  });
}

void AddDirectoryCommands(CLI::App& app, Arguments& arguments) {
  struct Command {
    const char* name;
    const char* help;
    int (*run)(const std::string& directory);
  };
  constexpr Command kCommands[] = {
      {"init", "Make an empty service directory", vistaplot::RunInit},
      {"check", "Verify the database, FNU files and family files", vistaplot::RunCheck},
      {"rebuild", "Rebuild the symbol index", vistaplot::RunRebuild},
      {"demo", "Fill the directory with a made-up sample", vistaplot::RunDemo},
  };
  for (const Command& command : kCommands) {
    Finish(app.add_subcommand(command.name, command.help), arguments, [&arguments, command] {
      return command.run(arguments.directory);
    });
  }
}

int Run(int argc, char** argv) {
  Arguments arguments;
  CLI::App app("Makes, fills and checks the database of the market-data service.", "quoteline");
  app.add_option("--dir", arguments.directory, "The service directory")->capture_default_str();
  app.set_version_flag(
      "--version", std::string("quoteline ") + vistaplot::kVersion, "Show the version and leave");
  app.require_subcommand(0, 1);
  app.fallthrough();
  AddDirectoryCommands(app, arguments);
  AddImport(app, arguments);
  AddFamily(app, arguments);
  AddIssueCommands(app, arguments);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    if (error.get_exit_code() != 0) {
      vistaplot::Complain(error.what() + std::string("; --help tells more"));
      return kWrongUsage;
    }
    app.exit(error);
    return vistaplot::FinishOutput();
  }
  if (!arguments.run) {
    vistaplot::Complain("a command is needed; --help names them");
    return kWrongUsage;
  }
  return arguments.run();
}

}  // namespace

int main(int argc, char** argv) {
  vistaplot::PrepareHeap();
  // A file that may not grow any more is a full disk, told as one, and no reason to die.
  std::signal(SIGXFSZ, SIG_IGN);
  try {
    return Run(argc, argv);
  } catch (const std::exception& error) {
    return vistaplot::Complain(error.what());
  }
}
