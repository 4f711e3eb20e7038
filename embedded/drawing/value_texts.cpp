#include "embedded/drawing/value_texts.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>

#include "base/lineweights.h"
#include "embedded/drawing/transparency.h"

namespace cad {
namespace {

std::wstring colorText(std::int64_t number) {
  if (number == 256) return L"ByLayer";
  if (number == 0) return L"ByBlock";
  return std::to_wstring(number);
}

std::int64_t defaultInteger(const Drawing& drawing, RecordId id, Property property) {
  constexpr std::int64_t kDefaultWeight = -3;
  const bool isLayer = drawing.record(id).kind == RecordKind::kTableRecord;
  if (property == Property::kLineWeight && isLayer) return kDefaultWeight;
  return static_cast<std::int64_t>(propertyInfo(property).defaultValue);
}

std::wstring integerText(Property property, std::int64_t value) {
  switch (property) {
    case Property::kColorIndex:
      return colorText(value);
    case Property::kLineWeight:
      return lineWeightText(value);
    case Property::kTransparency:
      return transparencyText(value);
    default:
      return std::to_wstring(value);
  }
}

std::wstring defaultName(Property property) {
  switch (property) {
    case Property::kLinetype:
      return L"ByLayer";
    case Property::kLayerLinetype:
      return L"Continuous";
    case Property::kTextStyle:
    case Property::kDimStyle:
      return L"Standard";
    default:
      return {};
  }
}

}  // namespace

std::wstring shortNumberText(double number) {
  constexpr int kDigits = 12;
  char digits[64];
  if (number == 0) number = 0;  // no minus
  const auto end =
      std::to_chars(std::begin(digits), std::end(digits), number, std::chars_format::general, kDigits);
  return {std::begin(digits), end.ptr};
}

bool nearlyEqual(double a, double b) {
  constexpr double kTolerance = 1e-9;
  return a == b || std::fabs(a - b) <= kTolerance * std::max({1.0, std::fabs(a), std::fabs(b)});
}

std::wstring lineWeightText(std::int64_t hundredths) {
  for (const base::Lineweight& weight : base::lineweights())
    if (weight.hundredths == hundredths) return weight.text;
  return std::to_wstring(hundredths);
}

std::wstring transparencyText(std::int64_t stored) {
  if (stored == 0) return L"ByLayer";
  if (stored == kTransparencyByBlock) return L"ByBlock";
  if ((stored & kTransparencyOwn) == 0) return std::to_wstring(stored);
  const double clear = 1 - static_cast<double>(stored & 0xFF) / 255;
  return std::to_wstring(std::lround(clear * 100)) + L" %";
}

std::wstring variableText(const Variable& value) {
  if (const auto* text = std::get_if<std::wstring>(&value)) return *text;
  if (const auto* real = std::get_if<double>(&value)) return shortNumberText(*real);
  return std::to_wstring(std::get<std::int64_t>(value));
}

std::wstring pointText(const Point& point) {
  std::wstring text = L"(" + shortNumberText(point.x) + L", " + shortNumberText(point.y);
  if (point.z != 0) text += L", " + shortNumberText(point.z);
  return text + L")";
}

std::wstring defaultText(const Drawing& drawing, RecordId id, Property property) {
  const PropertyInfo& info = propertyInfo(property);
  if (info.type == PropertyType::kInteger)
    return integerText(property, defaultInteger(drawing, id, property));
  return info.type == PropertyType::kReal ? shortNumberText(info.defaultValue) : defaultName(property);
}

std::wstring propertyText(const Drawing& drawing, RecordId id, Property property) {
  const PropertyInfo& info = propertyInfo(property);
  switch (info.type) {
    case PropertyType::kInteger:
      if (const auto value = drawing.integer(id, property)) return integerText(property, *value);
      break;
    case PropertyType::kReal:
      if (const auto value = drawing.real(id, property)) return shortNumberText(*value);
      break;
    case PropertyType::kName:
    case PropertyType::kText:
      if (auto value = drawing.text(id, property)) return *std::move(value);
  }
  return drawing.canHold(id, property) ? defaultText(drawing, id, property) : std::wstring();
}

std::wstring patternText(const Drawing& drawing, RecordId linetype) {
  std::wstring text;
  for (const Dash& dash : drawing.dashes(linetype)) {
    if (!text.empty()) text += L", ";
    text += shortNumberText(dash.length);
    if (!dash.symbol) continue;
    const DashSymbol& symbol = *dash.symbol;
    text += L" [" + (symbol.text.empty() ? std::to_wstring(symbol.shape) : symbol.text);
    for (const double number : {symbol.scale, symbol.degrees, symbol.x, symbol.y})
      text += L" " + shortNumberText(number);
    text += L"]";
  }
  return text;
}

}  // namespace cad
