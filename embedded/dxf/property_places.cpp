#include "embedded/dxf/property_places.h"

namespace cad::dxf {
namespace {

using P = Property;
using V = Version;

constexpr std::string_view kText = "AcDbText";
constexpr std::string_view kMText = "AcDbMText";
constexpr std::string_view kDimension = "AcDbDimension";
constexpr std::string_view kReference = "AcDbBlockReference|AcDbMInsertBlock";

constexpr PropertyPlace kCommonPlaces[] = {
    {P::kLayer, 8, kEntityMarker, V::kR12},
    {P::kLinetype, 6, kEntityMarker, V::kR12},
    {P::kColorIndex, 62, kEntityMarker, V::kR12},
    {P::kLineWeight, 370, kEntityMarker, V::kR2000},
    {P::kTransparency, 440, kEntityMarker, V::kR2010},
    {P::kLinetypeScale, 48, kEntityMarker, V::kR13},
    {P::kInvisible, 60, kEntityMarker, V::kR13},
};

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
    {"LAYER LTYPE STYLE DIMSTYLE BLOCK_RECORD APPID VIEW UCS VPORT BLOCK",
     {P::kStandardFlags, 70, "", V::kR12}},
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
    if (list.substr(0, end) == word) return true;
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

bool counts(const PropertyPlace& place, Region region, std::string_view subclass) {
  if (region == Region::kHead) return true;
  if (region != Region::kSubclass) return false;
  return place.subclass.empty() || place.subclass == subclass || inList(place.subclass, '|', subclass);
}

constexpr int kColorNumber = 62, kTrueColor = 420, kColorName = 430, kLayerCode = 8, kMarker = 100;

void noteTrueColor(const Group& group, Located& result) {
  if (group.code == kTrueColor) {
    result.hasTrueColor = true;
    result.trueColor = group;
  } else if (group.code == kColorName) {
    result.hasColorName = true;
    result.colorName = group;
  }
}

// The group that counts for a code: of those in the right place the last, else of those that strayed.
class CommonGroup {
 public:
  explicit CommonGroup(int code) : code_(code) {}
  void look(const RegionCursor& cursor) {
    if (cursor.group().code != code_) return;
    const bool atHome = cursor.inCommon();
    if (!atHome && (atHome_ || !cursor.maybeCommon(code_))) return;
    found_ = true;
    atHome_ = atHome;
    group_ = cursor.group();
  }
  bool found() const { return found_; }
  bool atHome() const { return atHome_; }
  const Group& group() const { return group_; }

 private:
  int code_;
  bool found_ = false, atHome_ = false;
  Group group_;
};

// Where a new group is read back: behind the layer or AcDbEntity; without these behind the first class's
// marker when it may stray there, else in the record's head.
class CommonPlace {
 public:
  explicit CommonPlace(int code) : code_(code) {}
  void look(const RegionCursor& cursor) {
    const int code = cursor.group().code;
    if (code != 0 && code != 5 && code != kLayerCode && code != kMarker) return;
    const bool atHome = cursor.inCommon();
    int rank = 0;
    if (code == kLayerCode) rank = atHome ? 4 : 2;
    if (code == kMarker) rank = atHome ? 3 : 1;
    if (rank < rank_ || (rank == rank_ && code == kMarker)) return;
    if (!atHome && !cursor.maybeCommon(code_)) return;
    rank_ = rank;
    end_ = cursor.group().end;
  }
  std::uint32_t end() const { return end_; }

 private:
  int code_, rank_ = 0;
  std::uint32_t end_ = 0;
};

Located locateCommon(std::string_view bytes, const Dialect& dialect, int code) {
  CommonGroup wanted(code), trueColor(kTrueColor), colorName(kColorName);
  CommonPlace place(code);
  RegionCursor cursor(bytes, dialect);
  while (cursor.next() && cursor.region() < Region::kEmbedded) {
    wanted.look(cursor);
    place.look(cursor);
    if (code == kColorNumber) {
      trueColor.look(cursor);
      colorName.look(cursor);
    }
    if (wanted.atHome() && cursor.region() == Region::kSubclass && !cursor.inCommon()) break;
  }
  return {wanted.found(),    wanted.group(),    place.end(),      trueColor.found(),
          colorName.found(), trueColor.group(), colorName.group()};
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

Located locate(std::string_view bytes, const Dialect& dialect, const PropertyPlace& place) {
  if (isCommon(place)) return locateCommon(bytes, dialect, place.code);
  Located result;
  const bool mtext = place.subclass == kMText;
  bool sawSubclass = false, leftSubclass = false;
  RegionCursor cursor(bytes, dialect);
  while (cursor.next()) {
    const Group& group = cursor.group();
    if (!counts(place, cursor.region(), cursor.subclass())) {
      leftSubclass = leftSubclass || sawSubclass;
      if (!sawSubclass && cursor.region() != Region::kExtendedData) result.insertAt = group.end;
      continue;
    }
    if (mtext && group.code == kMTextColumns) break;
    // A text has its subclass twice; new groups belong into the first.
    leftSubclass = leftSubclass || (sawSubclass && group.code == 100 && !place.subclass.empty());
    sawSubclass = sawSubclass || cursor.region() == Region::kSubclass;
    if (group.code == place.code) {
      result.found = true;
      result.group = group;
    }
    if (place.code == kColorNumber) noteTrueColor(group, result);
    if (!leftSubclass) result.insertAt = group.end;
  }
  // A record that has markers, but not this one: what its other subclasses have of the code counts.
  const bool lacksMarker = !sawSubclass && !cursor.subclass().empty() && !place.subclass.empty();
  if (!result.found && lacksMarker) {
    return locate(bytes, dialect, {place.property, place.code, {}, place.since});
  }
  return result;
}

}  // namespace cad::dxf
