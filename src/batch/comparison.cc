#include "batch/comparison.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <nlohmann/json.hpp>
#include <utility>

#include "base/number_text.h"
#include "base/text.h"

namespace vistaplot {

namespace {

bool Near(double a, double b, double tolerance) {
  return a == b || std::abs(a - b) <= tolerance * std::max(std::abs(a), std::abs(b));
}

bool SameCell(std::string_view expected, std::string_view found, double tolerance) {
  if (expected == found) return true;
  const auto a = WholeNumber(expected);
  const auto b = WholeNumber(found);
  return a && b && Near(*a, *b, tolerance);
}

std::string Quoted(std::string_view text) {
  std::string quoted = "\"";
  quoted += text;
  quoted += '"';
  return quoted;
}

void CompareRow(const Sheet& sheet,
                int row,
                const std::vector<std::string>& expected,
                double tolerance,
                Differences& differences) {
  const int columns = std::max(sheet.MaxCol, 1);  // a row without columns is an empty line
  const std::string where = "row " + std::to_string(row);
  if (static_cast<int>(expected.size()) != columns) {
    differences.Add(where + ": " + std::to_string(expected.size()) + " columns expected, " +
                    std::to_string(sheet.MaxCol) + " found");
    return;
  }
  for (int col = 1; col <= columns; ++col) {
    const std::string& cell = expected[static_cast<std::size_t>(col - 1)];
    const std::string found = col <= sheet.MaxCol ? sheet.CellText(row, col) : std::string();
    if (SameCell(cell, found, tolerance)) continue;
    differences.Add(where + ", column " + std::to_string(col) + ": " + Quoted(cell) +
                    " expected, " + Quoted(found) + " found");
  }
}

// Members stay in the order of the text, so that differences are told in it.
using Json = nlohmann::ordered_json;

// One kind for all numbers, whatever the reader makes of them.
Json::value_t KindOf(const Json& value) {
  return value.is_number() ? Json::value_t::number_float : value.type();
}

std::string Shown(const Json& value) {
  if (value.is_number()) return ExactText(value.get<double>());
  if (value.is_string()) return Quoted(value.get_ref<const std::string&>());
  if (value.is_array()) return "a list of " + std::to_string(value.size());
  if (value.is_object()) return "an object";
  return value.dump();
}

class JsonComparison {
 public:
  JsonComparison(double tolerance, Differences& differences)
      : tolerance_(tolerance), differences_(differences) {}

  // Equal values cost no text: `path_` grows and shrinks in place.
  void Compare(const Json& expected, const Json& found) {
    if (KindOf(expected) != KindOf(found)) return Differ(Shown(expected), Shown(found));
    if (expected.is_array()) return CompareItems(expected, found);
    if (expected.is_object()) return CompareMembers(expected, found);
    const bool same = expected.is_number()
                          ? Near(expected.get<double>(), found.get<double>(), tolerance_)
                          : expected == found;
    if (!same) Differ(Shown(expected), Shown(found));
  }

 private:
  void Differ(const std::string& expected, const std::string& found) {
    differences_.Add((path_.empty() ? "the whole" : path_) + ": " + expected + " expected, " +
                     found + " found");
  }

  void CompareItems(const Json& expected, const Json& found) {
    if (expected.size() != found.size()) Differ(Shown(expected), Shown(found));
    const std::size_t length = path_.size();
    const std::size_t count = std::min(expected.size(), found.size());
    for (std::size_t i = 0; i < count; ++i) {
      path_ += '[' + std::to_string(i + 1) + ']';
      Compare(expected[i], found[i]);
      path_.resize(length);
    }
  }

  void CompareMembers(const Json& expected, const Json& found) {
    const std::size_t length = path_.size();
    const auto enter = [this, length](const std::string& key) {
      path_ += (length == 0 ? "" : ".") + key;
    };
    for (const auto& [key, value] : expected.items()) {
      enter(key);
      const auto other = found.find(key);
      other == found.end() ? Differ(Shown(value), "nothing") : Compare(value, *other);
      path_.resize(length);
    }
    for (const auto& [key, value] : found.items()) {
      if (expected.contains(key)) continue;
      enter(key);
      Differ("nothing", Shown(value));
      path_.resize(length);
    }
  }

  double tolerance_;
  Differences& differences_;
  std::string path_;  ///< e.g. "data[12][3]", items counting from 1
};

// The reader's words, "[json.exception.parse_error.101] parse error at line 1, column 7: ...; last
// read: ...", without what comes ahead of the place and without the bytes it read last.
std::string JsonFault(std::string_view text) {
  for (const std::string_view ahead : {"] ", "parse error at "}) {
    const std::size_t place = text.find(ahead);
    if (place != std::string_view::npos) text.remove_prefix(place + ahead.size());
  }
  return std::string(text.substr(0, text.find("; last read: ")));
}

}  // namespace

void Differences::Add(std::string difference) {
  if (count++ < kMostTold) told.push_back(std::move(difference));
}

Differences CompareSheet(const Sheet& sheet, std::string_view csv, double tolerance) {
  Differences differences;
  CsvReader reader(csv);
  std::vector<std::string> expected;
  int rows = 0;
  while (reader.Next(expected)) {
    if (++rows <= sheet.MaxRow) CompareRow(sheet, rows, expected, tolerance, differences);
  }
  if (reader.Broken()) {
    differences.Add("row " + std::to_string(rows + 1) + ": a double quote is not closed");
  } else if (rows != sheet.MaxRow) {
    differences.Add(std::to_string(rows) + " rows expected, " + std::to_string(sheet.MaxRow) +
                    " found");
  }
  return differences;
}

Result<Differences> CompareJson(std::string_view expected,
                                std::string_view found,
                                double tolerance) {
  try {
    Differences differences;
    JsonComparison(tolerance, differences).Compare(Json::parse(expected), Json::parse(found));
    return differences;
  } catch (const Json::exception& failure) {
    return RuntimeError{
        .number = kErrorTypeMismatch, .description = JsonFault(failure.what()), .subject = {}};
  }
}

}  // namespace vistaplot
