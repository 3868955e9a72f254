#include "base/csv.h"

#include <algorithm>

#include "base/text.h"

namespace vistaplot {

void AppendCsvField(std::string& text, std::string_view field) {
  if (field.find_first_of(",\"\r\n") == std::string_view::npos) {
    text += field;
    return;
  }
  text += '"';
  for (const char c : field) {
    if (c == '"') text += '"';
    text += c;
  }
  text += '"';
}

CsvReader::CsvReader(std::string_view text) : text_(WithoutByteOrderMark(text)) {}

bool CsvReader::Next(std::vector<std::string>& fields) {
  fields.clear();
  if (at_ >= text_.size() || broken_) return false;
  for (;;) {
    fields.push_back(Field());
    if (broken_) return false;
    if (at_ >= text_.size()) return true;
    const char end = text_[at_++];
    if (end == ',') continue;
    if (end == '\r' && at_ < text_.size() && text_[at_] == '\n') ++at_;
    return true;
  }
}

std::string CsvReader::Field() {
  std::string field;
  if (at_ < text_.size() && text_[at_] == '"') field = QuotedField();
  // What follows a closing quote up to the comma belongs to the field, as spreadsheets read it.
  const std::size_t end = std::min(text_.find_first_of(",\r\n", at_), text_.size());
  field += text_.substr(at_, end - at_);
  at_ = end;
  return field;
}

std::string CsvReader::QuotedField() {
  std::string field;
  ++at_;
  for (;;) {
    const std::size_t quote = text_.find('"', at_);
    if (quote == std::string_view::npos) {
      broken_ = true;
      return field;
    }
    field += text_.substr(at_, quote - at_);
    at_ = quote + 1;
    if (at_ >= text_.size() || text_[at_] != '"') return field;
    field += '"';
    ++at_;
  }
}

}  // namespace vistaplot
