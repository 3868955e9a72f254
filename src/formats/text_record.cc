#include "formats/text_record.h"

#include <cassert>
#include <cstdint>
#include <utility>

#include "base/text.h"

namespace vistaplot {

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
