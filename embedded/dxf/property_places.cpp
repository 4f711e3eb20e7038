#include "embedded/dxf/property_places.h"

#include <algorithm>

namespace cad::dxf {
namespace {

using P = Property;
using V = Version;

constexpr std::string_view kText = "AcDbText";
constexpr std::string_view kMText = "AcDbMText";
constexpr std::string_view kDimension = "AcDbDimension";
constexpr std::string_view kReference = "AcDbBlockReference|AcDbMInsertBlock";

constexpr std::string_view kKnownClasses = "*";

constexpr PropertyPlace kCommonPlaces[] = {
    {P::kLayer, 8, kEntityMarker, V::kR12},
    {P::kLinetype, 6, kEntityMarker, V::kR12},
    {P::kColorIndex, 62, kEntityMarker, V::kR12},
    {P::kLineWeight, 370, kEntityMarker, V::kR2000},
    {P::kTransparency, 440, kEntityMarker, V::kR2010},
    {P::kLinetypeScale, 48, kEntityMarker, V::kR13},
    {P::kInvisible, 60, kEntityMarker, V::kR13},
};

static_assert(std::ranges::all_of(kCommonPlaces, mayStray, &PropertyPlace::code));
static_assert(std::ranges::none_of(kCommonPlaces, staysBehind, &PropertyPlace::code));

struct TypedPlace {
  std::string_view types;  // separated by blanks
  PropertyPlace place;
};

constexpr std::string_view kTexts = "TEXT ATTDEF ATTRIB";
constexpr std::string_view kDimensions = "DIMENSION ARC_DIMENSION LARGE_RADIAL_DIMENSION";

constexpr TypedPlace kEntityPlaces[] = {
    {kTexts, {P::kTextStyle, 7, kText, V::kR12}},
    {kTexts, {P::kTextHeight, 40, kText, V::kR12}},
    {kTexts, {P::kRotation, 50, kText, V::kR12}},
    {kTexts, {P::kWidthFactor, 41, kText, V::kR12}},
    {kTexts, {P::kTextString, 1, kText, V::kR12}},
    {"MTEXT", {P::kTextStyle, 7, kMText, V::kR12}},
    {"MTEXT", {P::kTextHeight, 40, kMText, V::kR12}},
    {"MTEXT", {P::kRotation, 50, kMText, V::kR12}},
    {"MTEXT", {P::kTextString, 1, kMText, V::kR12}},
    {kDimensions, {P::kDimStyle, 3, kDimension, V::kR12}},
    {kDimensions, {P::kTextRotation, 53, kDimension, V::kR12}},
    {kDimensions, {P::kDimText, 1, kDimension, V::kR12}},
    {kDimensions, {P::kDimBlock, 2, kDimension, V::kR12}},
    {"LEADER", {P::kDimStyle, 3, "AcDbLeader", V::kR12}},
    {"TOLERANCE", {P::kDimStyle, 3, "AcDbFcf", V::kR12}},
    {"ATTDEF", {P::kName, 2, "AcDbAttributeDefinition", V::kR12}},
    {"ATTDEF", {P::kStandardFlags, 70, "AcDbAttributeDefinition", V::kR12}},
    {"ATTRIB", {P::kName, 2, "AcDbAttribute", V::kR12}},
    {"INSERT ACAD_TABLE", {P::kBlockName, 2, kReference, V::kR12}},
    {"INSERT", {P::kRotation, 50, kReference, V::kR12}},
};

constexpr TypedPlace kTablePlaces[] = {
    {"LAYER LTYPE STYLE DIMSTYLE BLOCK_RECORD APPID VIEW UCS VPORT BLOCK", {P::kName, 2, "", V::kR12}},
    {"LAYER LTYPE STYLE DIMSTYLE APPID VIEW UCS VPORT BLOCK", {P::kStandardFlags, 70, "", V::kR12}},
    {"LAYER", {P::kLayerColor, 62, "", V::kR12}},
    {"LAYER", {P::kLayerLinetype, 6, "", V::kR12}},
    {"LAYER", {P::kLayerPlottable, 290, "", V::kR2000}},
    {"LAYER", {P::kLineWeight, 370, "", V::kR2000}},
    {"LAYER", {P::kTransparency, 1071, "", V::kR2010}},  // in extended data, see special_properties.h
    {"STYLE", {P::kFontFile, 3, "", V::kR12}},
    {"STYLE", {P::kBigFontFile, 4, "", V::kR12}},
    {"STYLE", {P::kTypeface, 1000, "", V::kR2000}},  // likewise
    {"STYLE", {P::kFontFlags, 1071, "", V::kR2000}},
    {"STYLE", {P::kFixedHeight, 40, "", V::kR12}},
    {"STYLE", {P::kStyleWidthFactor, 41, "", V::kR12}},
    {"STYLE", {P::kStyleOblique, 50, "", V::kR12}},
    {"LTYPE", {P::kDescription, 3, "", V::kR12}},
    {"BLOCK", {P::kDescription, 4, "", V::kR2000}},
};

bool inList(std::string_view list, char separator, std::string_view word) {
  while (!list.empty()) {
    const std::size_t end = list.find(separator);
    if (equalNoCase(list.substr(0, end), word)) return true;
    if (end == std::string_view::npos) return false;
    list.remove_prefix(end + 1);
  }
  return false;
}

template <std::size_t N>
const PropertyPlace* findTyped(const TypedPlace (&rows)[N], std::string_view type, Property property) {
  for (const TypedPlace& row : rows) {
    if (row.place.property == property && inList(row.types, ' ', type)) return &row.place;
  }
  return nullptr;
}

bool hasCommonProperties(RecordKind kind) {
  return kind == RecordKind::kEntity || kind == RecordKind::kSubEntity;
}

// Whether a group is one of the place's classes; asks once for each marker.
class OwnGroups {
 public:
  explicit OwnGroups(std::string_view classes) : classes_(classes) {}
  bool holds(Region region, std::string_view subclass) {
    if (region != Region::kSubclass) return region == Region::kHead;
    if (subclass.data() != marker_) {
      marker_ = subclass.data();
      inside_ = isOwn(subclass);
    }
    return inside_;
  }

