#include "quoteline_tool/commands.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <string_view>
#include <system_error>

#include "base/date.h"
#include "base/result.h"
#include "base/text.h"
#include "quoteline/administration.h"
#include "quoteline/check.h"
#include "quoteline/family_folders.h"
#include "quoteline/sample.h"

namespace vistaplot {

namespace {

constexpr int kFault = 1;

// The first failure of writing to standard output, an errno; 0 as long as there is none. What the
// buffer could not write is dropped and not met again when it is flushed.
int& OutputFailure() {
  static int failure = 0;
  return failure;
}

void Print(std::string_view text) {
  const bool written = std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
  if (!written && OutputFailure() == 0) OutputFailure() = errno;
}

void PrintLine(std::string text) {
  text += '\n';
  Print(text);
}

// A line of its own, as programs that read messages expect "FILE:LINE: what is wrong".
void PrintFault(std::string_view text) {
  std::fprintf(stderr, "%s\n", OneLine(text).c_str());
}

int Complain(const RuntimeError& error) {
  return vistaplot::Complain(PlainText(error));
}

std::string Counted(std::size_t count, std::string_view one) {
  return std::to_string(count) + " " + std::string(one) + (count == 1 ? "" : "s");
}

std::string ChangeLine(const IssueChange& change) {
  return change.symbol + ": " + std::to_string(change.new_days) + " new, " +
         std::to_string(change.changed_days) + " changed, " +
         DateText(change.first_date, DatePattern::kIso) + " to " +
         DateText(change.last_date, DatePattern::kIso);
}

// "; left out: HD, LOW", for an issue whose file had columns that nothing was taken from.
std::string LeftOutText(const ImportReport& report, const std::string& symbol) {
  constexpr std::size_t kShown = 12;
  constexpr std::size_t kLongestShown = 30;
  const auto found = report.left_out.find(symbol);
  if (found == report.left_out.end()) return {};
  const std::vector<std::string>& names = found->second;
  std::string text = "; left out: ";
  for (std::size_t i = 0; i < std::min(names.size(), kShown); ++i) {
    if (i > 0) text += ", ";
    text += LeftCharacters(names[i], kLongestShown);
  }
  if (names.size() > kShown) text += " and " + std::to_string(names.size() - kShown) + " more";
  return text;
}

}  // namespace

int Complain(std::string_view text) {
  PrintFault("quoteline: " + std::string(text));
  return kFault;
}

int FinishOutput() {
  if (std::ferror(stdout) != 0 && OutputFailure() == 0) OutputFailure() = EIO;
  if (std::fclose(stdout) != 0 && OutputFailure() == 0) OutputFailure() = errno;
  if (OutputFailure() == 0) return 0;
  return Complain("cannot write to standard output: " +
                  std::generic_category().message(OutputFailure()));
}

int RunInit(const std::string& directory) {
  const auto made = InitService(directory);
  if (!made) return Complain(made.Error());
  PrintLine(directory + (made.Value() ? ": an empty service directory"
                                      : ": holds a database already, which stays as it is"));
  return FinishOutput();
}

int RunImport(const ImportRequest& request) {
  const ImportReport report = ImportPrices(request);
  for (const std::string& note : report.notes) PrintFault(note);
  for (const std::string& fault : report.faults) PrintFault(fault);
  if (!report.faults.empty()) return Complain("nothing was stored");
  for (const IssueChange& change : report.changes) {
    PrintLine(ChangeLine(change) + LeftOutText(report, change.symbol));
  }
  if (request.dry_run) PrintLine("a dry run: nothing was stored");
  return FinishOutput();
}

int RunFamily(const std::string& directory, const FamilyArguments& arguments) {
  const auto written = WriteFamily(
      directory,
      arguments.folder,
      {.header = {.name = arguments.name, .title = arguments.title}, .symbols = arguments.symbols});
  if (!written) return Complain(written.Error());
  PrintLine(written.Value() + ": " + Counted(arguments.symbols.size(), "symbol"));
  const auto same_name = FamilyFilesNamed(directory, UpperCase(arguments.name));
  for (std::size_t i = 1; i < same_name.size(); ++i) {
    PrintFault("note: " + same_name[i] + ": never loaded, as " + same_name[0] +
               " has the same name");
  }
  return FinishOutput();
}

int RunList(const std::string& directory, const std::string& pattern) {
  const auto lines = ListIssues(directory, pattern);
  if (!lines) return Complain(lines.Error());
  for (const std::string& line : lines.Value()) PrintLine(line);
  return FinishOutput();
}

int RunPrices(const std::string& directory, const std::string& symbol) {
  const auto csv = HistoryCsv(directory, symbol);
  if (!csv) return Complain(csv.Error());
  Print(csv.Value());
  return FinishOutput();
}

int RunRemove(const std::string& directory, const std::vector<std::string>& symbols) {
  const auto removed = RemoveIssues(directory, symbols);
  if (!removed) return Complain(removed.Error());
  PrintLine("removed " + Counted(removed.Value(), "issue"));
  return FinishOutput();
}

int RunCheck(const std::string& directory) {
  const CheckReport report = CheckService(directory);
  for (const std::string& note : report.notes) PrintLine("note: " + OneLine(note));
  for (const std::string& fault : report.faults) PrintLine(OneLine(fault));
  const std::string looked_at =
      Counted(report.issues, "issue") + ", " + Counted(report.days, "market day") + ", " +
      std::to_string(report.fnu_series) + " FNU series, " + std::to_string(report.families) +
      (report.families == 1 ? " family" : " families");
  const std::size_t faults = report.faults.size();
  PrintLine((faults == 0 ? std::string("no fault") : Counted(faults, "fault")) + " in " +
            looked_at);
  const int printed = FinishOutput();
  return faults == 0 ? printed : kFault;
}

int RunRebuild(const std::string& directory) {
  const auto rebuilt = RebuildSymbols(directory);
  if (!rebuilt) return Complain(rebuilt.Error());
  const RebuildReport& report = rebuilt.Value();
  if (report.calendar_restored) PrintLine("market calendar put right from its copy");
  if (report.restored > 0) {
    PrintLine(Counted(static_cast<std::size_t>(report.restored), "issue") +
              " put right from the symbol index");
  }
  PrintLine("symbol index of " + Counted(static_cast<std::size_t>(report.issues), "issue") +
            " rebuilt");
  for (const std::string& fault : report.left_out) PrintFault(fault);
  const int printed = FinishOutput();
  return report.left_out.empty() ? printed : kFault;
}

int RunDemo(const std::string& directory) {
  const auto filled = FillWithSample(directory);
  if (!filled) return Complain(filled.Error());
  const SampleSummary& sample = filled.Value();
  PrintLine(directory + ": filled with a sample; all its names, prices and results are made up");
  PrintLine(std::to_string(sample.funds) + " funds, " + std::to_string(sample.stocks) +
            " stocks, " + std::to_string(sample.indexes) + " indexes and the breadth issues on " +
            std::to_string(sample.days) + " market days from " +
            DateText(sample.first_date, DatePattern::kIso) + " to " +
            DateText(sample.last_date, DatePattern::kIso));
  PrintLine(std::to_string(sample.families) + " families in QLDEF, QL4WIN/SQLDEF and USERDEF, " +
            std::to_string(sample.signals) + " signal files in SIG, " +
            std::to_string(sample.results) + " result files in RESULTS");
  return FinishOutput();
}

}  // namespace vistaplot
