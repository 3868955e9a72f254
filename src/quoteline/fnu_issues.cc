#include "quoteline/fnu_issues.h"

#include <sys/stat.h>

#include <algorithm>
#include <chrono>
#include <optional>

#include "base/files.h"
#include "base/text.h"
#include "formats/fnu_file.h"
#include "quoteline/history.h"

namespace vistaplot {

namespace {

// Time stamps of files move in steps; a file changed within one step of its reading may change
// once more without a trace.
constexpr std::int64_t kStampStepNs = 50'000'000;

std::int64_t Nanoseconds(const timespec& time) {
  return std::int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec;
}

std::int64_t NowNs() {
  const auto now = std::chrono::system_clock::now().time_since_epoch();
  return std::chrono::duration_cast<std::chrono::nanoseconds>(now).count();
}

// Lines laid on market days; lines of other dates are skipped, of two lines of a date the later
// one counts.
std::optional<FnuIssue> LayOnDays(const FnuFile& file, const std::vector<DateSerial>& days) {
  std::vector<float> values(days.size());
  std::vector<std::uint8_t> priced(PricedBytes(days.size()));
  std::size_t first = days.size();
  std::size_t last = 0;
  for (const FnuValue& line : file.values) {
    const auto day = std::lower_bound(days.begin(), days.end(), line.date);
    if (day == days.end() || *day != line.date) continue;
    const auto index = static_cast<std::size_t>(day - days.begin());
    values[index] = line.value;
    priced[index / 8] = static_cast<std::uint8_t>(priced[index / 8] | 1U << (index % 8));
    first = std::min(first, index);
    last = std::max(last, index);
  }
  if (first == days.size()) return std::nullopt;
  FnuIssue issue{.symbol = *KeyOf(file.symbol),
                 .name = file.title,
                 .file = {},
                 .first_day = static_cast<int>(first) + 1,
                 .lines = CountPrices({.first_day = 1, .prices = {}, .priced = priced}),
                 .values = {}};
  // Days ahead of the first line have no bit either and carry zeros, which are cut off here.
  CarryForward(values, priced);
  issue.values.assign(values.begin() + static_cast<std::ptrdiff_t>(first),
                      values.begin() + static_cast<std::ptrdiff_t>(last) + 1);
  return issue;
}

}  // namespace

FnuIssues::FileState FnuIssues::StateOf(const std::string& folder, const std::string& name) {
  FileState state{.name = name};
  struct stat info {};
  if (::stat(JoinPath(folder, name).c_str(), &info) != 0) return state;
  state.inode = info.st_ino;
  state.size = info.st_size;
  state.modified_ns = Nanoseconds(info.st_mtim);
  state.changed_ns = Nanoseconds(info.st_ctim);
  return state;
}

std::vector<FnuIssues::FileState> FnuIssues::ListStates(const std::string& folder) {
  std::vector<FileState> states;
  const auto names = ListFiles(folder, "*.fnu");
  if (!names) return states;
  for (const std::string& name : names.Value()) states.push_back(StateOf(folder, name));
  return states;
}

bool FnuIssues::Refresh(const std::string& folder,
                        const std::vector<DateSerial>& days,
                        bool calendar_changed) {
  std::vector<FileState> states = ListStates(folder);
  const bool same = !calendar_changed && states == states_;
  if (same) return false;
  const std::int64_t now = NowNs();
  issues_.clear();
  faults_.clear();
  for (const FileState& state : states) Read(folder, state.name, days);
  // A fresh file never equals the state found next time, so that it is read once more.
  for (FileState& state : states) state.is_fresh = state.changed_ns > now - kStampStepNs;
  states_ = std::move(states);
  DropDoubles();
  return true;
}

bool FnuIssues::IsCurrent(const std::string& folder, const FnuIssue& issue) const {
  const auto known = std::find_if(states_.begin(), states_.end(), [&issue](const FileState& state) {
    return state.name == issue.file;
  });
  return known != states_.end() && *known == StateOf(folder, issue.file);
}

const FnuIssue* FnuIssues::Find(const SymbolKey& symbol) const {
  const auto found = std::lower_bound(
      issues_.begin(), issues_.end(), symbol, [](const FnuIssue& issue, const SymbolKey& key) {
        return issue.symbol < key;
      });
  return found != issues_.end() && found->symbol == symbol ? &*found : nullptr;
}

void FnuIssues::Read(const std::string& folder,
                     const std::string& name,
                     const std::vector<DateSerial>& days) {
  const auto bytes = ReadWholeFile(JoinPath(folder, name));
  if (!bytes) {
    faults_.push_back(PlainText(bytes.Error()));
    return;
  }
  const auto file = ParseFnuFile(name, bytes.Value());
  if (!file) {
    faults_.push_back(PlainText(file.Error()));
    return;
  }
  auto issue = LayOnDays(file.Value(), days);
  if (!issue) {
    faults_.push_back(name + ": no line of it falls on a market day");
    return;
  }
  issue->file = name;
  issues_.push_back(std::move(*issue));
}

void FnuIssues::DropDoubles() {
  std::stable_sort(issues_.begin(), issues_.end(), [](const FnuIssue& a, const FnuIssue& b) {
    return a.symbol < b.symbol;
  });
  std::vector<FnuIssue> kept;
  for (FnuIssue& issue : issues_) {
    if (!kept.empty() && kept.back().symbol == issue.symbol) {
      faults_.push_back(issue.file + ": its symbol " + SymbolText(issue.symbol) + " is that of " +
                        kept.back().file);
    } else {
      kept.push_back(std::move(issue));
    }
  }
  issues_ = std::move(kept);
}

}  // namespace vistaplot
