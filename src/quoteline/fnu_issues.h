// The issues that FNU files in the service directory make, kept in step with the files.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/date.h"
#include "quoteline/symbol_index.h"

namespace vistaplot {

/// A series on market days: from the first to the last day with a line, days between two lines
/// with the value of the day before.
struct FnuIssue {
  SymbolKey symbol{};
  std::string name;  ///< UTF-8; may be empty
  std::string file;  ///< file name without folder
  int first_day = 0;
  int lines = 0;  ///< number of market days with a line
  std::vector<float> values;

  int LastDay() const { return first_day + static_cast<int>(values.size()) - 1; }
};

class FnuIssues {
 public:
  /// Brings the issues in step with the *.FNU files (any case) of a folder, on a calendar whose
  /// element 0 is market day 1. Files that have not changed are not read again, unless
  /// `calendar_changed`. True when anything is different now.
  bool Refresh(const std::string& folder,
               const std::vector<DateSerial>& days,
               bool calendar_changed);

  /// True when this issue's own file is as it was when it was read.
  bool IsCurrent(const std::string& folder, const FnuIssue& issue) const;

  const FnuIssue* Find(const SymbolKey& symbol) const;  ///< null when there is none

  /// Ascending by symbol. Of two files with one symbol the first by name counts.
  const std::vector<FnuIssue>& All() const { return issues_; }

  /// One sentence a file that was left out: "NAME:LINE: what is wrong".
  const std::vector<std::string>& Faults() const { return faults_; }

 private:
  struct FileState {
    std::string name;
    std::uint64_t inode = 0;
    std::int64_t size = -1;
    std::int64_t modified_ns = 0;
    std::int64_t changed_ns = 0;
    bool is_fresh = false;  ///< changed so shortly before it was read that a later change may hide

    bool operator==(const FileState&) const = default;
  };

  static FileState StateOf(const std::string& folder, const std::string& name);
  static std::vector<FileState> ListStates(const std::string& folder);
  void Read(const std::string& folder,
            const std::string& name,
            const std::vector<DateSerial>& days);
  void DropDoubles();

  std::vector<FileState> states_;
  std::vector<FnuIssue> issues_;
  std::vector<std::string> faults_;
};

}  // namespace vistaplot
