#include "embedded/dwg/fields/field_finder.h"

#include "embedded/dwg/fields/field_codec.h"

namespace cad::dwg {
namespace {

class FieldFinder final : public FieldVisitor {
 public:
  FieldFinder(const ObjectFrame& frame, std::uint32_t dataAt, std::uint32_t handlesAt, std::string_view name)
      : FieldVisitor(frame.version, frame.type.kind),
        readData_(frame.data, dataAt, frame.dataEnd),
        text_(frame.data, frame.textBegin, frame.textEnd),
        handles_(frame.data, handlesAt, frame.handleEnd),
        name_(name) {}

  bool changes(std::string_view, std::uint32_t) const override { return false; }
  bool changesPart(std::string_view, Part) const override { return false; }
  Value wanted(std::string_view, Value fallback, std::uint32_t, Part) const override { return fallback; }
  bool follows(std::string_view, std::string_view) const override { return false; }
  const Color* wantedColor(std::string_view, std::uint32_t) const override { return nullptr; }
  void implied(std::string_view, Part, Value, std::uint32_t) override {}
  void fail() override { isDone_ = true; }
  bool failed() const override { return isDone_; }  // so that lists end as well
  void sizeField() override {}
  std::uint64_t left(Stream stream) const override {
    return isDone_ ? 0 : const_cast<FieldFinder*>(this)->readerOf(stream).left();
  }

  const Value& visit(const FieldSpec& spec) override {
    if (isDone_) return nothing_;
    const Stream stream = streamOf(spec.type, version());
    BitReader& reader = readerOf(stream);
    const bool isWanted = spec.part == Part::kWhole && indexOf(spec.index) == 0 && spec.name == name_;
    const auto begin = static_cast<std::uint32_t>(reader.position());
    if (stream == Stream::kText && reader.end() == begin && !reader.failed()) {
      current_ = std::u16string();  // the stream is left out when all of its texts are empty
    } else if (spec.type == BitType::kText && !isWanted) {
      skipText(reader);
    } else {
      current_ = decodeField(reader, spec, version());
    }
    isDone_ = isWanted || reader.failed();
    if (!isWanted || reader.failed()) return current_;
    const auto end = static_cast<std::uint32_t>(reader.position());
    return found_.emplace(FoundField{spec.type, stream, begin, end, std::move(current_)}).value;
  }

  std::optional<FoundField> take() {
    if (!isDone_) found_.emplace();  // all fields were read
    return std::move(found_);
  }

 private:
  BitReader& readerOf(Stream stream) {
    if (stream == Stream::kData) return readData_;
    return stream == Stream::kText ? text_ : handles_;
  }
  void skipText(BitReader& reader) const {
    const std::uint64_t length = static_cast<std::uint16_t>(reader.bs());
    reader.skip(length * (hasWideTexts(version()) ? 16 : 8));
  }

  BitReader readData_, text_, handles_;
  std::string_view name_;
  bool isDone_ = false;
  Value current_, nothing_;
  std::optional<FoundField> found_;
};

}  // namespace

std::optional<FoundField> findOwnField(const ObjectFrame& frame, std::uint32_t dataAt,
                                       std::uint32_t handlesAt, std::string_view name) {
  FieldFinder finder(frame, dataAt, handlesAt, name);
  describeOwn(finder);
  return finder.take();
}

}  // namespace cad::dwg
