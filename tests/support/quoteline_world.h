// A service directory of its own for a test: price files in, answers of the QL functions out.
#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "quoteline/administration.h"
#include "quoteline/price_import.h"
#include "quoteline/quoteline.h"
#include "support/temporary_folder.h"

namespace vistaplot::test {

// Requests that differ from the plain one in one thing.
inline ImportRequest Adjusted() {
  ImportRequest request;
  request.options.adjusted = true;
  return request;
}
inline ImportRequest Named(std::string name) {
  ImportRequest request;
  request.options.name = std::move(name);
  return request;
}
inline ImportRequest Replacing() {
  ImportRequest request;
  request.replace = true;
  return request;
}
inline ImportRequest DryRun() {
  ImportRequest request;
  request.dry_run = true;
  return request;
}

class QuotelineWorld {
 public:
  QuotelineWorld() {
    const auto made = InitService(folder.Path());
    (void)made;
    QLsetDirectory(folder.Path().c_str());
  }
  ~QuotelineWorld() {
    QLclose();
    QLsetDirectory(nullptr);
  }
  QuotelineWorld(const QuotelineWorld&) = delete;
  QuotelineWorld& operator=(const QuotelineWorld&) = delete;

  /// Imports one file of this name and text.
  ImportReport Import(const std::string& name, std::string_view text, ImportRequest request = {}) {
    request.directory = folder.Path();
    request.files = {files.Write(name, text)};
    return ImportPrices(request);
  }

  /// Imports files that are there already.
  ImportReport ImportFiles(std::vector<std::string> paths) {
    ImportRequest request;
    request.directory = folder.Path();
    request.files = std::move(paths);
    return ImportPrices(request);
  }

  /// "SYMBOL FIRST LAST COUNT NAME" of each issue, single blanks between.
  std::vector<std::string> List(std::string_view pattern = {}) const {
    const auto lines = ListIssues(folder.Path(), pattern);
    if (!lines) return {PlainText(lines.Error())};
    std::vector<std::string> list;
    for (const std::string& line : lines.Value()) {
      std::string single;
      for (const char c : line) {
        if (c != ' ' || (!single.empty() && single.back() != ' ')) single += c;
      }
      list.push_back(single);
    }
    return list;
  }

  /// "day,date,price" lines of an issue, without the heading.
  std::string Prices(std::string_view symbol) const {
    const auto csv = HistoryCsv(folder.Path(), symbol);
    return csv ? csv.Value().substr(csv.Value().find('\n') + 1) : PlainText(csv.Error());
  }

  /// Runs SQL on the database behind the service's back.
  void Tamper(const std::string& sql) const {
    sqlite3* handle = nullptr;
    sqlite3_open(folder.Path("quoteline.db").c_str(), &handle);
    sqlite3_exec(handle, sql.c_str(), nullptr, nullptr, nullptr);
    sqlite3_close(handle);
  }

  TemporaryFolder folder;  ///< the service directory
  TemporaryFolder files;   ///< price files
};

/// A symbol or a name as a caller finds it in a buffer of blanks, up to the zero byte.
template <class Call>
std::string TextOut(std::int32_t size, Call call) {
  std::string buffer(static_cast<std::size_t>(size), ' ');
  call(buffer.data());
  return buffer.substr(0, buffer.find('\0'));
}

inline std::vector<std::string> IterateSymbols() {
  std::vector<std::string> symbols;
  const std::int32_t iterator = QLgetIssueIter();
  for (bool more = true; more;) {
    const std::string symbol =
        TextOut(QLgetSymSize(), [&](char* buffer) { more = QLissueNext(iterator, buffer) != 0; });
    if (more) symbols.push_back(symbol);
  }
  QLcloseIssueIter(iterator);
  return symbols;
}

/// Elements 1 to QLgetMaxNumDays of a fetch into a buffer of -1; empty when it fails.
inline std::vector<float> FetchPrices(const char* symbol) {
  std::vector<float> prices(static_cast<std::size_t>(QLgetMaxNumDays()) + 1, -1.0F);
  if (QLgetIssue(symbol, prices.data()) != 0) return {};
  prices.erase(prices.begin());
  return prices;
}

}  // namespace vistaplot::test
