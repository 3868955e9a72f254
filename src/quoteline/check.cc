#include "quoteline/check.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <set>
#include <utility>

#include "base/date.h"
#include "base/files.h"
#include "base/text.h"
#include "quoteline/family_folders.h"
#include "quoteline/fnu_issues.h"
#include "quoteline/store.h"

namespace vistaplot {

namespace {

bool HasSoundValues(const History& history) {
  for (std::size_t i = 0; i < history.prices.size(); ++i) {
    const float price = history.prices[i];
    if (!(price > 0.0F) || !std::isfinite(price)) return false;
    if (!history.HasPrice(i) && price != history.prices[i - 1]) return false;
  }
  return true;
}

class Checker {
 public:
  explicit Checker(const std::string& directory) : directory_(directory) {}

  CheckReport Check() {
    auto database = OpenStore(directory_, Access::kRead);
    if (!database) {
      report_.faults.push_back(PlainText(database.Error()));
    } else {
      CheckDatabase(database.Value());
    }
    if (!issues_known_) {
      report_.notes.emplace_back(
          "FNU and family files are not compared with the issues: the database does not tell them");
    }
    if (issues_known_) CheckFnuFiles();
    for (const std::string_view folder : kFamilyFolders) CheckFamilies(folder);
    return std::move(report_);
  }

 private:
  void Fault(std::string_view subject, std::string_view text) {
    report_.faults.push_back(std::string(subject) + ": " + std::string(text));
  }

  void CheckDatabase(Database& database) {
    database.Run("BEGIN");
    CheckStructure(database);
    auto state = LoadState(database);
    database.Forgive();
    calendar_known_ = state.Ok();
    if (calendar_known_) {
      state_ = std::move(state.Value());
      report_.days = state_.days.size();
    } else {
      report_.faults.push_back(PlainText(state.Error()));
    }
    issues_ = LoadIssues(database);
    if (const auto loaded = database.Outcome(); !loaded) {
      report_.faults.push_back(PlainText(loaded.Error()));
      return;
    }
    issues_known_ = calendar_known_;
    report_.issues = issues_.size();
    CheckIssues(database);
    if (const auto outcome = database.Outcome(); !outcome) {
      report_.faults.push_back(PlainText(outcome.Error()));
    }
  }

  void CheckIssues(Database& database) {
    std::vector<bool> used(state_.days.size());
    for (const IssueRow& issue : issues_) CheckIssue(database, issue, used);
    if (!calendar_known_) return;
    CheckCalendar(used);
    CheckIndex(database);
  }

  void CheckStructure(Database& database) {
    Query integrity(database, "PRAGMA integrity_check(20)");
    while (integrity.Next()) {
      if (integrity.Text(0) != "ok") Fault(database.Path(), integrity.Text(0));
    }
    database.Forgive();
    Query strays(database,
                 "SELECT issue FROM histories WHERE issue NOT IN (SELECT id FROM issues)");
    while (strays.Next()) {
      Fault(database.Path(), "history " + std::to_string(strays.Integer(0)) + " has no issue");
    }
    database.Forgive();
  }

  void CheckIssue(Database& database, const IssueRow& issue, std::vector<bool>& used) {
    if (SymbolFromText(issue.symbol) != issue.symbol) Fault(issue.symbol, "is no symbol");
    if (!symbols_.insert(issue.symbol).second) Fault(issue.symbol, "is there twice");
    const auto history = LoadHistory(database, issue);
    database.Forgive();
    if (!history) {
      Fault(issue.symbol, "its history is missing, or does not fit its days");
    } else if (calendar_known_ && !HasSoundDays(issue, used.size())) {
      Fault(issue.symbol, "its history goes beyond the calendar");
    } else if (!IsIntact(*history, issue) || !HasSoundValues(*history)) {
      Fault(issue.symbol, "its history is damaged");
    } else {
      if (!calendar_known_) return;
      for (std::size_t i = 0; i < history->prices.size(); ++i) {
        if (history->HasPrice(i)) used[static_cast<std::size_t>(issue.first_day - 1) + i] = true;
      }
      return;
    }
    histories_sound_ = false;
  }

