#include "quoteline/price_import.h"

#include <algorithm>
#include <map>
#include <unordered_map>
#include <utility>

#include "base/date.h"
#include "quoteline/store.h"

namespace vistaplot {

namespace {

constexpr std::size_t kShownBadLines = 20;

// A series of one of the files.
struct SeriesPlace {
  std::size_t file = 0;
  const PriceSeries* series = nullptr;
};

// Files read, and what they say of each issue.
class Batch {
 public:
  explicit Batch(ImportReport& report) : report_(report) {}

  void Read(const ImportRequest& request) {
    for (const std::string& path : request.files) {
      auto file = ReadPriceFile(path, request.options);
      if (!file) {
        report_.faults.push_back(PlainText(file.Error()));
      } else if (!file.Value().refusal.empty()) {
        report_.faults.push_back(path + ": " + file.Value().refusal);
      } else {
        files_.push_back(std::move(file.Value()));
      }
    }
    for (std::size_t i = 0; i < files_.size(); ++i) {
      for (const PriceSeries& series : files_[i].series) {
        places_[series.symbol].push_back({.file = i, .series = &series});
      }
    }
  }

  // Notes prices of one issue and date in which two files differ.
  void CompareFiles() {
    for (const auto& [symbol, places] : places_) {
      if (places.size() > 1) CompareSeries(places);
    }
  }

  void NoteLeftOut() {
    for (const PriceFile& file : files_) {
      if (file.left_out.empty() || file.series.size() != 1) continue;
      auto& names = report_.left_out[file.series[0].symbol];
      for (const std::string& name : file.left_out) {
        if (std::find(names.begin(), names.end(), name) == names.end()) names.push_back(name);
      }
    }
  }

  void ReportBadLines() {
    std::size_t count = 0;
    for (const PriceFile& file : files_) {
      for (const BadLine& bad : file.bad_lines.Kept()) {
        if (++count > kShownBadLines) break;
        report_.faults.push_back(file.path + ":" + std::to_string(bad.line) + ": " + bad.text);
      }
    }
    count = 0;
    for (const PriceFile& file : files_) count += file.bad_lines.Count();
    if (count <= kShownBadLines) return;
    const std::size_t more = count - kShownBadLines;
    report_.faults.push_back("and " + std::to_string(more) + " more bad line" +
                             (more == 1 ? "" : "s"));
  }

  // Valid as long as this object.
  std::map<std::string, IssuePrices> Prices() {
    std::map<std::string, IssuePrices> prices;
    for (const PriceFile& file : files_) AddPrices(file, prices);
    return prices;
  }

 private:
  struct Seen {
    float price = 0.0F;
    std::size_t file = 0;
    std::uint32_t line = 0;
  };

  void CompareSeries(const std::vector<SeriesPlace>& places) {
    std::unordered_map<DateSerial, Seen> seen;
    for (const SeriesPlace& place : places) {
      PriceFile& file = files_[place.file];
      const std::vector<DateLine>& dates = file.date_lists[place.series->dates];
      for (std::size_t i = 0; i < std::min(dates.size(), place.series->prices.size()); ++i) {
        const Seen now{place.series->prices[i], place.file, dates[i].line};
        if (now.price == 0.0F) continue;
        const auto [before, is_new] = seen.try_emplace(dates[i].date, now);
        if (is_new || before->second.price == now.price) continue;
        file.bad_lines.Add(now.line,
                           place.series->symbol + " has another price on " +
                               DateText(dates[i].date, DatePattern::kIso) + " in " +
                               files_[before->second.file].path + ":" +
                               std::to_string(before->second.line));
      }
    }
  }

  void AddPrices(const PriceFile& file, std::map<std::string, IssuePrices>& prices) {
    std::vector<std::span<const DateSerial>> dates;
    for (const auto& list : file.date_lists) {
      std::vector<DateSerial>& plain = plain_dates_.emplace_back();
      for (const DateLine& line : list) plain.push_back(line.date);
      dates.emplace_back(plain);
    }
    for (const PriceSeries& series : file.series) {
      if (std::none_of(series.prices.begin(), series.prices.end(), [](float p) { return p > 0; })) {
        report_.notes.push_back(file.path + ": no price of " + series.symbol + " in it");
        continue;
      }
      IssuePrices& issue = prices[series.symbol];
      if (!series.name.empty()) issue.name = series.name;
      issue.rows.push_back({.dates = dates[series.dates], .prices = series.prices});
    }
  }

  ImportReport& report_;
  std::vector<PriceFile> files_;
  std::map<std::string, std::vector<SeriesPlace>> places_;
  std::vector<std::vector<DateSerial>> plain_dates_;  // their heap blocks stay when it grows
};

Status Store(Database& database, Batch& batch, const ImportRequest& request, ImportReport& report) {
  auto change = StoreChange::Begin(database);
  if (!change) return change.Error();
  auto changes = change.Value().Put(batch.Prices(), request.replace);
  if (!changes) return changes.Error();
  report.changes = std::move(changes.Value());
  return request.dry_run ? Status(Done{}) : change.Value().Commit();
}

}  // namespace

ImportReport ImportPrices(const ImportRequest& request) {
  ImportReport report;
  auto database = OpenStore(request.directory, request.dry_run ? Access::kTrial : Access::kWrite);
  if (!database) {
    report.faults.push_back(PlainText(database.Error()));
    return report;
  }
  Batch batch(report);
  batch.Read(request);
  batch.CompareFiles();
  batch.ReportBadLines();
  if (!report.faults.empty()) return report;
  batch.NoteLeftOut();
  const Status stored = Store(database.Value(), batch, request, report);
  if (!stored) {
    report.changes.clear();
    report.faults.push_back(PlainText(stored.Error()));
  }
  return report;
}

}  // namespace vistaplot
