#include "formats/zephyrine_file.h"

#include <utility>

namespace vistaplot {

Records ReadZephyrineRecords(std::string bytes) {
  if (bytes.size() % kZephyrineForm.size == 0) {
    return ReadTextRecords(std::move(bytes), kZephyrineForm);
  }
  TextRecordForm short_form = kZephyrineForm;
  short_form.size = kShortZephyrineSize;
  Records records = ReadTextRecords(std::move(bytes), short_form);
  records.missing = kZephyrineMissing;
  return records;
}

}  // namespace vistaplot
