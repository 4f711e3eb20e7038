#include "embedded/dwg/text_background.h"

#include "embedded/drawing/color_codes.h"
#include "embedded/dwg/application_data.h"

namespace cad::dwg {
namespace {

using Fill = TextGeometry::Fill;

constexpr int kFillOfOwnColor = 1, kFillOfBackground = 2;
constexpr int kAtLeast = 1;  // how line spacing is meant
constexpr std::uint8_t kPointing = 5;

int fillNumber(Fill fill) { return fill == Fill::kOwnColor ? kFillOfOwnColor : kFillOfBackground; }

void addFields(const TextGeometry& text, FieldChanges& values) {
  if (text.fill == Fill::kNone) return;
  values.set("background flags", fillNumber(text.fill));
  // Where only the background is painted over, nothing more stands there.
  if (text.fill != Fill::kOwnColor) return;
  Color color;
  color.number = text.fillColor;
  color.rgb = text.fillTrueColor;
  values.set("background scale", Value(text.fillFactor));
  values.setColor("background color", color);
}

class OldData {
 public:
  explicit OldData(const DwgStorage& storage) : storage_(storage) {}

  void name(std::string_view word) {
    append(values_, 1000, storage_.extendedText(word), storage_.codePageNumber());
  }
  void integer(int code, std::int64_t value) { number(code), append(values_, 1070, value); }
  void longer(int code, std::int64_t value) { number(code), append(values_, 1071, value); }
  void real(int code, double value) { number(code), append(values_, 1040, value); }
  void number(int code) { append(values_, 1070, std::int64_t{code}); }
  const std::vector<ExtendedValue>& values() const { return values_; }

 private:
  const DwgStorage& storage_;
  std::vector<ExtendedValue> values_;
};

std::vector<ExtendedValue> oldValues(const DwgStorage& storage, const TextGeometry& text) {
  OldData data(storage);
  data.name("MTEXTBEGIN");
  data.integer(73, kAtLeast);
  data.real(44, text.lineSpacing);
  data.integer(74, 0);
  data.name("MTEXTEND");
  if (text.fill == Fill::kNone) return data.values();
  data.name("ACAD_MTEXT_BBRT");
  data.longer(91, fillNumber(text.fill));
  data.real(46, text.fillFactor);
  data.longer(64, text.fillTrueColor ? packedColor(ColorCode::kTrue, *text.fillTrueColor)
                                     : packedColor(ColorCode::kNumber, text.fillColor));
  for (const int nameCode : {65, 66}) data.number(nameCode), data.name(" ");
  data.longer(442, 0);
  data.name("ACAD_MTEXT_BERT");
  return data.values();
}

}  // namespace

base::Status addBackground(Drawing& drawing, const DwgStorage& storage, const TextGeometry& text,
                           FieldChanges& values) {
  if (storage.version() >= Version::kR2004) {
    addFields(text, values);
    return {};
  }
  const base::Result<Handle> application = applicationHandle(drawing, L"ACAD");
  if (!application.ok()) return application.failure();
  ExtendedData data;
  data.application = {kPointing, 0, application.value()};
  base::Result<std::string> bytes = encodeExtended(oldValues(storage, text));
  if (!bytes.ok()) return bytes.failure();
  data.bytes = std::move(bytes.value());
  values.setExtendedData({data});
  return {};
}

}  // namespace cad::dwg