  // Only sound histories can tell which days are in use.
  void CheckCalendar(const std::vector<bool>& used) {
    if (!histories_sound_) return;
    for (std::size_t i = 0; i < used.size(); ++i) {
      if (used[i]) continue;
      Fault("calendar",
            "no issue has a price on " + DateText(state_.days[i], DatePattern::kIso) + " (day " +
                std::to_string(i + 1) + ")");
    }
  }

  void CheckIndex(Database& database) {
    const auto index = LoadIndex(database, state_.stamp);
    if (!index) {
      report_.faults.push_back(PlainText(index.Error()) + "; \"quoteline rebuild\" repairs it");
      return;
    }
    bool fits = index.Value().Entries().size() == issues_.size();
    for (const IssueRow& issue : issues_) {
      const auto key = KeyOf(issue.symbol);
      const IssueEntry* entry = key ? index.Value().Find(*key) : nullptr;
      fits = fits && entry != nullptr && entry->id == issue.id &&
             entry->first_day == issue.first_day && entry->last_day == issue.last_day &&
             entry->prices == issue.prices && entry->checksum == issue.checksum &&
             index.Value().NameOf(*entry) == issue.name;
    }
    if (!fits) Fault("symbol index", "differs from the issues; \"quoteline rebuild\" repairs it");
  }

  void CheckFnuFiles() {
    FnuIssues fnu;
    fnu.Refresh(directory_, state_.days, true);
    for (const std::string& fault : fnu.Faults()) report_.faults.push_back(fault);
    for (const FnuIssue& issue : fnu.All()) {
      const std::string symbol = SymbolText(issue.symbol);
      if (symbols_.insert(symbol).second) {
        ++report_.fnu_series;
      } else {
        report_.notes.push_back(issue.file + ": hidden by the database's issue " + symbol);
      }
    }
  }

  void CheckFamilies(std::string_view folder) {
    const auto names = ListFiles(ServicePath(directory_, folder), "*.FAM");
    if (!names) {
      Fault(folder, "the folder is missing; \"quoteline init\" makes it");
      return;
    }
    for (const std::string& name : names.Value()) CheckFamily(std::string(folder) + "/" + name);
    report_.families += names.Value().size();
  }

  void CheckFamily(const std::string& name) {
    const auto bytes = ReadWholeFile(ServicePath(directory_, name));
    if (!bytes) {
      report_.faults.push_back(PlainText(bytes.Error()));
      return;
    }
    const std::string_view stem = UpToFirstDot(std::string_view(name).substr(name.rfind('/') + 1));
    const auto same_name = FamilyFilesNamed(directory_, UpperCase(stem));
    if (same_name.size() > 1 && !EqualsIgnoringCase(same_name.front(), name)) {
      report_.notes.push_back(name + ": never loaded, as " + same_name.front() +
                              " has the same name");
    }
    if (stem.size() > kFamilyName.width) {
      Fault(name, "its name has more than 8 characters, so that it cannot be loaded");
    }
    const auto family = ParseFamilyFile(bytes.Value());
    if (!family) {
      Fault(name, "is shorter than a family's header");
      return;
    }
    const int count = family.Value().header.count;
    const std::size_t held = (bytes.Value().size() - kFamilyDataStart) / FamilyEntrySize;
    if (count < 0) {
      Fault(name, "counts fewer than no symbols");
    } else if (static_cast<std::size_t>(count) > held) {
      Fault(name, "counts " + std::to_string(count) + " symbols but holds " + std::to_string(held));
    } else if (issues_known_) {
      CheckMembers(name, family.Value());
    }
  }

  void CheckMembers(const std::string& name, const Family& family) {
    for (const std::string& symbol : family.symbols) {
      if (!symbols_.contains(UpperCase(symbol))) Fault(name, "no such issue: \"" + symbol + "\"");
    }
  }

  std::string directory_;
  CheckReport report_;
  StoreState state_;
  std::vector<IssueRow> issues_;
  std::set<std::string> symbols_;
  bool histories_sound_ = true;
  bool calendar_known_ = false;  ///< what depends on it is checked only then
  bool issues_known_ = false;    ///< likewise; the calendar included
};

}  // namespace

CheckReport CheckService(const std::string& directory) {
  return Checker(directory).Check();
}

}  // namespace vistaplot
