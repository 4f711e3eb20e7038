// Changes that the host accepts are what is read afterwards, from the drawing and from its saved file, and
// touch nothing else: no other record, no other group. Undo takes all of them back.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "base/fold.h"
#include "embedded/drawing/dim_variables.h"
#include "embedded/dxf/file_facts.h"
#include "embedded/dxf/group_cursor.h"
#include "embedded/dxf/loader.h"
#include "fuzz/choice.h"
#include "fuzz/saved_bytes.h"
#include "fuzz/share.h"

namespace {

using cad::Drawing;
using cad::Property;
using cad::PropertyType;
using cad::RecordId;
using fuzz::require;
using fuzz::savedBytes;

using Value = std::variant<std::int64_t, double, std::wstring>;

struct Change {
  Property property;
  Value value;
  std::vector<int> codes;  // of the groups that it may change
};

const std::vector<Change>& changes() {
  using P = Property;
  static const std::vector<Change> list = {
      {P::kLayer, L"壁", {8}},
      {P::kLinetype, L"Continuous", {6}},
      {P::kColorIndex, std::int64_t{3}, {62, 420, 430}},
      {P::kColorIndex, std::int64_t{256}, {62, 420, 430}},
      {P::kColorIndex, std::int64_t{0}, {62, 420, 430}},
      {P::kLineWeight, std::int64_t{25}, {370}},
      {P::kLineWeight, std::int64_t{-1}, {370}},
      {P::kTransparency, std::int64_t{0}, {440, 1001, 1071}},
      {P::kTransparency, std::int64_t{0x0200007F}, {440, 1001, 1071}},
      {P::kLinetypeScale, 0.5, {48}},
      {P::kTextStyle, L"Standard", {7}},
      {P::kTextHeight, 7.25, {40}},
      {P::kRotation, 90.0, {50, 11, 21, 31}},
      {P::kWidthFactor, 0.75, {41}},
      {P::kTextString, L"壁 x", {1, 3}},
      {P::kTextRotation, 45.0, {53}},
      {P::kDimText, L"<> x", {1}},
      {P::kLayerColor, std::int64_t{5}, {62, 420, 430}},
      {P::kLayerColor, std::int64_t{-7}, {62, 420, 430}},
      {P::kLayerLinetype, L"Continuous", {6}},
      {P::kLayerPlottable, std::int64_t{0}, {290}},
      {P::kStandardFlags, std::int64_t{4}, {70}},
      {P::kFontFile, L"txt.shx", {3}},
      {P::kStyleWidthFactor, 0.8, {41}},
  };
  return list;
}

bool same(const Drawing& a, RecordId x, const Drawing& b, RecordId y, Property property) {
  switch (cad::propertyInfo(property).type) {
    case PropertyType::kInteger:
      return a.integer(x, property) == b.integer(y, property);
    case PropertyType::kReal:
      return a.real(x, property) == b.real(y, property);
    default:
      return a.text(x, property) == b.text(y, property);
  }
}

bool holds(const Drawing& drawing, RecordId id, const Change& change) {
  const cad::PropertyInfo& info = cad::propertyInfo(change.property);
  if (const auto* number = std::get_if<std::int64_t>(&change.value)) {
    const auto found = drawing.integer(id, change.property);
    return found == *number || (!found && static_cast<double>(*number) == info.defaultValue);
  }
  if (const auto* real = std::get_if<double>(&change.value)) {
    return drawing.real(id, change.property).value_or(info.defaultValue) == *real;
  }
  const auto& wanted = std::get<std::wstring>(change.value);
  const auto found = drawing.text(id, change.property);
  if (!found) return wanted == L"Standard" || wanted == L"Continuous";  // as without the group
  return info.type == PropertyType::kName ? base::equalFolded(*found, wanted) : *found == wanted;
}

base::Status apply(Drawing& drawing, RecordId id, const Change& change) {
  if (const auto* number = std::get_if<std::int64_t>(&change.value))
    return drawing.setInteger(id, change.property, *number);
  if (const auto* real = std::get_if<double>(&change.value))
    return drawing.setReal(id, change.property, *real);
  return drawing.setText(id, change.property, std::get<std::wstring>(change.value));
}

// --- What a record was and is ----------------------------------------------------------------------------

bool inFile(const cad::Record& record) {
  return (record.flags & (cad::Record::kAdded | cad::Record::kImplied)) == 0;
}

std::string_view bytesOf(const Drawing& drawing, std::string_view file, RecordId id) {
  return file.substr(drawing.record(id).offset, drawing.record(id).length);
}

// The record without the groups of these codes; comments are groups here.
std::string without(std::string_view record, const cad::dxf::Dialect& dialect,
                    const std::vector<int>& codes) {
  std::string result;
  cad::dxf::Group group;
  while (cad::dxf::readGroup(record, group.end, dialect, group)) {
    if (std::find(codes.begin(), codes.end(), group.code) == codes.end())
      result += record.substr(group.begin, group.end - group.begin);
  }
  return result;
}

class Edit {
 public:
  explicit Edit(Drawing& drawing, std::string_view original) : drawing_(drawing), original_(original) {}