 private:
  bool isOwn(std::string_view subclass) const {
    if (classes_ == kKnownClasses) return isKnownClass(subclass);
    return classes_.empty() || inList(classes_, '|', subclass);
  }

  std::string_view classes_;
  const char* marker_ = nullptr;
  bool inside_ = false;
};

// The codes that begin the parts of a record.
constexpr int kFirstOfParts = 100, kLastOfParts = 102, kExtendedData = 1000;

void noteTrueColor(const Group& group, Located& result) {
  if (group.code == kTrueColor) result.trueColor = group;
  if (group.code == kColorName) result.colorName = group;
}

}  // namespace

bool isCommon(const PropertyPlace& place) { return place.subclass == kEntityMarker; }
bool isMText(std::string_view type) { return type == "MTEXT"; }

const PropertyPlace* findCommonPlace(RecordKind kind, Property property) {
  const bool block = kind == RecordKind::kBlockBegin || kind == RecordKind::kBlockEnd;
  if (!hasCommonProperties(kind) && !(block && property == P::kLayer)) return nullptr;
  for (const PropertyPlace& place : kCommonPlaces) {
    if (place.property == property) return &place;
  }
  return nullptr;
}

Version commonSince(int code) {
  constexpr int kLastOfColors = 439;
  if (code >= kTrueColor && code <= kLastOfColors) return V::kR2004;
  const auto place = std::ranges::find(kCommonPlaces, code, &PropertyPlace::code);
  return place == std::end(kCommonPlaces) ? V::kR12 : place->since;
}

const PropertyPlace* findPlace(RecordKind kind, std::string_view type, Property property) {
  if (const PropertyPlace* common = findCommonPlace(kind, property)) return common;
  switch (kind) {
    case RecordKind::kEntity:
    case RecordKind::kSubEntity:
      return findTyped(kEntityPlaces, type, property);
    case RecordKind::kBlockBegin:
    case RecordKind::kTableRecord:
      return findTyped(kTablePlaces, type, property);
    default:
      return nullptr;
  }
}

Located locate(std::string_view bytes, const Dialect& dialect, const PropertyPlace& place, bool straying) {
  if (isCommon(place)) return locateCommon(bytes, dialect, place.code, straying);
  Located result;
  const bool mtext = place.subclass == kMText;
  // A dimension style has another value under the same code behind its flags.
  const bool firstCounts = place.property == Property::kStandardFlags;
  bool sawSubclass = false, leftSubclass = false;
  OwnGroups own(place.subclass);
  RegionTracker tracker;
  // Whether a group, or some of which nothing else is asked, is the place's; they end there.
  const auto takes = [&](Region region, bool isMarker, std::uint32_t end) {
    const bool isOwn = own.holds(region, tracker.subclass());
    // A text has its subclass twice; new groups belong into the first.
    leftSubclass = leftSubclass || (sawSubclass && (!isOwn || (isMarker && !place.subclass.empty())));
    if (!isOwn) return false;
    sawSubclass = sawSubclass || region == Region::kSubclass;
    if (!leftSubclass) result.insertAt = end;
    return true;
  };
  const auto isDull = [&](int code) {
    const bool isPart = code >= kFirstOfParts && (code <= kLastOfParts || code >= kExtendedData);
    return code != place.code && !isPart && code != kTrueColor && code != kColorName && code != kMTextColumns;
  };
  GroupCursor cursor(bytes, dialect);
  for (bool found = true; found;) {
    found = cursor.next(isDull);
    if (cursor.passed() != 0) takes(tracker.present(), false, cursor.passed());
    if (!found) break;
    const Group& group = cursor.group();
    const Region region = tracker.enter(group.code, group.value);
    if (mtext && group.code == kMTextColumns && own.holds(region, tracker.subclass())) break;
    if (!takes(region, group.code == kFirstOfParts, group.end)) continue;
    if (group.code == place.code && !(result.group && firstCounts)) result.group = group;
    if (place.code == kColorNumber) noteTrueColor(group, result);
  }
  // A record that has markers, but not this one: what other classes have of the code counts.
  const bool lacksMarker = !sawSubclass && !tracker.subclass().empty() && place.subclass != kKnownClasses;
  if (!result.group && lacksMarker && !place.subclass.empty()) {
    return locate(bytes, dialect, {place.property, place.code, kKnownClasses, place.since}, straying);
  }
  return result;
}

}  // namespace cad::dxf
