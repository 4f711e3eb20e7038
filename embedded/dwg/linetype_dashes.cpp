// The pattern in a linetype's record.

#include <algorithm>
#include <cmath>

#include "embedded/drawing/drawing.h"
#include "embedded/drawing/stored_text.h"
#include "embedded/dwg/dwg_storage.h"
#include "embedded/dwg/field_texts.h"

namespace cad::dwg {
namespace {

using Turn = DashSymbol::Turn;

constexpr std::int64_t kAbsolute = 1, kText = 2, kShape = 4, kUpright = 8;

// The texts of all dashes stand in one field, each with a zero behind.
std::size_t roomForTexts(Version version) { return hasWideTexts(version) ? 512 : 256; }

std::string textAt(const DwgStorage& storage, const std::string& texts, std::int64_t offset) {
  if (offset < 0) return {};
  const std::size_t unit = hasWideTexts(storage.version()) ? 2 : 1;
  std::u16string wide;
  std::string narrow;
  for (std::size_t at = static_cast<std::size_t>(offset) * unit; at + unit <= texts.size(); at += unit) {
    const auto low = static_cast<unsigned char>(texts[at]);
    const auto high = unit == 2 ? static_cast<unsigned char>(texts[at + 1]) : 0;
    if (low == 0 && high == 0) break;
    narrow += static_cast<char>(low);
    wide += static_cast<char16_t>(low | high << 8);
  }
  return storedText(unit == 2 ? Value(wide) : Value(narrow));
}

// Where the text stands from now on; absent: there is no room for it.
std::optional<std::int64_t> putText(const DwgStorage& storage, const std::wstring& text, std::string& texts,
                                    std::size_t& used) {
  const bool wide = hasWideTexts(storage.version());
  const std::size_t unit = wide ? 2 : 1;
  std::string bytes;
  if (wide) {
    for (const char16_t each : toUtf16(text)) {
      bytes += static_cast<char>(each & 0xFF);
      bytes += static_cast<char>(each >> 8);
    }
  } else {
    bytes = encodeStored(text, storage.facts().codePage);
  }
  if (used + bytes.size() + unit > texts.size()) return std::nullopt;
  const std::size_t at = used;
  texts.replace(at, bytes.size(), bytes);
  used += bytes.size() + unit;
  return static_cast<std::int64_t>(at / unit);
}

std::int64_t flagsOf(const DashSymbol& symbol, Version version) {
  std::int64_t flags = symbol.text.empty() ? kShape : kText;
  if (symbol.turn == Turn::kAbsolute) flags |= kAbsolute;
  // Files before 2013 cannot say it: hosts write an upright symbol there as one that follows its line.
  if (symbol.turn == Turn::kUpright && version >= Version::kR2013) flags |= kUpright;
  return flags;
}

double totalLength(std::span<const Dash> dashes) {
  double length = 0;
  for (const Dash& dash : dashes) length += std::fabs(dash.length);
  return length < 1e6 ? std::round(length * 1e9) / 1e9 : length;  // the sum's last digits are noise
}

}  // namespace

std::vector<Dash> DwgStorage::dashes(const Drawing& drawing, RecordId linetype) const {
  const Fields& fields = this->fields(drawing.record(linetype));
  const Field* area = fields.find("texts");
  const std::string texts = area == nullptr ? std::string() : fields.bytes(*area);
  std::vector<Dash> dashes;
  const std::uint32_t count = fields.count("dash length");
  for (std::uint32_t i = 0; i < count; ++i) {
    Dash& dash = dashes.emplace_back();
    dash.length = fields.real("dash length", 0, i);
    const std::int64_t flags = fields.integer("dash flags", 0, i);
    const RecordId style = recordOf(fields.handle("dash style", i).value_or(0));
    // A text or shape whose style record cannot be found is left out.
    if ((flags & (kText | kShape)) == 0 || style == kNoRecord) continue;
    DashSymbol& symbol = dash.symbol.emplace();
    symbol.style = style;
    symbol.turn = (flags & kAbsolute) != 0                                  ? Turn::kAbsolute
                  : (flags & kUpright) != 0 && version() >= Version::kR2013 ? Turn::kUpright
                                                                            : Turn::kWithLine;
    const std::int64_t number = fields.integer("shape number", 0, i);
    if ((flags & kText) != 0)
      symbol.text = decodeStored(textAt(*this, texts, number), facts().codePage);
    else
      symbol.shape = static_cast<int>(number);
    symbol.scale = fields.real("dash scale", 1, i);
    symbol.degrees = fields.real("dash rotation", 0, i) / kRadiansPerDegree;
    symbol.x = fields.real("dash x", 0, i);
    symbol.y = fields.real("dash y", 0, i);
  }
  return dashes;
}

base::Result<EditId> DwgStorage::setDashes(const Drawing& drawing, const Record& linetype,
                                           std::span<const Dash> dashes) {
  FieldChanges changes;
  std::string texts(roomForTexts(version()), '\0');
  std::size_t used = 0;
  changes.set("dash count", Value(static_cast<std::int64_t>(dashes.size())));
  changes.set("pattern length", Value(totalLength(dashes)));
  for (std::uint32_t i = 0; i < dashes.size(); ++i) {
    const DashSymbol none;
    const bool hasSymbol = dashes[i].symbol.has_value();
    const DashSymbol& symbol = hasSymbol ? *dashes[i].symbol : none;
    std::int64_t number = symbol.shape;
    if (!symbol.text.empty()) {
      const std::optional<std::int64_t> at = putText(*this, symbol.text, texts, used);
      if (!at) return base::Failure{symbol.text, L"The linetype has no room for its texts"};
      number = *at;
    }
    changes.set("dash length", Value(dashes[i].length), i);
    changes.set("shape number", Value(number), i);
    changes.set("dash x", Value(symbol.x), i);
    changes.set("dash y", Value(symbol.y), i);
    changes.set("dash scale", Value(symbol.scale), i);
    changes.set("dash rotation", Value(symbol.degrees * kRadiansPerDegree), i);
    changes.set("dash flags", Value(hasSymbol ? flagsOf(symbol, version()) : std::int64_t{0}), i);
    changes.setHandle("dash style", hasSymbol ? drawing.handle(symbol.style).value_or(0) : 0, i);
  }
  if (!hasWideTexts(version()) || used > 0) changes.set("texts", Value(texts));
  return changed(linetype, changes);
}

}  // namespace cad::dwg
