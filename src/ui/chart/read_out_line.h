// The read-out below a chart: the day and a cell for each series with its colour, its name and its
// value, in columns that keep their place while the cross-hair moves. The cells are labels whose
// text can be selected and copied.
#pragma once

#include <QWidget>
#include <vector>

#include "charts/kinds/read_out.h"
#include "charts/view/palette.h"

namespace vistaplot {

class ReadOutCell;

class ReadOutLine : public QWidget {
  Q_OBJECT

 public:
  explicit ReadOutLine(QWidget* parent);

  /// Makes room for the series of `view`. To be followed by Show or ShowHint.
  void Prepare(const ChartView& view, const ChartTheme& theme);

  /// The height that the series take at this width, at most `most`, at least one line; 0 for a
  /// view without series.
  int HeightFor(int width, int most) const;

  /// Shows a row's values. `chosen` is a series that stands out; 0 for none. Series that found no
  /// room are counted in the last cell and listed in the tool tip.
  void Show(const ReadOut& read_out, int chosen);

  /// Shows how to get a read-out instead, or where the histories seem to have ended.
  void ShowHint();

  /// What it says in so many pixels while it shows no values.
  QString Hint(int width) const;

 protected:
  void changeEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  struct Grid {
    int columns = 1;
    int lines = 1;
  };

  void Measure();
  Grid GridFor(int width, int most_lines) const;
  int LineHeight() const;
  int CellsWidth(int width) const;
  QRect CellPlace(int cell) const;
  void PlaceCells();
  std::vector<const ReadOutEntry*> EntriesInRoom(const ReadOut& read_out, int chosen) const;
  QString CellText(const ReadOutEntry& entry, int width) const;

  ReadOutCell& heading_;
  std::vector<ReadOutCell*> cells_;  ///< those in use, then spare hidden ones
  std::vector<QColor> marks_;        ///< one a cell in use
  std::vector<std::string> labels_;  ///< that the widths were measured for: heading, then series
  QString hint_;
  ChartTheme theme_ = LightTheme();
  int series_ = 0;
  bool with_prices_ = false;
  int heading_width_ = 0;
  int cell_width_ = 1;
  int long_value_ = 0;
  Grid grid_;
  int chosen_cell_ = -1;
  bool shown_ = false;  ///< values, not the hint
};

}  // namespace vistaplot
