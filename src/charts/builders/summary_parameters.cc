#include "charts/builders/summary_parameters.h"

#include <array>
#include <cstddef>
#include <span>

namespace vistaplot {

namespace {

using Names = std::span<const std::string_view>;

constexpr int kFirstParameterColumn = 2;  ///< two parameters, then the statistics
constexpr int kDrawDownDateColumn = 7;    ///< a date, never charted
constexpr int kKestrelixColumns = 9;

constexpr std::array<std::string_view, 15> kZephyrineNames = {"Buy Ranking Period",
                                                              "Sell Ranking Period",
                                                              "Switches per year",
                                                              "Avg Annual %",
                                                              "Max Draw Down %",
                                                              "Ulcer Index",
                                                              "Ulcer Performance Index",
                                                              "% Winners",
                                                              "% Avg Gain Per Buy",
                                                              "% Avg Gain Winners",
                                                              "% Avg Loss Losers",
                                                              "Avg STRF",
                                                              "Strategy Beta",
                                                              "Strategy Corr",
                                                              "Strategy Alpha"};

constexpr std::array<std::string_view, 8> kSummaryNames = {"Buy Signals In",
                                                           "Sell Signals In",
                                                           "Avg Annual %",
                                                           "Switches per year",
                                                           "Max Draw Down %",
                                                           "Ulcer Index",
                                                           "Ulcer Performance Index",
                                                           "% Winners"};

constexpr std::array<std::string_view, 5> kVornaxilNames = {"Ra", "Mr", "Tr", "S/Y", "Rsk"};
constexpr std::array<std::string_view, 1> kThirdParameter = {"Parm3"};

/// Names at consecutive columns from `first_column` on.
std::vector<ChartField> Consecutive(Names names, int first_column) {
  std::vector<ChartField> fields;
  for (const std::string_view name : names) {
    fields.push_back({std::string(name), first_column++});
  }
  return fields;
}

/// The same for a summary sheet, stepping over the date of the draw-down.
std::vector<ChartField> SummaryColumns(Names names) {
  std::vector<ChartField> fields = Consecutive(names, kFirstParameterColumn);
  for (ChartField& field : fields) {
    if (field.column >= kDrawDownDateColumn) ++field.column;
  }
  return fields;
}

ChartFields SummaryCases(Names names) {
  return {.x = {{"Test Case", 0}}, .y = SummaryColumns(names), .data = {}};
}

/// The first two columns are the parameters, the others the data.
ChartFields SummaryParameters(Names names) {
  std::vector<ChartField> fields = SummaryColumns(names);
  return {.x = {fields[0]}, .y = {fields[1]}, .data = {fields.begin() + 2, fields.end()}};
}

bool IsVornaxilKind(std::string_view kind) {
  return kind == "SM " || kind == "APM";
}

ChartFields VornaxilCases(std::string_view kind) {
  if (!IsVornaxilKind(kind)) return {};
  return {.x = {{"Case", 0}}, .y = Consecutive(kVornaxilNames, kind == "APM" ? 3 : 4), .data = {}};
}

ChartFields VornaxilParameters(std::string_view kind) {
  if (!IsVornaxilKind(kind)) return {};
  ChartFields fields{.x = {{"Parm1", 1}}, .y = {{"Parm2", 2}}, .data = {}};
  if (kind == "APM") {
    fields.data = Consecutive(kVornaxilNames, 3);
    fields.first_data = 1;
  } else {
    fields.data = Consecutive(kThirdParameter, 3);
  }
  return fields;
}

/// Kestrelix columns `first` to `last` under their own headings.
std::vector<ChartField> KestrelixColumns(const FieldSource& source, int first, int last) {
  std::vector<ChartField> fields;
  for (int column = first; column <= last; ++column) {
    const auto index = static_cast<std::size_t>(column - 1);
    const bool known = index < source.kestrelix_names.size();
    fields.push_back({known ? source.kestrelix_names[index] : std::string(), column});
  }
  return fields;
}

}  // namespace

ChartFields TestCaseFields(const FieldSource& source) {
  switch (source.type) {
    case DataType::kZephyrine:
      return SummaryCases(kZephyrineNames);
    case DataType::kSummary:
      return SummaryCases(kSummaryNames);
    case DataType::kVornaxil:
      return VornaxilCases(source.VornaxilKind);
    case DataType::kKestrelix:
      if (!source.KestrelixLoaded) return {};
      return {.x = {{"Case", 0}}, .y = KestrelixColumns(source, 1, kKestrelixColumns), .data = {}};
    case DataType::kPrices:
    case DataType::kDetail:
      break;
  }
  return {};
}

ChartFields ParameterFields(const FieldSource& source) {
  switch (source.type) {
    case DataType::kZephyrine:
      return SummaryParameters(kZephyrineNames);
    case DataType::kSummary:
      return SummaryParameters(kSummaryNames);
    case DataType::kVornaxil:
      return VornaxilParameters(source.VornaxilKind);
    case DataType::kKestrelix:
      if (!source.KestrelixLoaded) return {};
      return {.x = KestrelixColumns(source, 1, 1),
              .y = KestrelixColumns(source, 2, 2),
              .data = KestrelixColumns(source, 3, kKestrelixColumns)};
    case DataType::kPrices:
    case DataType::kDetail:
      break;
  }
  return {};
}

bool LowerIsBetter(std::string_view name) {
  return name == "Max Draw Down %" || name == "Ulcer Index";
}

}  // namespace vistaplot
