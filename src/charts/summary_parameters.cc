#include "charts/summary_parameters.h"

#include <cstddef>
#include <initializer_list>

namespace vistaplot {

namespace {

using Names = std::initializer_list<std::string_view>;

constexpr int kDrawDownDateColumn = 7;  ///< a date, never charted
constexpr int kKestrelixColumns = 9;

/// Names at consecutive columns from `first_column` on.
std::vector<ChartField> Consecutive(Names names, int first_column) {
  std::vector<ChartField> fields;
  for (const std::string_view name : names) {
    fields.push_back({std::string(name), first_column++});
  }
  return fields;
}

/// The same for a summary sheet, stepping over the date of the draw-down.
std::vector<ChartField> SummaryColumns(Names names, int first_column) {
  std::vector<ChartField> fields = Consecutive(names, first_column);
  for (ChartField& field : fields) {
    if (field.column >= kDrawDownDateColumn) ++field.column;
  }
  return fields;
}

ChartFields ZephyrineCases() {
  return {.x = {{"Test Case", 0}},
          .y = SummaryColumns({"Buy Ranking Period",
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
                               "Strategy Alpha"},
                              2),
          .data = {}};
}

ChartFields SummaryCases() {
  return {.x = {{"Test Case", 0}},
          .y = SummaryColumns({"Buy Signals In",
                               "Sell Signals In",
                               "Avg Annual %",
                               "Switches per year",
                               "Max Draw Down %",
                               "Ulcer Index",
                               "Ulcer Performance Index",
                               "% Winners"},
                              2),
          .data = {}};
}

ChartFields ZephyrineParameters() {
  return {.x = {{"Buy Ranking Period", 2}},
          .y = {{"Sell Ranking Period", 3}},
          .data = SummaryColumns({"Switches per year",
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
                                  "Strategy Alpha"},
                                 4)};
}

ChartFields SummaryParameters() {
  return {.x = {{"Buy Signals In", 2}},
          .y = {{"Sell Signals In", 3}},
          .data = SummaryColumns({"Avg Annual %",
                                  "Switches per year",
                                  "Max Draw Down %",
                                  "Ulcer Index",
                                  "Ulcer Performance Index",
                                  "% Winners"},
                                 4)};
}

constexpr Names kVornaxilStatistics = {"Ra", "Mr", "Tr", "S/Y", "Rsk"};

ChartFields VornaxilCases(std::string_view kind) {
  if (kind.empty()) return {};
  return {.x = {{"Case", 0}},
          .y = Consecutive(kVornaxilStatistics, kind == "APM" ? 3 : 4),
          .data = {}};
}

ChartFields VornaxilParameters(std::string_view kind) {
  if (kind.empty()) return {};
  ChartFields fields{.x = {{"Parm1", 1}}, .y = {{"Parm2", 2}}, .data = {}};
  if (kind == "APM") {
    fields.data = Consecutive(kVornaxilStatistics, 3);
    fields.first_data = 1;
  } else {
    fields.data = Consecutive({"Parm3"}, 3);
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
      return ZephyrineCases();
    case DataType::kSummary:
      return SummaryCases();
    case DataType::kVornaxil:
      return VornaxilCases(source.VornaxilKind);
    case DataType::kKestrelix:
      if (!source.KestrelixLoaded) return {};
      return {.x = {{"Case", 0}},
              .y = KestrelixColumns(source, 1, kKestrelixColumns),
              .data = {}};
    case DataType::kPrices:
    case DataType::kDetail:
      break;
  }
  return {};
}

ChartFields ParameterFields(const FieldSource& source) {
  switch (source.type) {
    case DataType::kZephyrine:
      return ZephyrineParameters();
    case DataType::kSummary:
      return SummaryParameters();
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

}  // namespace vistaplot
