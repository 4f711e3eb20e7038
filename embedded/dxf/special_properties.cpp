#include "embedded/dxf/special_properties.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>
#include <string>
#include <vector>

#include "embedded/drawing/stored_text.h"
#include "embedded/dxf/group_writer.h"

namespace cad::dxf {
namespace {

constexpr std::size_t kLongestPiece = 250;  // bytes of an MTEXT's content in one group
constexpr PropertyPlace kContent{Property::kTextString, 1, "AcDbMText", Version::kR12};
constexpr std::string_view kLayerApplication = "AcCmTransparency";
constexpr std::string_view kStyleApplication = "ACAD";

// False: the columns end the search.
template <class Counts, class Visit>
bool forEachGroup(RegionCursor& cursor, Counts counts, Visit& visit) {
  while (cursor.next()) {
    if (!counts()) continue;
    if (cursor.group().code == kMTextColumns) return false;
    visit(cursor.group());
  }
  return true;
}

// In a record that has markers, but not its own, what other classes have counts too.
template <class Visit>
void forEachMTextGroup(std::string_view bytes, const Dialect& dialect, Visit visit) {
  RegionCursor cursor(bytes, dialect);
  bool marked = false;
  const auto own = [&] {
    if (cursor.region() != Region::kSubclass) return cursor.region() == Region::kHead;
    const bool here = equalNoCase(cursor.subclass(), kContent.subclass);
    marked = marked || here;
    return here;
  };
  if (!forEachGroup(cursor, own, visit) || marked || cursor.subclass().empty()) return;
  RegionCursor others(bytes, dialect);
  const auto known = [&] { return others.region() == Region::kSubclass && isKnownClass(others.subclass()); };
  forEachGroup(others, known, visit);
}

std::string readContent(std::string_view bytes, const Dialect& dialect) {
  std::string content;
  forEachMTextGroup(bytes, dialect, [&](const Group& group) {
    if (group.code == 1 || group.code == 3) content += group.value;
  });
  return content;
}

EditId writeContent(DxfStorage& storage, Record record, const std::string& content) {
  std::string scratch;
  std::string_view bytes = storage.bytes(record, scratch);
  if (readContent(bytes, storage.dialect()) == content) return record.edits;
  std::vector<Group> pieces;
  forEachMTextGroup(bytes, storage.dialect(), [&](const Group& group) {
    if (group.code == 1 || group.code == 3) pieces.push_back(group);
  });
  const std::string groups = contentGroups(storage.dialect(), storage.facts().codePage, content);
  if (pieces.empty()) {
    return storage.withGroups(record, locate(bytes, storage.dialect(), kContent, false).insertAt, groups);
  }
  // From the last to the first, so that places before stay where they are.
  while (pieces.size() > 1) {
    record.edits = storage.withoutGroup(record, pieces.back());
    pieces.pop_back();
  }
  const Group& first = pieces.front();
  return storage.splice(record, {first.begin, first.end - first.begin, groups});
}

struct Direction {
  std::optional<Group> x, y, z;  // groups 11, 21, 31
  std::optional<Group> angle;    // group 50
  bool angleLast = false;        // of vector and angle the later one counts
  // From 2018 on an embedded object says the direction again, in its groups 10, 20, 30, and readers take it.
  std::optional<Group> embeddedX, embeddedY, embeddedZ;
};

Direction findDirection(std::string_view bytes, const Dialect& dialect) {
  Direction found;
  forEachMTextGroup(bytes, dialect, [&](const Group& group) {
    switch (group.code) {
      case 11:
        found.x = group;
        found.angleLast = false;
        break;
      case 21:
        found.y = group;
        break;
      case 31:
        found.z = group;
        break;
      case 50:
        found.angle = group;
        found.angleLast = true;
        break;
      default:
        break;
    }
  });
  RegionCursor cursor(bytes, dialect);
  while (cursor.next()) {
    if (cursor.region() != Region::kEmbedded) continue;
    const Group& group = cursor.group();
    if (group.code == 10 && !found.embeddedX) found.embeddedX = group;
    if (group.code == 20 && !found.embeddedY) found.embeddedY = group;
    if (group.code == 30 && !found.embeddedZ) found.embeddedZ = group;
  }
  return found;
}

double degreesOf(const Group& xGroup, const std::optional<Group>& yGroup, const Dialect& dialect) {
  const double x = realValue(xGroup, dialect).value_or(1);
  const double y = yGroup ? realValue(*yGroup, dialect).value_or(0) : 0;
  return std::atan2(y, x) * 180 / std::numbers::pi;
}

StoredValue readDirection(std::string_view bytes, const Dialect& dialect) {
  const Direction found = findDirection(bytes, dialect);
  if (found.x && !found.angleLast) return degreesOf(*found.x, found.y, dialect);
  if (found.angle) {
    if (const auto angle = realValue(*found.angle, dialect)) return *angle;
  }
  if (found.embeddedX) return degreesOf(*found.embeddedX, found.embeddedY, dialect);
  return {};
}

double snapped(double value) { return std::fabs(value) < 1e-15 ? 0 : value; }

EditId writeDirection(DxfStorage& storage, Record record, double degrees) {
  std::string scratch;
  const Dialect& dialect = storage.dialect();
  const std::string_view bytes = storage.bytes(record, scratch);
  const StoredValue old = readDirection(bytes, dialect);
  const double present = std::holds_alternative<double>(old) ? std::get<double>(old) : 0;
  if (present == degrees) return record.edits;
  const Direction found = findDirection(bytes, dialect);
  const double radians = degrees * std::numbers::pi / 180;
  const double x = snapped(std::cos(radians)), y = snapped(std::sin(radians));
  std::vector<std::pair<Group, double>> changes;
  const auto change = [&](const std::optional<Group>& group, double value) {
    if (group) changes.emplace_back(*group, value);
  };
  change(found.x, x), change(found.y, y), change(found.z, 0.0);
  change(found.embeddedX, x), change(found.embeddedY, y), change(found.embeddedZ, 0.0);
  change(found.angle, degrees);
  std::ranges::sort(changes, [](const auto& a, const auto& b) { return a.first.begin > b.first.begin; });
  for (const auto& [group, value] : changes) {
    if (realValue(group, dialect) == value) continue;
    record.edits = storage.withValue(record, group, realBytes(dialect, value));
  }
  if (found.x || found.angle) return record.edits;
  GroupWriter writer(dialect);
  writer.real(50, degrees);
  return storage.withGroups(record, locate(bytes, dialect, kContent, false).insertAt, writer.bytes());
}

// The first group of a code in an application's extended data.
bool findInApplication(std::string_view bytes, const Dialect& dialect, std::string_view application, int code,
                       Group& result) {
  const ApplicationData data = findApplicationData(bytes, dialect, application);
  if (!data.found) return false;
  GroupCursor cursor(bytes, dialect);
  while (cursor.next()) {
    if (cursor.group().begin <= data.name.begin || cursor.group().begin >= data.end) continue;
    if (cursor.group().code != code) continue;
    result = cursor.group();
    return true;
  }
  return false;
}

StoredValue readNumber(std::string_view bytes, const Dialect& dialect, std::string_view application) {
  Group group;
  if (!findInApplication(bytes, dialect, application, 1071, group)) return {};
  if (const auto value = integerValue(group, dialect)) return *value;
  return {};
}

// Nothing when the application's data hold no number yet.
std::optional<EditId> replaceNumber(DxfStorage& storage, const Record& record, std::string_view bytes,
                                    std::string_view application, std::int64_t value) {
  Group group;
  if (!findInApplication(bytes, storage.dialect(), application, 1071, group)) return std::nullopt;
  if (integerValue(group, storage.dialect()) == value) return record.edits;
  return storage.withValue(record, group, integerBytes(storage.dialect(), 1071, value, group.value));
}

EditId writeLayerTransparency(DxfStorage& storage, const Record& record, std::int64_t value) {
  std::string scratch;
  const Dialect& dialect = storage.dialect();
  const std::string_view bytes = storage.bytes(record, scratch);
  if (const auto replaced = replaceNumber(storage, record, bytes, kLayerApplication, value)) return *replaced;
  if (value == 0) return record.edits;
  GroupWriter writer(dialect);
  const ApplicationData data = findApplicationData(bytes, dialect, kLayerApplication);
  if (!data.found) writer.text(1001, kLayerApplication);
  writer.integer(1071, value);
  return storage.withGroups(record, data.end, writer.bytes());
}

EditId writeTypeface(DxfStorage& storage, Record record, const std::string& face) {
  std::string scratch;
  const Dialect& dialect = storage.dialect();
  const std::string_view bytes = storage.bytes(record, scratch);
  const ApplicationData data = findApplicationData(bytes, dialect, kStyleApplication);
  Group name, flags;
  if (findInApplication(bytes, dialect, kStyleApplication, 1000, name)) {
    if (name.value == face) return record.edits;
    if (!face.empty()) return storage.withValue(record, name, face);
    const bool hasFlags = findInApplication(bytes, dialect, kStyleApplication, 1071, flags);
    const std::uint32_t first = data.name.end == name.begin ? data.name.begin : name.begin;
    const std::uint32_t last = hasFlags && flags.begin == name.end ? flags.end : name.end;
    const bool alone = last == data.end;
    const std::uint32_t begin = alone ? first : name.begin;
    return storage.withGroupsFor(record, begin, last, {});
  }
  if (face.empty()) return record.edits;
  GroupWriter writer(dialect);
  if (!data.found) writer.text(1001, kStyleApplication);
  writer.text(1000, face);
  writer.integer(1071, 0);
  return storage.withGroups(record, data.found ? data.name.end : data.end, writer.bytes());
}

// Flags describe a typeface: a style without one keeps none.
EditId writeFontFlags(DxfStorage& storage, const Record& record, std::int64_t flags) {
  std::string scratch;
  const Dialect& dialect = storage.dialect();
  const std::string_view bytes = storage.bytes(record, scratch);
  if (const auto replaced = replaceNumber(storage, record, bytes, kStyleApplication, flags)) return *replaced;
  Group group;
  if (!findInApplication(bytes, dialect, kStyleApplication, 1000, group)) return record.edits;
  GroupWriter writer(dialect);
  writer.integer(1071, flags);
  return storage.withGroups(record, group.end, writer.bytes());
}

}  // namespace

std::string contentGroups(const Dialect& dialect, base::CodePage page, std::string_view content) {
  GroupWriter writer(dialect);
  std::size_t begin = 0;
  for (std::size_t at = 0; at < content.size();) {
    const std::size_t unit = storedUnit(content, at, page);
    if (at + unit - begin > kLongestPiece) {
      writer.text(3, content.substr(begin, at - begin));
      begin = at;
    }
    at += unit;
  }
  writer.text(1, content.substr(begin));
  return writer.take();
}

ApplicationData findApplicationData(std::string_view bytes, const Dialect& dialect,
                                    std::string_view application) {
  ApplicationData result;
  bool inside = false;
  GroupCursor cursor(bytes, dialect);
  while (cursor.next()) {
    const Group& group = cursor.group();
    if (group.code == 1001) {
      if (inside) return result;
      if (trimmed(group.value) == application) {
        inside = result.found = true;
        result.name = group;
      }
    }
    result.end = group.end;
  }
  return result;
}

bool isSpecial(std::string_view type, const PropertyPlace& place) {
  switch (place.property) {
    case Property::kTextString:
    case Property::kRotation:
      return isMText(type);
    case Property::kTransparency:
      return !isCommon(place);
    case Property::kTypeface:
    case Property::kFontFlags:
      return true;
    default:
      return false;
  }
}

StoredValue readSpecial(std::string_view bytes, const Dialect& dialect, std::string_view type,
                        Property property) {
  if (property == Property::kTextString) return readContent(bytes, dialect);
  if (property == Property::kRotation) return readDirection(bytes, dialect);
  if (type == "LAYER") return readNumber(bytes, dialect, kLayerApplication);
  if (property == Property::kFontFlags) return readNumber(bytes, dialect, kStyleApplication);
  Group group;
  if (!findInApplication(bytes, dialect, kStyleApplication, 1000, group)) return {};
  return std::string(group.value);
}

base::Result<EditId> writeSpecial(DxfStorage& storage, const Record& record, std::string_view type,
                                  Property property, const StoredValue& value) {
  if (property == Property::kTextString) return writeContent(storage, record, std::get<std::string>(value));
  if (property == Property::kRotation) return writeDirection(storage, record, std::get<double>(value));
  if (type == "LAYER") return writeLayerTransparency(storage, record, std::get<std::int64_t>(value));
  if (property == Property::kFontFlags) return writeFontFlags(storage, record, std::get<std::int64_t>(value));
  return writeTypeface(storage, record, std::get<std::string>(value));
}

}  // namespace cad::dxf
