#include "quoteline/check.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <set>
#include <utility>

#include "base/date.h"
#include "base/files.h"
#include "base/text.h"
#include "quoteline/family_folders.h"
#include "quoteline/fnu_issues.h"
#include "quoteline/store.h"
#include "quoteline/store_contents.h"

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
  const std::vector<DateSerial>& Days() const { return contents_.state.days; }

  void Fault(std::string_view subject, std::string_view text) {
    report_.faults.push_back(std::string(subject) + ": " + std::string(text));
  }

  void CheckDatabase(Database& database) {
    database.Run("BEGIN");
    CheckStructure(database);
    auto loaded = LoadContents(database);
    if (!loaded) {
      report_.faults.push_back(PlainText(loaded.Error()));
      return;
    }
    contents_ = std::move(loaded.Value());
    for (std::string& fault : RowFaults(contents_)) report_.faults.push_back(std::move(fault));
    issues_known_ = true;
    report_.days = Days().size();
    report_.issues =
        contents_.issues.size() + std::max(contents_.lost.size(), contents_.damaged.size());
    CheckStrays(database);
    CheckIssues(database);
    if (const auto outcome = database.Outcome(); !outcome) {
      report_.faults.push_back(PlainText(outcome.Error()));
    }
  }

  void CheckIssues(Database& database) {
    std::vector<bool> used(Days().size());
    for (const IssueRow& issue : contents_.issues) CheckIssue(database, issue, used);
    for (const IssueRow& issue : contents_.lost) CheckIssue(database, issue, used);
    // Only whole histories can tell which days are in use.
    histories_sound_ = histories_sound_ && contents_.damaged.size() <= contents_.lost.size();
    CheckCalendar(used);
    CheckIndex(database);
  }

  void CheckStructure(Database& database) {
    const std::vector<std::string> faults = StructureFaults(database, 20);
    for (const std::string& fault : faults) Fault(database.Path(), fault);
    if (!faults.empty()) {
      report_.notes.emplace_back(
          "no change is made to a database whose structure is damaged; what still reads can be"
          " saved with \"quoteline prices\" and imported into a new one");
    }
  }

  void CheckStrays(Database& database) {
    Query strays(database,
                 "SELECT issue FROM histories WHERE issue NOT IN (SELECT id FROM issues)");
    while (strays.Next()) {
      const std::int64_t id = strays.Integer(0);
      const bool is_lost = std::any_of(contents_.lost.begin(),
                                       contents_.lost.end(),
                                       [id](const IssueRow& issue) { return issue.id == id; });
      if (!is_lost) Fault(database.Path(), "history " + std::to_string(id) + " has no issue");
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
    } else if (!HasSoundDays(issue, used.size())) {
      Fault(issue.symbol, "its history goes beyond the calendar");
    } else if (!IsIntact(*history, issue) || !HasSoundValues(*history)) {
      Fault(issue.symbol, "its history is damaged");
    } else {
      for (std::size_t i = 0; i < history->prices.size(); ++i) {
        if (history->HasPrice(i)) used[static_cast<std::size_t>(issue.first_day - 1) + i] = true;
      }
      return;
    }
    histories_sound_ = false;
  }

  void CheckCalendar(const std::vector<bool>& used) {
    if (!histories_sound_) return;
    for (std::size_t i = 0; i < used.size(); ++i) {
      if (used[i]) continue;
      Fault("calendar",
            "no issue has a price on " + DateText(Days()[i], DatePattern::kIso) + " (day " +
                std::to_string(i + 1) + ")");
    }
  }

  void CheckIndex(Database& database) {
    const auto index = LoadIndex(database, contents_.state);
    if (!index) {
      report_.faults.push_back(PlainText(index.Error()) + "; \"quoteline rebuild\" repairs it");
      return;
    }
    bool fits = index.Value().Entries().size() == contents_.issues.size() + contents_.lost.size();
    for (const IssueRow& issue : contents_.issues) {
      const auto key = KeyOf(issue.symbol);
      const IssueEntry* entry = key ? index.Value().Find(*key) : nullptr;
      fits = fits && entry != nullptr && AgreesWith(issue, index.Value(), *entry);
    }
    if (!fits) Fault("symbol index", "differs from the issues; \"quoteline rebuild\" repairs it");
  }

  void CheckFnuFiles() {
    FnuIssues fnu;
    fnu.Refresh(directory_, Days(), true);
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
  StoreContents contents_;
  std::set<std::string> symbols_;
  bool histories_sound_ = true;
  bool issues_known_ = false;  ///< and the calendar; what depends on them is checked only then
};

}  // namespace

CheckReport CheckService(const std::string& directory) {
  return Checker(directory).Check();
}

}  // namespace vistaplot
