#include "quoteline/csv_line.h"

#include <algorithm>
#include <cstring>

#include "base/text.h"

namespace vistaplot {

namespace {

constexpr int kFirstYear = 1900;

// The number that `text` is, digits alone; -1 when it is none.
int Digits(std::string_view text) {
  int number = 0;
  for (const char c : text) {
    if (c < '0' || c > '9') return -1;
    number = number * 10 + (c - '0');
  }
  return text.empty() ? -1 : number;
}

std::optional<CivilDate> IsoDate(std::string_view text) {
  if (text.size() != 10 || text[4] != '-' || text[7] != '-') return std::nullopt;
  return CivilDate{.year = Digits(text.substr(0, 4)),
                   .month = Digits(text.substr(5, 2)),
                   .day = Digits(text.substr(8, 2))};
}

std::optional<CivilDate> MonthFirstDate(std::string_view text) {
  const std::size_t first = text.find('/');
  if (first == std::string_view::npos || first > 2) return std::nullopt;
  const std::size_t second = text.find('/', first + 1);
  if (second == std::string_view::npos || second - first > 3 || text.size() - second != 5) {
    return std::nullopt;
  }
  return CivilDate{.year = Digits(text.substr(second + 1)),
                   .month = Digits(text.substr(0, first)),
                   .day = Digits(text.substr(first + 1, second - first - 1))};
}

// A day of the calendar, of any year.
std::optional<CivilDate> WrittenDate(std::string_view text) {
  auto date = IsoDate(text);
  if (!date) date = MonthFirstDate(text);
  return date && IsValidDate(*date) ? date : std::nullopt;
}

}  // namespace

std::string_view CsvCursor::NextField() {
  while (at_ != end_ && (*at_ == ' ' || (*at_ == '\t' && delimiter_ != '\t'))) ++at_;
  if (at_ != end_ && *at_ == '"') return QuotedField();
  const char* start = at_;
  while (at_ != end_ && *at_ != delimiter_ && !IsLineEnd(*at_)) ++at_;
  const std::string_view field(start, static_cast<std::size_t>(at_ - start));
  PassDelimiter();
  return TrimWhite(field);
}

std::string_view CsvCursor::QuotedField() {
  const char* const start = at_;
  bool closed = false;
  unquoted_.clear();
  ++at_;
  while (at_ != end_ && !IsLineEnd(*at_)) {
    if (*at_ == '"') {
      ++at_;
      closed = at_ == end_ || *at_ != '"';  // else a doubled quote
      if (closed) break;
    }
    unquoted_ += *at_++;
  }
  const char* const behind = at_;
  while (at_ != end_ && *at_ != delimiter_ && !IsLineEnd(*at_)) ++at_;
  const std::string_view rest(behind, static_cast<std::size_t>(at_ - behind));
  const std::string_view whole(start, static_cast<std::size_t>(at_ - start));
  PassDelimiter();
  return closed && TrimWhite(rest).empty() ? TrimWhite(unquoted_) : TrimWhite(whole);
}

void CsvCursor::NextLine() {
  while (at_ != end_ && !IsLineEnd(*at_)) ++at_;
  if (at_ != end_) {
    const bool two = *at_ == '\r' && at_ + 1 != end_ && at_[1] == '\n';
    at_ += two ? 2 : 1;
    ++line_;
  }
  line_done_ = false;
}

void CsvCursor::SkipEmptyLines() {
  while (at_ != end_) {
    const char* place = at_;
    while (place != end_ && (*place == ' ' || *place == delimiter_)) ++place;
    if (place != end_ && !IsLineEnd(*place)) return;
    at_ = place;
    if (place == end_) return;
    NextLine();
  }
}

std::optional<DateSerial> PriceDate(std::string_view text) {
  const auto date = WrittenDate(text);
  if (!date || date->year < kFirstYear) return std::nullopt;
  return SerialFromDate(*date);
}

std::string DateFault(std::string_view text) {
  if (TrimWhite(text).empty()) return "the date is missing";
  const char* fault = WrittenDate(text) ? " lies before 1900, where dates begin"
                                        : " is not a date (YYYY-MM-DD or M/D/YYYY)";
  return ShownText(text) + fault;
}

std::string_view WithoutEndMark(std::string_view bytes) {
  constexpr char kEndMark = 26;
  const std::size_t last = bytes.find_last_not_of(kEndMark);
  return bytes.substr(0, last == std::string_view::npos ? 0 : last + 1);
}

}  // namespace vistaplot
