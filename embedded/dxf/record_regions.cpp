#include "embedded/dxf/record_regions.h"

#include <algorithm>
#include <iterator>

namespace cad::dxf {
namespace {

// In none of these classes has a group that may stray a meaning of its own, but for the exceptions below.
// Some are no class's name, but what programs write for AcDbFace, AcDbTrace and AcDbPolyline.
constexpr std::string_view kClasses[] = {
    "AcDb2dPolyline",
    "AcDb2dVertex",
    "AcDb2LineAngularDimension",
    "AcDb3dFace",
    "AcDb3dPolyline",
    "AcDb3dPolylineVertex",
    "AcDb3dSolid",
    "AcDb3PointAngularDimension",
    "AcDbAlignedDimension",
    "AcDbArc",
    "AcDbArcDimension",
    "AcDbAttribute",
    "AcDbAttributeDefinition",
    "AcDbBlockBegin",
    "AcDbBlockEnd",
    "AcDbBlockReference",
    "AcDbCircle",
    "AcDbDiametricDimension",
    "AcDbDimension",
    "AcDbEllipse",
    "AcDbExtrudedSurface",
    "AcDbFace",
    "AcDbFaceRecord",
    "AcDbFcf",
    "AcDbHatch",
    "AcDbHelix",
    "AcDbLeader",
    "AcDbLight",
    "AcDbLine",
    "AcDbLoftedSurface",
    "AcDbLwPolyline",
    "AcDbMInsertBlock",
    "AcDbMline",
    "AcDbModelerGeometry",
    "AcDbMPolygon",
    "AcDbMText",
    "AcDbOle2Frame",
    "AcDbOrdinateDimension",
    "AcDbPlaneSurface",
    "AcDbPoint",
    "AcDbPolyFaceMesh",
    "AcDbPolyFaceMeshVertex",
    "AcDbPolygonMesh",
    "AcDbPolygonMeshVertex",
    "AcDbPolyline",
    "AcDbRadialDimension",
    "AcDbRadialDimensionLarge",
    "AcDbRasterImage",
    "AcDbRay",
    "AcDbRegion",
    "AcDbRevolvedSurface",
    "AcDbRotatedDimension",
    "AcDbShape",
    "AcDbSolid",
    "AcDbSpline",
    "AcDbSubDMesh",
    "AcDbSurface",
    "AcDbSweptSurface",
    "AcDbText",
    "AcDbTrace",
    "AcDbUnderlayReference",
    "AcDbVertex",
    "AcDbViewport",
    "AcDbWipeout",
    "AcDbXline",
};

constexpr bool lessNoCase(std::string_view a, std::string_view b) {
  return std::ranges::lexicographical_compare(a, b, {}, asciiUpper, asciiUpper);
}
static_assert(std::ranges::is_sorted(kClasses, lessNoCase));

struct OwnGroup {
  std::string_view subclass;
  int code;
};
constexpr OwnGroup kOwnGroups[] = {
    {"AcDbMText", 48},            // width of columns
    {"AcDbMText", 420},           // the background's colour
    {"AcDbMText", 430},           // and its name
    {"AcDbExtrudedSurface", 48},  // scale along the path
    {"AcDbSweptSurface", 48},
};

// These mean the same in every class of entities; the other codes that may stray are some class's own.
constexpr int kSameEverywhere[] = {6, 8, 370, 440};

bool holds(const auto& codes, int code) {
  return std::find(std::begin(codes), std::end(codes), code) != std::end(codes);
}

// The group that counts for a code.
class CommonGroup {
 public:
  explicit CommonGroup(int code) : code_(code) {}
  void look(const RegionCursor& cursor) {
    if (cursor.group().code == code_ && cursor.offer(pick_, code_)) group_ = cursor.group();
  }
  bool atHome() const { return pick_.atHome(); }
  const std::optional<Group>& group() const { return group_; }

 private:
  int code_;
  CommonPick pick_;
  std::optional<Group> group_;
};

// Where a new group is read back: behind the layer or AcDbEntity; without these behind the first known
// class's marker when it may stray there, else in the record's head.
class CommonPlace {
 public:
  explicit CommonPlace(int code) : code_(code) {}
  static bool heeds(int code) {
    return code == kType || code == kHandle || code == kLayer || code == kMarker;
  }
  void look(const RegionCursor& cursor) {
    const int code = cursor.group().code;
    if (!heeds(code)) return;
    const bool atHome = cursor.inCommon();
    Rank rank = Rank::kHead;
    if (code == kLayer) rank = atHome ? Rank::kLayer : Rank::kStrayedLayer;
    if (code == kMarker) rank = atHome ? Rank::kEntityMarker : Rank::kFirstMarker;
    if (rank < rank_ || (rank == rank_ && code == kMarker)) return;
    if (!atHome && !(cursor.maybeCommon(code_) && isKnownClass(cursor.subclass()))) return;
    rank_ = rank;
    end_ = cursor.group().end;
  }
  std::uint32_t end() const { return end_; }

 private:
  enum class Rank : std::uint8_t { kHead, kFirstMarker, kStrayedLayer, kEntityMarker, kLayer };
  static constexpr int kType = 0, kHandle = 5, kLayer = 8, kMarker = 100;

  int code_;
  Rank rank_ = Rank::kHead;
  std::uint32_t end_ = 0;
};

}  // namespace

Region RegionTracker::turn(int code, std::string_view value) {
  if (code >= 1000) {
    application_ = false;
    return outer_ = Region::kExtendedData;
  }
  if (outer_ == Region::kExtendedData) return outer_;
  if (code == 102) {
    const std::string_view text = trimmed(value);
    application_ = !text.empty() && text.front() == '{';
    return Region::kApplication;
  }
  if (application_) return Region::kApplication;
  if (code == 101) return outer_ = Region::kEmbedded;
  if (code == 100 && outer_ != Region::kEmbedded) {
    subclass_ = trimmed(value);
    outer_ = Region::kSubclass;
    common_.marker(subclass_);
  }
  return outer_;
}

bool CommonGroups::strayed(int code) const {
  if (atHome_ || !mayStray(code)) return false;
  if (holds(kSameEverywhere, code)) return true;
  const auto own = [&](const OwnGroup& row) {
    return row.code == code && equalNoCase(row.subclass, marker_);
  };
  return std::ranges::none_of(kOwnGroups, own) && std::ranges::binary_search(kClasses, marker_, lessNoCase);
}

bool isKnownClass(std::string_view subclass) {
  return equalNoCase(subclass, kEntityMarker) || std::ranges::binary_search(kClasses, subclass, lessNoCase);
}

Located locateCommon(std::string_view bytes, const Dialect& dialect, int code, bool straying) {
  CommonGroup wanted(code), trueColor(kTrueColor), colorName(kColorName);
  CommonPlace place(code);
  RegionCursor cursor(bytes, dialect);
  const bool isColor = code == kColorNumber;
  while (cursor.next() && cursor.region() < Region::kEmbedded) {
    if (cursor.leftHome() && (!straying || (wanted.atHome() && !isColor))) break;
    if (const int at = cursor.group().code; at != code && !isColor && !CommonPlace::heeds(at)) continue;
    wanted.look(cursor);
    place.look(cursor);
    if (!isColor) continue;
    trueColor.look(cursor);
    colorName.look(cursor);
  }
  return {.group = wanted.group(),
          .insertAt = place.end(),
          .trueColor = trueColor.group(),
          .colorName = colorName.group()};
}

}  // namespace cad::dxf
