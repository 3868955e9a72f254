#include "formats/text_lines.h"

#include <algorithm>
#include <cassert>
#include <cstddef>
#include <cstdint>
#include <utility>

#include "base/text.h"

namespace vistaplot {

namespace {

// Calls each(first byte) for every line. Each kind of end is looked for on its own, which the
// library does many bytes at a time.
template <class Each>
void ForEachLine(std::string_view bytes, Each each) {
  std::size_t feed = bytes.find('\n');
  std::size_t carriage = bytes.find('\r');
  for (std::size_t start = 0; start < bytes.size();) {
    each(start);
    const std::size_t end = std::min(feed, carriage);
    if (end == std::string_view::npos) return;
    start = end + (carriage < feed && carriage + 1 == feed ? 2 : 1);
    if (feed < start) feed = bytes.find('\n', start);
    if (carriage < start) carriage = bytes.find('\r', start);
  }
}

}  // namespace

std::string_view TakeLine(std::string_view& bytes) {
  assert(!bytes.empty());
  const std::size_t end = bytes.find_first_of("\r\n");
  const std::string_view line = bytes.substr(0, end);
  if (end == std::string_view::npos) {
    bytes = {};
  } else {
    bytes.remove_prefix(end + (bytes.substr(end, 2) == "\r\n" ? 2 : 1));
  }
  return line;
}

std::size_t CountLines(std::string_view bytes) {
  std::size_t count = 0;
  ForEachLine(bytes, [&count](std::size_t) { ++count; });
  return count;
}

std::vector<std::uint32_t> LineStarts(std::string_view bytes) {
  std::vector<std::uint32_t> starts;
  starts.reserve(CountLines(bytes));  // a list that grows would take twice the room
  ForEachLine(
      bytes, [&starts](std::size_t start) { starts.push_back(static_cast<std::uint32_t>(start)); });
  return starts;
}

std::string_view LineAt(std::string_view bytes,
                        const std::vector<std::uint32_t>& starts,
                        std::size_t line) {
  assert(line < starts.size());
  const std::size_t start = starts[line];
  const std::size_t next = line + 1 < starts.size() ? starts[line + 1] : bytes.size();
  std::string_view text = bytes.substr(start, next - start);
  if (text.ends_with('\n')) text.remove_suffix(1);
  if (text.ends_with('\r')) text.remove_suffix(1);
  return text;
}

std::string_view TakeField(std::string_view& line) {
  line = TrimWhite(line);
  std::string_view field;
  if (line.starts_with('"')) {
    const std::size_t quote = line.find('"', 1);
    field = line.substr(1, quote == std::string_view::npos ? quote : quote - 1);
    line.remove_prefix(quote == std::string_view::npos ? line.size() : quote);
  } else {
    field = TrimWhite(line.substr(0, line.find(',')));
  }
  const std::size_t comma = line.find(',');
  line = comma == std::string_view::npos ? std::string_view{} : line.substr(comma + 1);
  return field;
}

void AppendTextRecord(std::string& bytes,
                      const TextRecordForm& form,
                      std::span<const std::string> texts) {
  assert(texts.size() == form.fields.size());
  std::string record(form.size - kRecordTail.size(), form.separator);
  for (std::size_t i = 0; i < texts.size(); ++i) {
    SetFieldBytes(record, form.fields[i], Windows1252FromUtf8(texts[i]));
  }
  bytes += record;
  bytes += kRecordTail;
}

Records ReadTextRecords(std::string bytes, const TextRecordForm& form) {
  Records records{
      .bytes = std::move(bytes), .fields = form.fields, .length = form.size - kRecordTail.size()};
  records.starts.resize(records.bytes.size() / form.size);
  std::uint32_t start = 0;
  for (std::uint32_t& place : records.starts) {
    place = start;
    start += static_cast<std::uint32_t>(form.size);
  }
  return records;
}

std::vector<std::string> ReadTextRecord(std::string_view record, FixedFields fields) {
  std::vector<std::string> texts;
  texts.reserve(fields.size());
  for (const FixedField& field : fields) {
    texts.push_back(Utf8FromWindows1252(FieldBytes(record, field)));
  }
  return texts;
}

}  // namespace vistaplot
