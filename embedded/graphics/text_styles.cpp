#include "embedded/graphics/text_styles.h"

#include <algorithm>

namespace cad {

FontRequest fontOf(const Drawing& drawing, RecordId style) {
  constexpr std::int64_t kItalic = 1 << 24, kBold = 1 << 25;
  const auto text = [&](Property property) { return drawing.text(style, property).value_or(std::wstring()); };
  const std::int64_t flags = drawing.integer(style, Property::kFontFlags).value_or(0);
  return {text(Property::kFontFile), text(Property::kBigFontFile), text(Property::kTypeface),
          (flags & kBold) != 0, (flags & kItalic) != 0};
}

const TextStyles::Style& TextStyles::of(RecordId style) {
  const auto [found, isNew] = known_.try_emplace(style);
  if (isNew) found->second = read(style);
  return found->second;
}

TextStyles::Style TextStyles::read(RecordId record) {
  Style style;
  FontRequest request;
  if (record != kNoRecord) {
    request = fontOf(drawing_, record);
    style.widthFactor = drawing_.real(record, Property::kStyleWidthFactor).value_or(1);
    style.oblique = drawing_.real(record, Property::kStyleOblique).value_or(0);
    const std::int64_t flags = drawing_.integer(record, Property::kStandardFlags).value_or(0);
    style.vertical = (flags & TextStyleFlag::kVertical) != 0;
    style.turned = request.typeface.starts_with(L'@');
  }
  style.font = fonts_.font(request).get();
  if (style.font != &outlineAverages() && style.font != &shapeAverages()) return style;
  const std::wstring& name = request.typeface.empty() ? request.file : request.typeface;
  const std::wstring said = name.empty() ? L"txt" : name;
  if (std::ranges::find(missing_, said) == missing_.end()) missing_.push_back(said);
  return style;
}

}  // namespace cad
