// The pattern in a linetype's record.

#include <cmath>

#include "embedded/dxf/group_writer.h"
#include "embedded/dxf/record_builder.h"
#include "embedded/dxf/record_tools.h"

namespace cad::dxf {
namespace {

using Turn = DashSymbol::Turn;

constexpr std::int64_t kAbsolute = 1, kText = 2, kShape = 4, kUpright = 8;

std::int64_t flagsOf(const DashSymbol& symbol, Version version) {
  std::int64_t flags = symbol.text.empty() ? kShape : kText;
  if (symbol.turn == Turn::kAbsolute) flags |= kAbsolute;
  // Files before 2013 cannot say it: hosts write an upright symbol there as one that follows its line.
  if (symbol.turn == Turn::kUpright && version >= Version::kR2013) flags |= kUpright;
  return flags;
}

void addSymbol(RecordBuilder& builder, const DashSymbol& symbol, Handle style) {
  builder.integer(74, flagsOf(symbol, builder.target().facts().version));
  builder.integer(75, symbol.shape).handle(340, style).real(46, symbol.scale);
  builder.real(50, symbol.degrees);  // the reference speaks of radians; files hold degrees
  builder.real(44, symbol.x).real(45, symbol.y);
  if (!symbol.text.empty()) builder.text(9, symbol.text);
}

// One group of a symbol.
void readSymbolGroup(DashSymbol& symbol, const Group& group, const Drawing& drawing,
                     const DxfStorage& storage) {
  const auto real = [&](double& value) { value = realValue(group, storage.dialect()).value_or(value); };
  switch (group.code) {
    case 75:
      symbol.shape = static_cast<int>(integerValue(group, storage.dialect()).value_or(0));
      return;
    case 340:
      if (const auto handle = handleValue(group)) symbol.style = drawing.findHandle(*handle);
      return;
    case 46:
      return real(symbol.scale);
    case 50:
      return real(symbol.degrees);
    case 44:
      return real(symbol.x);
    case 45:
      return real(symbol.y);
    case 9:
      symbol.text = storage.decode(group.value);
      return;
    default:
      return;
  }
}

}  // namespace

base::Result<EditId> DxfStorage::setDashes(const Drawing& drawing, const Record& linetype,
                                           std::span<const Dash> dashes) {
  const RecordGroups groups(*this, linetype);
  const Group* flags = groups.find(70);
  if (linetype.table != Table::kLinetype || flags == nullptr) return failure({}, L"This is not a linetype");
  RecordBuilder builder(*this);
  if (const Group* description = groups.find(3)) builder.stored(3, description->value);
  double length = 0;
  for (const Dash& dash : dashes) length += std::fabs(dash.length);
  if (length < 1e6) length = std::round(length * 1e9) / 1e9;  // the sum's last digits are noise
  builder.integer(72, 65).integer(73, static_cast<std::int64_t>(dashes.size())).real(40, length);
  const bool holdsSymbols = facts_.linetypesHoldSymbols();
  for (const Dash& dash : dashes) {
    builder.real(49, dash.length);
    if (!dash.symbol) {
      if (holdsSymbols) builder.integer(74, 0);
      continue;
    }
    const std::optional<Handle> style = drawing.handle(dash.symbol->style);
    if (!holdsSymbols) return failure({}, kNoSymbolsHere);
    if (!style) return failure({}, L"The text style has no handle");
    addSymbol(builder, *dash.symbol, *style);
  }
  const std::uint32_t end = groups.plainEnd();
  if (groups.bytes().substr(flags->end, end - flags->end) == builder.bytes()) return linetype.edits;
  return withGroupsFor(linetype, flags->end, end, builder.take());
}

// A text or shape whose style record cannot be found is left out.
std::vector<Dash> DxfStorage::dashes(const Drawing& drawing, RecordId linetype) const {
  const RecordGroups groups(*this, drawing.record(linetype));
  std::vector<Dash> dashes;
  for (const Group& group : groups.all()) {
    if (group.code >= 1000) break;
    if (group.code == 49) {
      dashes.push_back({realValue(group, dialect_).value_or(0)});
    } else if (group.code == 74 && !dashes.empty()) {
      const std::int64_t flags = integerValue(group, dialect_).value_or(0);
      if ((flags & (kText | kShape)) == 0) continue;
      const Turn turn = (flags & kAbsolute) != 0  ? Turn::kAbsolute
                        : (flags & kUpright) != 0 ? Turn::kUpright
                                                  : Turn::kWithLine;
      dashes.back().symbol.emplace().turn = turn;
    } else if (!dashes.empty() && dashes.back().symbol) {
      readSymbolGroup(*dashes.back().symbol, group, drawing, *this);
    }
  }
  for (Dash& dash : dashes)
    if (dash.symbol && dash.symbol->style == kNoRecord) dash.symbol.reset();
  return dashes;
}

}  // namespace cad::dxf
