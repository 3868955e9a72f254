#include "quoteline/sample.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "base/files.h"
#include "formats/signal_file.h"
#include "quoteline/administration.h"
#include "quoteline/family_folders.h"
#include "quoteline/quoteline.h"
#include "quoteline/store_change.h"
#include "quoteline/store_creation.h"

namespace vistaplot {

namespace {

RuntimeError Refusal(std::string text, std::string subject) {
  return {
      .number = QL_GENERAL_FAILURE, .description = std::move(text), .subject = std::move(subject)};
}

struct FamilyPlan {
  std::string_view folder;
  const char* name;
  const char* title;
  const char* group;  // the issues' group; null: every fund and stock
};
constexpr std::array<FamilyPlan, 8> kFamilies = {{
    {kFamilyFolders[0], "GROWTH", "Sample growth funds (made up)", "GROWTH"},
    {kFamilyFolders[0], "VALUE", "Sample value funds (made up)", "VALUE"},
    {kFamilyFolders[0], "BALANCED", "Sample balanced funds (made up)", "BALANCED"},
    {kFamilyFolders[0], "INTL", "Sample international funds (made up)", "INTL"},
    {kFamilyFolders[0], "BONDS", "Sample bond funds (made up)", "BONDS"},
    {kFamilyFolders[1], "STOCKS", "Sample stocks (made up)", "STOCKS"},
    {kFamilyFolders[1], "INDEXES", "Sample indexes (made up)", "INDEXES"},
    {kFamilyFolders[2], "ALL60", "All sample funds and stocks (made up)", nullptr},
}};

bool IsMember(const SampleIssue& issue, const FamilyPlan& plan) {
  if (plan.group != nullptr) return issue.group == plan.group;
  return issue.kind == SampleKind::kFund || issue.kind == SampleKind::kStock;
}

std::vector<SampleFile> MakeFamilies(const SampleMarket& market) {
  std::vector<SampleFile> files;
  for (const FamilyPlan& plan : kFamilies) {
    const FamilyHeader header{.name = plan.name, .title = plan.title};
    std::vector<std::string> symbols;
    for (const SampleIssue& issue : market.issues) {
      if (IsMember(issue, plan)) symbols.push_back(issue.symbol);
    }
    files.push_back({std::string(plan.folder) + "/" + plan.name + ".FAM",
                     FamilyFileBytes(header, symbols).Value()});
  }
  return files;
}

struct SignalPlan {
  const char* name;
  const char* index;
  std::size_t fast;  // days of the two moving averages
  std::size_t slow;
};
constexpr std::array<SignalPlan, 8> kSignals = {{
    {"ALL1050", "^ALL", 10, 50},
    {"ALL20100", "^ALL", 20, 100},
    {"ALL50200", "^ALL", 50, 200},
    {"LRG1050", "^LRG", 10, 50},
    {"SML1050", "^SML", 10, 50},
    {"SML20100", "^SML", 20, 100},
    {"TEC1050", "^TEC", 10, 50},
    {"TEC50200", "^TEC", 50, 200},
}};

// In the market while the faster average lies above the slower one.
std::string SignalFileBytes(const SignalPlan& plan, const SampleMarket& market) {
  const auto index = std::find_if(market.issues.begin(), market.issues.end(), [&](const auto& i) {
    return i.symbol == plan.index;
  });
  std::string bytes;
  AppendSignalTitle(bytes,
                    index->name + " " + std::to_string(plan.fast) + "/" +
                        std::to_string(plan.slow) + " day crossover (made up)");
  double fast = 0.0;
  double slow = 0.0;
  std::optional<bool> is_in;
  for (std::size_t i = 0; i < market.days.size(); ++i) {
    fast += static_cast<double>(index->prices[i]);
    slow += static_cast<double>(index->prices[i]);
    if (i >= plan.fast) fast -= static_cast<double>(index->prices[i - plan.fast]);
    if (i >= plan.slow) slow -= static_cast<double>(index->prices[i - plan.slow]);
    if (i + 1 < plan.slow) continue;
    const bool above =
        fast / static_cast<double>(plan.fast) > slow / static_cast<double>(plan.slow);
    if (is_in == above) continue;
    is_in = above;
    AppendSignal(bytes, {.is_in = above, .date = market.days[i]});
  }
  return bytes;
}

std::vector<SampleFile> MakeSignals(const SampleMarket& market) {
  std::vector<SampleFile> files;
  files.reserve(kSignals.size());
  for (const SignalPlan& plan : kSignals) {
    files.push_back({std::string("SIG/") + plan.name + ".SIG", SignalFileBytes(plan, market)});
  }
  return files;
}

std::size_t CountKind(const SampleMarket& market, SampleKind kind) {
  return static_cast<std::size_t>(
      std::count_if(market.issues.begin(), market.issues.end(), [kind](const SampleIssue& issue) {
        return issue.kind == kind;
      }));
}

// A file of the user's own under a name of the sample is not to be lost.
Status CheckPlaces(const std::string& directory, const std::vector<SampleFile>& files) {
  for (const SampleFile& file : files) {
    const std::string path = ServicePath(directory, file.path);
    if (!FileExists(path)) continue;
    const auto held = ReadWholeFile(path);
    if (!held || held.Value() != file.bytes) {
      return Refusal("is there already; the sample would replace it", path);
    }
  }
  return Done{};
}

Status WriteFiles(const std::string& directory,
                  const std::vector<SampleFile>& files,
                  DirectoryMaking& making) {
  for (const SampleFile& file : files) {
    const std::string path = ServicePath(directory, file.path);
    const std::string folder = path.substr(0, path.rfind('/'));
    if (auto made = making.MakeFolder(folder); !made) return made;
    making.NoteFile(path);
    if (auto written = WriteFileAtomically(path, file.bytes); !written) return written;
  }
  return Done{};
}

Status PutIssues(StoreChange& change, const SampleMarket& market) {
  std::map<std::string, IssuePrices> prices;
  for (const SampleIssue& issue : market.issues) {
    IssuePrices& entry = prices[issue.symbol];
    entry.name = issue.name;
    entry.rows.push_back({.dates = market.days, .prices = issue.prices});
  }
  auto put = change.Put(prices, false);
  return put ? Status(Done{}) : Status(put.Error());
}

// Issues and files, all or none; `making` holds what was new when it fails.
Status Fill(const std::string& directory,
            const SampleMarket& market,
            const std::vector<SampleFile>& files,
            DirectoryMaking& making) {
  if (auto free = CheckPlaces(directory, files); !free) return free;
  if (auto made = InitService(directory, making); !made) return made.Error();
  auto database = OpenStore(directory, Access::kWrite);
  if (!database) return database.Error();
  auto change = StoreChange::Begin(database.Value());
  if (!change) return change.Error();
  if (!change.Value().Issues().empty()) {
    return Refusal("holds issues already; the sample goes into a directory without any", directory);
  }
  if (auto put = PutIssues(change.Value(), market); !put) return put;
  if (auto written = WriteFiles(directory, files, making); !written) return written;
  return change.Value().Commit();
}

}  // namespace

Result<SampleSummary> FillWithSample(const std::string& directory) {
  const SampleMarket market = MakeSampleMarket();
  std::vector<SampleFile> files = MakeFamilies(market);
  for (auto& file : MakeSignals(market)) files.push_back(std::move(file));
  for (auto& file : MakeSampleResults()) files.push_back(std::move(file));
  auto making = DirectoryMaking::Begin(directory);
  if (!making) return making.Error();
  if (auto filled = Fill(directory, market, files, making.Value()); !filled) return filled.Error();
  making.Value().Keep();
  return SampleSummary{.funds = CountKind(market, SampleKind::kFund),
                       .stocks = CountKind(market, SampleKind::kStock),
                       .indexes = CountKind(market, SampleKind::kIndex),
                       .breadth = CountKind(market, SampleKind::kBreadth),
                       .families = kFamilies.size(),
                       .signals = kSignals.size(),
                       .results = MakeSampleResults().size(),
                       .days = market.days.size(),
                       .first_date = market.days.front(),
                       .last_date = market.days.back()};
}

}  // namespace vistaplot
