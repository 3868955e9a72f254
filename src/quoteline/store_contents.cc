#include "quoteline/store_contents.h"

#include <algorithm>
#include <set>
#include <utility>

#include "quoteline/quoteline.h"
#include "quoteline/store.h"
#include "quoteline/store_writing.h"

namespace vistaplot {

namespace {

constexpr std::string_view kRebuildRestores = "; \"quoteline rebuild\" puts it right";

// A text that may be damaged, fit for a message.
std::string Legible(std::string text) {
  std::replace_if(
      text.begin(), text.end(), [](char c) { return c < ' ' || c > '~'; }, '?');
  return text.substr(0, 20);
}

std::string LostRowFault(const IssueRow& issue) {
  return issue.symbol + ": its row " + std::to_string(issue.id) +
         " among the issues is damaged or missing" + std::string(kRebuildRestores);
}

std::string DamagedRowFault(const IssueRow& issue) {
  const std::string number = std::to_string(issue.id);
  return "issues: row " + number + ", which reads \"" + Legible(issue.symbol) +
         "\", is damaged, and the symbol index does not tell what it was; \"quoteline remove '#" +
         number + "'\" removes it and its history, for it to be imported anew";
}

// True when the damaged row is one of those that the index can put right: that of the same number,
// or, where the number is what was damaged, the one that else reads the same.
bool IsRestorable(const StoreContents& contents, const IssueRow& damaged) {
  return std::any_of(contents.lost.begin(), contents.lost.end(), [&](const IssueRow& lost) {
    return lost.id == damaged.id ||
           (lost.symbol == damaged.symbol && lost.checksum == damaged.checksum);
  });
}

bool HasCalendarFault(const StoreContents& contents) {
  return contents.state.is_from_copy || !contents.copy_fits;
}

std::vector<std::string> DamagedRowFaults(const StoreContents& contents) {
  std::vector<std::string> faults;
  for (const IssueRow& issue : contents.damaged) {
    if (!IsRestorable(contents, issue)) faults.push_back(DamagedRowFault(issue));
  }
  return faults;
}

}  // namespace

Result<StoreContents> LoadContents(Database& database) {
  StoreContents contents;
  auto state = LoadState(database);
  if (!state) return state.Error();
  contents.state = std::move(state.Value());
  const bool has_copy = contents.state.form != StoreForm::kFirst;
  contents.copy_fits = !has_copy || HasSameCopy(database, contents.state);
  database.Forgive();
  auto index = LoadIndex(database, contents.state);
  if (index) contents.index = std::move(index.Value());
  for (IssueRow& issue : LoadIssues(database, contents.state.form)) {
    auto& list = issue.is_sound ? contents.issues : contents.damaged;
    list.push_back(std::move(issue));
  }
  if (auto outcome = database.Outcome(); !outcome) return outcome.Error();
  if (!contents.index) return contents;
  std::set<std::int64_t> whole;
  for (const IssueRow& issue : contents.issues) whole.insert(issue.id);
  for (const IssueEntry& entry : contents.index->Entries()) {
    if (whole.contains(entry.id)) continue;
    contents.lost.push_back(RowOf(*contents.index, entry, contents.state.form));
  }
  return contents;
}

std::vector<std::string> RowFaults(const StoreContents& contents) {
  std::vector<std::string> faults;
  if (contents.state.is_from_copy) {
    faults.push_back("calendar: is damaged, but its copy is whole" + std::string(kRebuildRestores));
  } else if (!contents.copy_fits) {
    faults.push_back("calendar: its copy is damaged" + std::string(kRebuildRestores));
  }
  for (const IssueRow& issue : contents.lost) faults.push_back(LostRowFault(issue));
  for (std::string& fault : DamagedRowFaults(contents)) faults.push_back(std::move(fault));
  return faults;
}

Result<RebuildReport> RebuildStore(Database& database) {
  Transaction transaction(database);
  if (auto fit = CheckBeforeWriting(database); !fit) return fit.Error();
  MakeTables(database);
  auto loaded = LoadContents(database);
  if (!loaded) return loaded.Error();
  const StoreContents& contents = loaded.Value();
  RebuildReport report{.restored = static_cast<int>(contents.lost.size()),
                       .calendar_restored = HasCalendarFault(contents),
                       .left_out = DamagedRowFaults(contents)};
  for (const IssueRow& issue : contents.damaged) {
    if (!IsRestorable(contents, issue)) continue;
    Query(database, "DELETE FROM issues WHERE id = ?1").Bind(1, issue.id).RunOnce();
  }
  for (const IssueRow& issue : contents.lost) WriteRow(database, issue);
  WriteState(database, contents.state);
  std::vector<IssueRow> issues = LoadIssues(database, contents.state.form);
  std::erase_if(issues, [](const IssueRow& issue) { return !issue.is_sound; });
  WriteIndex(database, issues, contents.state.stamp);
  report.issues = static_cast<int>(issues.size());
  if (auto outcome = transaction.Commit(); !outcome) return outcome.Error();
  return report;
}

Status RemoveDamagedRow(Database& database, std::int64_t id) {
  Transaction transaction(database);
  if (auto fit = CheckBeforeWriting(database); !fit) return fit;
  const auto contents = LoadContents(database);
  if (!contents) return contents.Error();
  const auto& damaged = contents.Value().damaged;
  const auto row = std::find_if(
      damaged.begin(), damaged.end(), [id](const IssueRow& issue) { return issue.id == id; });
  const auto refusal = [id](std::int32_t status, std::string text) {
    return RuntimeError{.number = status,
                        .description = std::move(text),
                        .subject = std::string(1, '#') + std::to_string(id)};
  };
  if (row == damaged.end()) {
    return refusal(QL_NO_SUCH_ISSUE, "is no damaged row; nothing was removed");
  }
  if (IsRestorable(contents.Value(), *row) || HasCalendarFault(contents.Value())) {
    return refusal(QL_GENERAL_FAILURE, "nothing was removed" + std::string(kRebuildRestores));
  }
  DeleteIssue(database, id);
  StoreState state = contents.Value().state;
  ++state.stamp;
  WriteState(database, state);
  WriteIndex(database, contents.Value().issues, state.stamp);
  return transaction.Commit();
}

}  // namespace vistaplot
