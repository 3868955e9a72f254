// What a result file's charts can show: the lists that the parameter screen offers, and the sheet
// column behind each entry.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vistaplot {

/// Positions in the list of data types.
enum class DataType {
  kZephyrine = 0,
  kPrices = 1,
  kVornaxil = 2,
  kKestrelix = 3,
  kSummary = 4,
  kDetail = 5
};

/// One entry of a list.
struct ChartField {
  std::string name;
  int column;  ///< of the result sheet, from 1
};

/// The lists of one chart of result files.
struct ChartFields {
  std::vector<ChartField> x;
  std::vector<ChartField> y;
  std::vector<ChartField> data;  ///< empty where the chart has no data field
  int first_data = 0;            ///< entry of `data` to choose at first
};

/// What the lists depend on.
struct FieldSource {
  DataType type = DataType::kZephyrine;
  std::string VornaxilKind;                  ///< "SM ", "APM", or empty: lists stay empty
  bool KestrelixLoaded = false;              ///< false: lists stay empty
  std::vector<std::string> kestrelix_names;  ///< texts of row 2, columns 1 to 9
};

/// Statistic against test case, for the graph types "Scatter" and "XY Line". The X entry's column
/// is 0: it is the case's position.
ChartFields TestCaseFields(const FieldSource& source);

/// Statistic over two parameters, for the graph types "Contour" and "3D Surface".
ChartFields ParameterFields(const FieldSource& source);

/// Of this statistic the lowest value is the best: a draw-down or an ulcer index.
bool LowerIsBetter(std::string_view name);

}  // namespace vistaplot
