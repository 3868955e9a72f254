#include "formats/parameter_file.h"

#include <utility>

#include "base/text.h"

namespace vistaplot {

namespace {

// One of these reads a field into its member, the other writes it.
struct FieldReader {
  std::string_view bytes;
  const FixedField& field;
  SignalParameters& parameters;

  bool HasNumber() const { return bytes.size() >= FieldEnd(field); }

  void operator()(bool SignalParameters::*member) const {
    if (HasNumber()) parameters.*member = FieldInt16(bytes, field) != 0;
  }
  void operator()(std::int16_t SignalParameters::*member) const {
    if (HasNumber()) parameters.*member = FieldInt16(bytes, field);
  }
  void operator()(std::string SignalParameters::*member) const {
    std::string text = FieldText(bytes, field);
    if (!text.empty()) parameters.*member = std::move(text);
  }
};

struct FieldWriter {
  const SignalParameters& parameters;
  const FixedField& field;
  std::string& record;
  std::vector<std::string_view>& too_long;

  void operator()(bool SignalParameters::*member) const {
    SetFieldInt16(record, field, parameters.*member ? std::int16_t{1} : std::int16_t{0});
  }
  void operator()(std::int16_t SignalParameters::*member) const {
    SetFieldInt16(record, field, parameters.*member);
  }
  void operator()(std::string SignalParameters::*member) const {
    const std::string text = Windows1252FromUtf8(TrimRightBlanks(parameters.*member));
    if (text.size() > field.width) too_long.push_back(field.name);
    SetFieldBytes(record, field, text);
  }
};

constexpr bool IsComplete() {
  std::size_t end = 0;
  for (const ParameterField& entry : kParameterFields) {
    if (entry.field.offset != end) return false;
    end = FieldEnd(entry.field);
  }
  return end == kParameterRecordSize;
}
static_assert(IsComplete());

}  // namespace

SignalParameters ReadParameters(std::string_view bytes, const SignalParameters& current) {
  SignalParameters parameters = current;
  parameters.start_day = 1;
  parameters.delay = 1;
  for (const ParameterField& entry : kParameterFields) {
    std::visit(FieldReader{.bytes = bytes, .field = entry.field, .parameters = parameters},
               entry.member);
  }
  return parameters;
}

std::string ParameterBytes(const SignalParameters& parameters,
                           std::vector<std::string_view>& too_long) {
  std::string record(kParameterRecordSize, ' ');
  for (const ParameterField& entry : kParameterFields) {
    std::visit(
        FieldWriter{
            .parameters = parameters, .field = entry.field, .record = record, .too_long = too_long},
        entry.member);
  }
  return record;
}

}  // namespace vistaplot
