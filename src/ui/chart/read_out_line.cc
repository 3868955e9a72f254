#include "ui/chart/read_out_line.h"

#include <QEvent>
#include <QLabel>
#include <QPainter>
#include <algorithm>

#include "base/text.h"
#include "charts/kinds/kind.h"
#include "ui/chart/chart_canvas.h"
#include "ui/controls/widgets.h"

namespace vistaplot {

namespace {

constexpr int kSideMargin = 8;
constexpr int kLinePadding = 3;  ///< above and below the text of a line
constexpr int kMark = 9;         ///< side of a series' colour mark
constexpr int kMarkGap = 5;
constexpr int kCellGap = 12;
constexpr int kLongestLabel = 26;  ///< average characters; longer ones are cut in their middle
constexpr const char* kUsualHeading = "00/00/00";
constexpr const char* kWidestChange = " +999.99%";
constexpr const char* kWidestPrice = " 1234.56";
constexpr const char* kHint = "Point at the chart, or press \u2190 and \u2192, to read off values";
constexpr const char* kShortHint = "Point, or press \u2190 and \u2192";
constexpr const char* kQuiet = "Nothing changes after %1: the histories may have ended";
constexpr const char* kAllQuiet =
    "Nothing changes in these days: the histories may have ended before. Scroll back to see them";

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

bool HasPrices(const ChartView& view) {
  const auto& series = view.facts.series;
  return IsRebased(view.facts.unit) &&
         std::any_of(series.begin(), series.end(), [](const auto& s) { return s.base > 0.0; });
}

/// A reading that shows what there is to read.
ReadOut SampleOf(const ChartView& view, bool dark) {
  const int last_real = view.facts.last_real_row;
  if (last_real > 0) return ReadRow(view, std::min(last_real, view.rowcount()), dark);
  const StopList stops = KindOf(view).Stops(view);
  if (stops.Count() == 0) return ReadRow(view, view.rowcount(), dark);
  const Stop last = stops.At(stops.Count() - 1);
  return ReadRow(view, last.row, dark, last.column);
}

/// The width of readings of several parts (a bar, a box), with room for longer numbers; 0 where all
/// are short.
int WidestLong(const ReadOut& read_out, const QFontMetrics& metrics) {
  constexpr std::size_t kLongText = 24;
  int widest = 0;
  for (const ReadOutEntry& entry : read_out.entries) {
    if (entry.text.size() < kLongText) continue;
    const auto parts = static_cast<int>(entry.values.size());
    widest = std::max(widest,
                      metrics.horizontalAdvance(u' ' + QtText(entry.text)) +
                          parts * metrics.horizontalAdvance(u'0'));
  }
  return widest;
}

QString HintFor(const ChartView& view) {
  const std::optional<int> end = HistoriesEnd(view);
  if (!end) return QString::fromUtf8(kHint);
  if (*end == 0) return QString::fromUtf8(kAllQuiet);
  const std::string day(TrimBlanks(view.RowLabelAt(*end)));
  return QString::fromUtf8(kQuiet).arg(QtText(day));
}

}  // namespace

/// A text that can be selected while the pointer is over it. At other times it is a plain label,
/// which takes a new text several times faster.
class ReadOutCell : public QLabel {
 public:
  explicit ReadOutCell(QWidget* parent) : QLabel(parent) { setTextFormat(Qt::PlainText); }

  void SetShown(const QString& shown) {
    if (shown == text()) return;
    if (textInteractionFlags() != Qt::NoTextInteraction) {
      setTextInteractionFlags(Qt::NoTextInteraction);
    }
    setText(shown);
  }

 protected:
  void enterEvent(QEnterEvent* event) override {
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    QLabel::enterEvent(event);
  }
};

ReadOutLine::ReadOutLine(QWidget* parent) : QWidget(parent), heading_(*new ReadOutCell(this)) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  QFont bold = font();
  bold.setBold(true);
  heading_.setFont(bold);
  heading_.hide();
}

