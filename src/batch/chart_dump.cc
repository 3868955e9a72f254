#include "batch/chart_dump.h"

#include <cstddef>

#include "batch/json_writer.h"
#include "charts/kinds/read_out.h"

namespace vistaplot {

namespace {

void WriteColor(JsonWriter& json, std::string_view key, const ChartColor& color) {
  json.Key(key).BeginArray();
  json.Integer(color.red).Integer(color.green).Integer(color.blue).EndArray();
}

void WriteLabels(JsonWriter& json, const ChartView& view) {
  json.Key("RowLabel").BeginArray();
  for (int row = 1; row <= view.rowcount(); ++row) json.Text(view.RowLabelAt(row));
  json.EndArray().Key("ColumnLabel").BeginArray();
  for (int column = 1; column <= view.ColumnCount(); ++column) {
    json.Text(view.ColumnLabelAt(column));
  }
  json.EndArray();
}

void WriteData(JsonWriter& json, const ChartView& view) {
  json.Key("data").BeginArray();
  for (int row = 1; row <= view.rowcount(); ++row) {
    json.BeginArray();
    for (int column = 1; column <= view.ColumnCount(); ++column) {
      json.Number(view.DataAt(row, column));
    }
    json.EndArray();
  }
  json.EndArray();
}

void WriteLegend(JsonWriter& json, const ChartText& legend) {
  json.Key("Legend").BeginObject();
  json.Key("visible").Bool(legend.Location.Visible);
  json.Key("LocationType").Integer(legend.Location.LocationType);
  json.Key("FontSize").Number(legend.VtFont.Size);
  json.EndObject();
}

void WriteSeries(JsonWriter& json, const ChartSeries& series) {
  json.BeginObject().Key("SeriesType").Integer(series.SeriesType);
  json.Key("showline").Bool(series.showline);
  json.Key("SeriesMarker").Bool(series.SeriesMarker.Show);
  json.Key("PenWidth").Number(series.Pen.Width);
  WriteColor(json, "PenColor", series.Pen.VtColor);
  WriteColor(json, "GainColor", series.HiLo.GainColor);
  WriteColor(json, "LossColor", series.HiLo.LossColor);
  json.EndObject();
}

void WriteMarker(JsonWriter& json, int series, int point, const ChartMarker& marker) {
  json.BeginObject().Key("series").Integer(series).Key("point").Integer(point);
  json.Key("size").Number(marker.Size).Key("visible").Bool(marker.Visible);
  json.Key("style").Integer(marker.style);
  WriteColor(json, "color", marker.Pen.VtColor);
  json.EndObject();
}

/// Calls write(series, point, item) for each point with settings of its own.
template <class Write>
void ForEachOwnPoint(const ChartView& view, Write write) {
  for (std::size_t s = 0; s < view.Plot.SeriesCollection.size(); ++s) {
    for (const auto& [point, item] : view.Plot.SeriesCollection[s].DataPoints.items) {
      write(static_cast<int>(s) + 1, point, item);
    }
  }
}

void WritePoints(JsonWriter& json, const ChartView& view) {
  json.Key("Markers").BeginArray();
  ForEachOwnPoint(view, [&json](int series, int point, const ChartDataPoint& item) {
    if (!(item.Marker == ChartMarker{})) WriteMarker(json, series, point, item.Marker);
  });
  json.EndArray().Key("PointLabels").BeginArray();
  ForEachOwnPoint(view, [&json](int series, int point, const ChartDataPoint& item) {
    if (!item.DataPointLabel || item.DataPointLabel->Text.empty()) return;
    json.BeginObject().Key("series").Integer(series).Key("point").Integer(point);
    json.Key("text").Text(item.DataPointLabel->Text).EndObject();
  });
  json.EndArray();
}

void WriteAxis(JsonWriter& json, int id, const ChartAxis& axis) {
  json.BeginObject().Key("id").Integer(id).Key("hidden").Bool(axis.AxisScale.Hide);
  json.Key("auto").Bool(id == 0 ? axis.CategoryScale.Auto : axis.ValueScale.Auto);
  json.Key("DivisionsPerLabel").Integer(axis.CategoryScale.DivisionsPerLabel);
  json.Key("DivisionsPerTick").Integer(axis.CategoryScale.DivisionsPerTick);
  json.Key("Minimum").Number(axis.ValueScale.Minimum);
  json.Key("Maximum").Number(axis.ValueScale.Maximum);
  json.Key("title").Text(axis.AxisTitle.Text).EndObject();
}

}  // namespace

std::string ChartJson(const ChartView& view, bool visible) {
  JsonWriter json;
  json.BeginObject().Key("ChartType").Integer(view.ChartType);
  json.Key("TitleText").Text(view.TitleText).Key("Footnote").Text(view.Footnote.Text);
  json.Key("rowcount").Integer(view.rowcount()).Key("ColumnCount").Integer(view.ColumnCount());
  WriteLabels(json, view);
  WriteData(json, view);
  WriteLegend(json, view.Legend);
  json.Key("Series").BeginArray();
  for (const ChartSeries& series : view.Plot.SeriesCollection) WriteSeries(json, series);
  json.EndArray();
  WritePoints(json, view);
  json.Key("Axis").BeginArray();
  for (std::size_t id = 0; id < view.Plot.Axis.size(); ++id) {
    WriteAxis(json, static_cast<int>(id), view.Plot.Axis[id]);
  }
  const auto& rect = view.Plot.LocationRect;
  json.EndArray().Key("PlotRect").BeginArray();
  json.Number(rect.Min.X).Number(rect.Min.Y).Number(rect.Max.X).Number(rect.Max.Y).EndArray();
  return json.Key("visible").Bool(visible).EndObject().Take();
}

std::string ReadingJson(const ChartView& view, int row, int column) {
  const ReadOut read_out = ReadRow(view, row, /*dark=*/false, column);
  JsonWriter json;
  json.BeginObject().Key("reading").BeginObject();
  json.Key("at").Text(read_out.at).Key("row").Integer(row);
  if (column > 0) json.Key("column").Integer(column);
  json.Key("series").BeginArray();
  for (const ReadOutEntry& entry : read_out.entries) {
    for (const ReadOutValue& value : entry.values) {
      json.BeginObject().Key("name").Text(value.name).Key("text").Text(value.text);
      json.Key("value").Number(value.value).Key("percent");
      if (value.percent) {
        json.Number(*value.percent);
      } else {
        json.Null();
      }
      json.EndObject();
    }
  }
  json.EndArray().EndObject().EndObject();
  return json.Take();
}

}  // namespace vistaplot
