#include "batch/comparison.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

#include "base/csv.h"
#include "base/number_text.h"

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

std::string Shown(const JsonValue& value) {
  switch (value.kind) {
    case JsonValue::Kind::kNull:
      return "null";
    case JsonValue::Kind::kBool:
      return value.truth ? "true" : "false";
    case JsonValue::Kind::kNumber:
      return ExactText(value.number);
    case JsonValue::Kind::kText:
      return Quoted(value.text);
    case JsonValue::Kind::kArray:
      return "a list of " + std::to_string(value.items.size());
    case JsonValue::Kind::kObject:
      break;
  }
  return "an object";
}

class JsonComparison {
 public:
  JsonComparison(double tolerance, Differences& differences)
      : tolerance_(tolerance), differences_(differences) {}

  // Equal values cost no text: `path_` grows and shrinks in place.
  void Compare(const JsonValue& expected, const JsonValue& found) {
    if (expected.kind != found.kind) return Differ(Shown(expected), Shown(found));
    switch (expected.kind) {
      case JsonValue::Kind::kNull:
        return;
      case JsonValue::Kind::kArray:
        return CompareItems(expected, found);
      case JsonValue::Kind::kObject:
        return CompareMembers(expected, found);
      default:
        break;
    }
    const bool same = expected.kind == JsonValue::Kind::kNumber
                          ? Near(expected.number, found.number, tolerance_)
                          : expected.truth == found.truth && expected.text == found.text;
    if (!same) Differ(Shown(expected), Shown(found));
  }

 private:
  void Differ(const std::string& expected, const std::string& found) {
    differences_.Add((path_.empty() ? "the whole" : path_) + ": " + expected + " expected, " +
                     found + " found");
  }

  void CompareItems(const JsonValue& expected, const JsonValue& found) {
    if (expected.items.size() != found.items.size()) Differ(Shown(expected), Shown(found));
    const std::size_t length = path_.size();
    const std::size_t count = std::min(expected.items.size(), found.items.size());
    for (std::size_t i = 0; i < count; ++i) {
      path_ += '[' + std::to_string(i + 1) + ']';
      Compare(expected.items[i], found.items[i]);
      path_.resize(length);
    }
  }

  void CompareMembers(const JsonValue& expected, const JsonValue& found) {
    const std::size_t length = path_.size();
    const auto enter = [this, length](const std::string& key) {
      path_ += (length == 0 ? "" : ".") + key;
    };
    for (std::size_t i = 0; i < expected.keys.size(); ++i) {
      enter(expected.keys[i]);
      const JsonValue* other = found.Find(expected.keys[i]);
      other == nullptr ? Differ(Shown(expected.items[i]), "nothing")
                       : Compare(expected.items[i], *other);
      path_.resize(length);
    }
    for (std::size_t i = 0; i < found.keys.size(); ++i) {
      if (expected.Find(found.keys[i]) != nullptr) continue;
      enter(found.keys[i]);
      Differ("nothing", Shown(found.items[i]));
      path_.resize(length);
    }
  }

  double tolerance_;
  Differences& differences_;
  std::string path_;  ///< e.g. "data[12][3]", items counting from 1
};

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

Differences CompareJson(const JsonValue& expected, const JsonValue& found, double tolerance) {
  Differences differences;
  JsonComparison(tolerance, differences).Compare(expected, found);
  return differences;
}

}  // namespace vistaplot