void ReadOutLine::Prepare(const ChartView& view, const ChartTheme& theme) {
  const QColor ink = QtColor(theme.title);
  if (palette().color(QPalette::WindowText) != ink) {
    QPalette colors = palette();
    colors.setColor(QPalette::WindowText, ink);
    setPalette(colors);
  }
  if (theme.dark != theme_.dark) update();
  theme_ = theme;
  if (const QString hint = HintFor(view); hint != hint_) {
    hint_ = hint;
    if (!shown_) update();
  }
  const ReadOut last = SampleOf(view, theme.dark);
  const bool with_prices = HasPrices(view);
  const int series = static_cast<int>(last.entries.size());
  std::vector<std::string> labels{last.heading};
  std::replace_if(labels[0].begin(), labels[0].end(), IsDigit, '0');
  for (const ReadOutEntry& entry : last.entries) labels.push_back(entry.label);
  const int longest_value = WidestLong(last, fontMetrics());
  if (labels == labels_ && series == series_ && with_prices == with_prices_ &&
      longest_value <= long_value_) {
    return;
  }
  if (labels != labels_) long_value_ = 0;
  long_value_ = std::max(long_value_, longest_value);
  labels_ = std::move(labels);
  series_ = series;
  with_prices_ = with_prices;
  Measure();
  PlaceCells();
}

void ReadOutLine::Measure() {
  const QFontMetrics metrics(font());
  const QFontMetrics bold = heading_.fontMetrics();
  heading_width_ = std::max(bold.horizontalAdvance(QString::fromLatin1(kUsualHeading)),
                            bold.horizontalAdvance(QtText(labels_.front()))) +
                   kCellGap;
  int longest = 0;
  for (std::size_t i = 1; i < labels_.size(); ++i) {
    longest = std::max(longest, metrics.horizontalAdvance(QtText(labels_[i])));
  }
  longest = std::min(longest, kLongestLabel * metrics.averageCharWidth());
  int value = metrics.horizontalAdvance(QString::fromLatin1(kWidestChange));
  if (with_prices_) value += metrics.horizontalAdvance(QString::fromLatin1(kWidestPrice));
  cell_width_ = kMark + kMarkGap + longest + std::max(value, long_value_) + kCellGap;
}

int ReadOutLine::LineHeight() const {
  return fontMetrics().height() + 2 * kLinePadding;
}

int ReadOutLine::HeightFor(int width, int most) const {
  if (series_ == 0) return 0;
  const int most_lines = std::max(1, (most - kLinePadding) / LineHeight());
  return GridFor(width, most_lines).lines * LineHeight() + kLinePadding;
}

int ReadOutLine::CellsWidth(int width) const {
  return std::max(1, width - 2 * kSideMargin - heading_width_);
}

ReadOutLine::Grid ReadOutLine::GridFor(int width, int most_lines) const {
  const int series = std::max(series_, 1);
  const int fitting = std::max(1, CellsWidth(width) / cell_width_);
  const int lines = (series + fitting - 1) / fitting;
  if (lines > most_lines) return {fitting, most_lines};
  return {(series + lines - 1) / lines, lines};
}

QRect ReadOutLine::CellPlace(int cell) const {
  const int width = std::min(cell_width_, CellsWidth(this->width()));
  return {kSideMargin + heading_width_ + cell % grid_.columns * width,
          kLinePadding + cell / grid_.columns * LineHeight(),
          width,
          LineHeight()};
}

void ReadOutLine::PlaceCells() {
  grid_ = GridFor(width(), std::max(1, (height() - kLinePadding) / LineHeight()));
  heading_.setGeometry(kSideMargin, kLinePadding, heading_width_, LineHeight());
  const auto room = static_cast<std::size_t>(std::min(series_, grid_.columns * grid_.lines));
  while (cells_.size() < room) cells_.push_back(new ReadOutCell(this));
  for (std::size_t i = 0; i < cells_.size(); ++i) {
    if (i >= room) cells_[i]->hide();
    const QRect place = CellPlace(static_cast<int>(i));
    cells_[i]->setGeometry(place.adjusted(kMark + kMarkGap, 0, -kCellGap / 2, 0));
  }
  marks_.resize(room);
  update();
}