  void change(fuzz::Choice& choice) {
    drawing_.beginUndoGroup();
    static_cast<void>(drawing_.addTableRecord(cad::Table::kLayer, L"壁").ok());
    const auto count = static_cast<RecordId>(drawing_.recordCount());
    mayChange_.resize(count);
    for (RecordId id = 0; id < count; ++id) {
      if (inFile(drawing_.record(id)) && choice.oneIn(3)) changeRecord(choice, id);
    }
    drawing_.endUndoGroup();
  }

  // `saved`: the drawing's file, read again.
  void compare(const Drawing& again, std::string_view saved) const {
    const cad::dxf::Dialect dialect = cad::dxf::fileDialect(original_);
    RecordId twin = 0;
    for (RecordId id = 0; id < mayChange_.size(); ++id) {
      if (!inFile(drawing_.record(id))) continue;
      const std::string_view before = bytesOf(drawing_, original_, id);
      const bool changed = drawing_.record(id).edits != cad::kNoEdit;
      const auto isTwin = [&] {
        return changed ? again.typeName(twin) == drawing_.typeName(id)
                       : bytesOf(again, saved, twin) == before;
      };
      while (twin < again.recordCount() && (!inFile(again.record(twin)) || !isTwin())) ++twin;
      require(twin < again.recordCount());
      const cad::RecordKind kind = drawing_.record(id).kind;
      if (mayChange_[id].empty()) {  // the next free handle, the number of a table's records
        require(!changed || kind == cad::RecordKind::kFrame || kind == cad::RecordKind::kTable);
      } else {
        require(without(before, dialect, mayChange_[id]) ==
                without(bytesOf(again, saved, twin), dialect, mayChange_[id]));
        compareProperties(id, again, twin);
      }
      ++twin;
    }
  }

 private:
  void changeRecord(fuzz::Choice& choice, RecordId id) {
    for (std::size_t left = choice.between(1, 4); left > 0; --left) {
      const Change& change = choice.of(changes());
      if (!drawing_.canHold(id, change.property)) continue;
      const cad::EditId before = drawing_.record(id).edits;
      if (apply(drawing_, id, change).ok()) {
        require(holds(drawing_, id, change), cad::propertyInfo(change.property).name);
        mayChange_[id].insert(mayChange_[id].end(), change.codes.begin(), change.codes.end());
      } else {
        require(drawing_.record(id).edits == before);
      }
    }
  }

  void compareProperties(RecordId id, const Drawing& again, RecordId twin) const {
    for (int i = 0; i < static_cast<int>(Property::kCount); ++i) {
      const auto property = static_cast<Property>(i);
      require(same(drawing_, id, again, twin, property), cad::propertyInfo(property).name);
    }
  }

  Drawing& drawing_;
  std::string_view original_;
  std::vector<std::vector<int>> mayChange_;  // by record: codes of the groups that the changes are about
};

// Refusals are as good as successes here.
void changeVariables(Drawing& drawing) {
  for (RecordId id = 0; id < drawing.recordCount(); ++id) {
    const cad::RecordKind kind = drawing.record(id).kind;
    if (kind != cad::RecordKind::kEntity && drawing.record(id).table != cad::Table::kDimStyle) continue;
    constexpr const cad::DimVariableInfo& kArrowSize = cad::dimRow("DIMASZ");
    if (drawing.setDimVariable(id, kArrowSize, 3.0).ok())
      require(drawing.dimVariable(id, kArrowSize) == cad::Variable(3.0));
  }
  if (drawing.setHeaderVariable("DIMASZ", 7.5).ok())
    require(drawing.headerVariable("DIMASZ") == cad::Variable(7.5));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  auto loaded = cad::dxf::loadBytes(bytes);
  static fuzz::Share share("drawings");
  share.add(loaded.ok());
  if (!loaded) return 0;
  Drawing& drawing = *loaded.value();
  fuzz::Choice choice(static_cast<unsigned>(std::hash<std::string>()(bytes)));
  Edit edit(drawing, bytes);
  edit.change(choice);
  const std::string saved = savedBytes(drawing);
  const auto again = cad::dxf::loadBytes(saved);
  require(again.ok());
  edit.compare(*again.value(), saved);

  changeVariables(drawing);
  require(cad::dxf::loadBytes(savedBytes(drawing)).ok());
  while (drawing.undo()) {
  }
  require(savedBytes(drawing) == bytes);
  return 0;
}
