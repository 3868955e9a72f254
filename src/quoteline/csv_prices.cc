#include "quoteline/csv_prices.h"

#include <algorithm>
#include <memory>
#include <numeric>
#include <utility>

#include "base/text.h"
#include "quoteline/csv_header.h"
#include "quoteline/csv_line.h"
#include "quoteline/symbol_index.h"

namespace vistaplot {

namespace {

constexpr std::size_t kKeptBadLines = 1000;

std::string FileName(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  return slash == std::string::npos ? path : path.substr(slash + 1);
}

// The issue of a file that holds one.
void AddOnlyIssue(const PriceFileOptions& options, PriceFile& file) {
  const std::string file_name = FileName(file.path);
  const std::string_view stem = UpToFirstDot(file_name);
  const auto symbol = SymbolFromText(options.symbol.empty() ? stem : options.symbol);
  if (!symbol) {
    file.refusal = ShownText(options.symbol.empty() ? stem : std::string_view(options.symbol)) +
                   " is no symbol (1 to 5 letters, digits, $ ^ . -); name one with --symbol";
    return;
  }
  file.series.push_back(
      {.symbol = *symbol, .name = CleanName(options.name), .dates = 0, .prices = {}});
}

bool HasPrices(const PriceFile& file) {
  return std::any_of(file.series.begin(), file.series.end(), [](const PriceSeries& series) {
    return std::any_of(series.prices.begin(), series.prices.end(), [](float p) { return p > 0; });
  });
}

// Puts a file together from blocks of whole lines.
class Parser {
 public:
  Parser(const std::string& path, const PriceFileOptions& options) : options_(options) {
    file_.path = path;
    file_.refusal = "is empty, not a price file";
  }

  bool IsRefused() const { return next_line_ == 0; }

  void TakeLines(std::string_view lines, double share) {
    const bool first = reader_ == nullptr && next_line_ == 1;
    if (first) Begin(lines);
    if (reader_ == nullptr) return;
    CsvCursor cursor(lines, header_.delimiter, next_line_);
    if (first) cursor.NextLine();
    reader_->Read(cursor, share);
    next_line_ = cursor.Line();
  }

  PriceFile Finish() {
    if (reader_ != nullptr) {
      reader_->Finish();
      for (PriceSeries& series : file_.series) series.name = CleanName(series.name);
      if (file_.bad_lines.Count() == 0 && !HasPrices(file_)) file_.refusal = "holds no prices";
    }
    return std::move(file_);
  }

 private:
  // Reads the header; without a refusal a reader stands ready.
  void Begin(std::string_view& lines) {
    lines = WithoutByteOrderMark(lines);
    std::optional<char> delimiter;
    next_line_ = 1 + static_cast<std::uint32_t>(SkipPreamble(lines, delimiter));
    header_ = ReadCsvHeader(lines, options_, delimiter);
    file_.refusal = header_.refusal;
    const bool one_issue = header_.form == CsvForm::kOneIssue;
    if (file_.refusal.empty() && !one_issue && !options_.name.empty()) {
      file_.refusal = "holds several issues; --name is for a file of one";
    }
    if (file_.refusal.empty() && one_issue) AddOnlyIssue(options_, file_);
    for (const std::string& name : header_.left_out) file_.left_out.push_back(CleanName(name));
    if (!file_.refusal.empty()) {
      next_line_ = 0;
      return;
    }
    reader_ = header_.form == CsvForm::kWide ? MakeWideReader(header_, file_)
                                             : MakeIssueReader(header_, file_);
  }

  const PriceFileOptions& options_;
  CsvHeader header_;
  PriceFile file_;
  std::unique_ptr<LineReader> reader_;
  std::uint32_t next_line_ = 1;  // 0 once the file is refused
};

}  // namespace

std::string CleanName(std::string_view bytes) {
  std::string name = IsUtf8(bytes) ? std::string(bytes) : Utf8FromWindows1252(bytes);
  std::replace_if(
      name.begin(),
      name.end(),
      [](char c) { return static_cast<unsigned char>(c) < ' ' || c == 127; },
      ' ');
  return std::string(TrimBlanks(name));
}

void BadLines::Add(std::uint32_t line, std::string text) {
  // A wide line may be noted for several issues; it is one bad line all the same.
  const auto place = std::lower_bound(
      kept_.begin(), kept_.end(), line, [](const BadLine& bad, std::uint32_t wanted) {
        return bad.line < wanted;
      });
  if (place != kept_.end() && place->line == line) return;
  ++count_;
  if (kept_.size() == kKeptBadLines && place == kept_.end()) return;
  kept_.insert(place, {.line = line, .text = std::move(text)});
  if (kept_.size() > kKeptBadLines) kept_.pop_back();
}

std::vector<std::size_t> AscendingOrder(const std::vector<DateLine>& dates) {
  const auto not_before = [](const DateLine& a, const DateLine& b) { return a.date >= b.date; };
  if (std::adjacent_find(dates.begin(), dates.end(), not_before) == dates.end()) return {};
  std::vector<std::size_t> order(dates.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::stable_sort(order.begin(), order.end(), [&dates](std::size_t a, std::size_t b) {
    return dates[a].date < dates[b].date;
  });
  return order;
}

void AddSecondPrice(BadLines& bad_lines,
                    std::string_view symbol,
                    const DateLine& first,
                    const DateLine& second) {
  bad_lines.Add(second.line,
                std::string(symbol) + " has another price on " +
                    DateText(second.date, DatePattern::kIso) + " in line " +
                    std::to_string(first.line));
}

void AddTooFewFields(BadLines& bad_lines,
                     std::uint32_t line,
                     std::size_t fields,
                     std::size_t columns) {
  bad_lines.Add(
      line, "too few fields (" + std::to_string(fields) + " of " + std::to_string(columns) + ")");
}

PriceFile ParsePriceFile(const std::string& path,
                         std::string_view bytes,
                         const PriceFileOptions& options) {
  Parser parser(path, options);
  bytes = WithoutEndMark(bytes);
  if (!bytes.empty()) parser.TakeLines(bytes, 1.0);
  return parser.Finish();
}

Result<PriceFile> ReadPriceFile(const std::string& path, const PriceFileOptions& options) {
  auto opened = LineBlocks::Open(path);
  if (!opened) return opened.Error();
  LineBlocks& blocks = opened.Value();
  Parser parser(path, options);
  while (!parser.IsRefused() && blocks.Next()) parser.TakeLines(blocks.Lines(), blocks.Share());
  if (auto read = blocks.Outcome(); !read) return read.Error();
  return parser.Finish();
}

}  // namespace vistaplot