void ReadOutLine::Show(const ReadOut& read_out, int chosen) {
  heading_.SetShown(QtText(read_out.heading));
  heading_.show();
  const std::vector<const ReadOutEntry*> entries = EntriesInRoom(read_out, chosen);
  int chosen_cell = -1;
  for (std::size_t i = 0; i < entries.size(); ++i) {
    if (entries[i]->series == chosen) chosen_cell = static_cast<int>(i);
    marks_[i] = QtColor(entries[i]->mark);
    cells_[i]->SetShown(CellText(*entries[i], cells_[i]->width()));
    cells_[i]->show();
  }
  if (entries.size() < marks_.size()) {
    const std::size_t hidden = read_out.entries.size() - entries.size();
    marks_[entries.size()] = QColor();
    cells_[entries.size()]->SetShown(QStringLiteral("+%1 more").arg(hidden));
    cells_[entries.size()]->show();
  }
  setToolTip(QtText(ListText(read_out)));
  chosen_cell_ = chosen_cell;
  shown_ = true;
  update();  // one rectangle is painted faster than those of the labels
}

// All entries, or as many as leave a cell for the number of the others. The chosen one is always
// among them.
std::vector<const ReadOutEntry*> ReadOutLine::EntriesInRoom(const ReadOut& read_out,
                                                            int chosen) const {
  std::vector<const ReadOutEntry*> entries;
  for (const ReadOutEntry& entry : read_out.entries) entries.push_back(&entry);
  if (entries.size() <= marks_.size()) return entries;
  if (marks_.empty()) return {};
  const std::size_t room = std::max<std::size_t>(marks_.size(), 2) - 1;
  const auto is_chosen = [chosen](const ReadOutEntry* entry) { return entry->series == chosen; };
  const auto found = std::find_if(entries.begin(), entries.end(), is_chosen);
  if (found != entries.end() && found - entries.begin() >= static_cast<std::ptrdiff_t>(room)) {
    entries[room - 1] = *found;
  }
  entries.resize(room);
  return entries;
}

QString ReadOutLine::CellText(const ReadOutEntry& entry, int width) const {
  const QString label = QtText(entry.label);
  const QString value = u' ' + QtText(entry.text);
  const QFontMetrics metrics(font());
  if (metrics.horizontalAdvance(label + value) <= width) return label + value;
  const int room = std::max(0, width - metrics.horizontalAdvance(value));
  return metrics.elidedText(label, Qt::ElideMiddle, room) + value;
}

void ReadOutLine::ShowHint() {
  if (!shown_) return;
  heading_.hide();
  for (ReadOutCell* cell : cells_) cell->hide();
  setToolTip(QString());
  shown_ = false;
  chosen_cell_ = -1;
  update();
}

QString ReadOutLine::Hint(int width) const {
  const bool fits = fontMetrics().horizontalAdvance(hint_) <= width;
  const bool usual = hint_ == QString::fromUtf8(kHint);
  const QString text = fits || !usual ? hint_ : QString::fromUtf8(kShortHint);
  return fontMetrics().elidedText(text, Qt::ElideRight, width);
}

void ReadOutLine::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(rect(), QtColor(theme_.background));
  painter.fillRect(QRect(0, 0, width(), 1), QtColor(theme_.guide));
  if (!shown_) {
    painter.setPen(QtColor(theme_.label));
    const QRect line(kSideMargin, kLinePadding, width() - 2 * kSideMargin, LineHeight());
    painter.drawText(line, Qt::AlignVCenter | Qt::AlignLeft, Hint(line.width()));
    return;
  }
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  for (std::size_t i = 0; i < marks_.size(); ++i) {
    const QRect place = CellPlace(static_cast<int>(i));
    if (static_cast<int>(i) == chosen_cell_) {
      painter.setBrush(QtColor(theme_.guide));
      painter.drawRoundedRect(place.adjusted(-kMarkGap, 2, -kCellGap / 2, -1), 4, 4);
    }
    if (!marks_[i].isValid() || marks_[i].alpha() == 0) continue;
    const int top = place.top() + (place.height() - kMark) / 2;
    painter.fillRect(QRect(place.left(), top, kMark, kMark), marks_[i]);
  }
}

void ReadOutLine::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::FontChange) labels_.clear();  // to be measured anew
}

void ReadOutLine::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  PlaceCells();
}

}  // namespace vistaplot
