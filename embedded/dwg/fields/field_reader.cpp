#include "embedded/dwg/fields/field_reader.h"

#include "embedded/dwg/fields/field_codec.h"

namespace cad::dwg {
namespace {

constexpr std::uint64_t kSizeFieldBits = 32;
constexpr std::size_t kUsualFields = 40;
// A field may take two bits only; what has as many as this was made to use memory up.
constexpr std::size_t kMostFields = std::size_t{1} << 22;

}  // namespace

FieldReader::FieldReader(std::string_view data, const Streams& streams, Version version, ObjectKind kind,
                         Handle own)
    : FieldVisitor(version, kind),
      fields_(data, version, own),
      readData_(data, streams.dataBegin, streams.dataEnd),
      text_(data, streams.textBegin, streams.textEnd),
      handles_(data, streams.handleBegin, streams.handleEnd),
      handlesInData_(streams.handlesInData) {
  fields_.fields_.reserve(kUsualFields);
}

BitReader& FieldReader::readerOf(Stream stream) {
  if (stream == Stream::kData) return readData_;
  return stream == Stream::kText ? text_ : handles_;
}

bool FieldReader::failed() const {
  return failed_ || readData_.failed() || text_.failed() || handles_.failed();
}

void FieldReader::sizeField() {
  if (before(Version::kR2000)) readData_.skip(kSizeFieldBits);
}

void FieldReader::implied(std::string_view name, Part part, Value value, std::uint32_t index) {
  const auto here = static_cast<std::uint32_t>(readData_.position());
  fields_.fields_.push_back({.name = name,
                             .part = part,
                             .type = BitType::kImplied,
                             .stream = Stream::kData,
                             .index = indexOf(index),
                             .begin = here,
                             .end = here,
                             .value = std::move(value)});
}

const Value& FieldReader::visit(const FieldSpec& spec) {
  if (fields_.fields_.size() >= kMostFields) {
    fail();
    readData_.fail(), text_.fail(), handles_.fail();
    fields_.fields_.pop_back();
  }
  Field& field = fields_.fields_.emplace_back();
  field.name = spec.name, field.part = spec.part, field.index = indexOf(spec.index), field.type = spec.type;
  field.stream = streamOf(spec.type, version());
  if (field.stream == Stream::kHandles && handlesInData_) field.stream = Stream::kData;
  BitReader& reader = readerOf(field.stream);
  field.begin = static_cast<std::uint32_t>(reader.position());
  if (field.stream == Stream::kText && reader.end() == field.begin && !reader.failed()) {
    field.value = std::u16string();  // the stream is left out when all of its texts are empty
  } else {
    field.value = decodeField(reader, spec, version());
  }
  field.end = static_cast<std::uint32_t>(reader.position());
  return field.value;
}

Streams FieldReader::rest() const {
  const auto at = [](const BitReader& reader) { return static_cast<std::uint32_t>(reader.position()); };
  const auto end = [](const BitReader& reader) { return static_cast<std::uint32_t>(reader.end()); };
  return {.dataBegin = at(readData_),
          .dataEnd = end(readData_),
          .textBegin = at(text_),
          .textEnd = end(text_),
          .handleBegin = at(handles_),
          .handleEnd = end(handles_)};
}

Fields FieldReader::take(bool complete) {
  fields_.intact_ = !failed();
  fields_.complete_ = complete && fields_.intact_;
  return std::move(fields_);
}

}  // namespace cad::dwg
