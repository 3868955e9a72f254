#include "formats/text_record.h"

#include <cassert>

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

std::vector<std::string> ReadTextRecord(std::string_view record, FixedFields fields) {
  std::vector<std::string> texts;
  texts.reserve(fields.size());
  for (const FixedField& field : fields) {
    texts.push_back(Utf8FromWindows1252(FieldBytes(record, field)));
  }
  return texts;
}

}  // namespace vistaplot
