#include "embedded/dxf/record_translator.h"

#include <algorithm>

#include "base/fold.h"
#include "embedded/dxf/dim_overrides.h"
#include "embedded/dxf/property_places.h"
#include "embedded/dxf/record_regions.h"

namespace cad::dxf {
namespace {

struct TypeVersion {
  std::string_view type;
  Version first;
};

constexpr TypeVersion kTypes[] = {
    {"3DFACE", Version::kR12},  {"ARC", Version::kR12},    {"ATTDEF", Version::kR12},
    {"ATTRIB", Version::kR12},  {"CIRCLE", Version::kR12}, {"DIMENSION", Version::kR12},
    {"ELLIPSE", Version::kR13}, {"HATCH", Version::kR14},  {"INSERT", Version::kR12},
    {"LEADER", Version::kR13},  {"LINE", Version::kR12},   {"LWPOLYLINE", Version::kR14},
    {"MTEXT", Version::kR13},   {"POINT", Version::kR12},  {"POLYLINE", Version::kR12},
    {"RAY", Version::kR13},     {"SEQEND", Version::kR12}, {"SOLID", Version::kR12},
    {"SPLINE", Version::kR13},  {"TEXT", Version::kR12},   {"TOLERANCE", Version::kR13},
    {"TRACE", Version::kR12},   {"VERTEX", Version::kR12}, {"XLINE", Version::kR13},
};

// Groups of a type's own that came with a version. Those of every entity: commonSince().
struct GroupVersion {
  std::string_view type;
  int first, last;
  Version since;
};

constexpr GroupVersion kGroups[] = {
    {"ATTDEF", 280, 280, Version::kR2010},    {"ATTRIB", 280, 280, Version::kR2010},
    {"DIMENSION", 41, 42, Version::kR2000},   {"DIMENSION", 71, 75, Version::kR2000},
    {"DIMENSION", 280, 280, Version::kR2010}, {"HATCH", 450, 479, Version::kR2004},
    {"LWPOLYLINE", 91, 91, Version::kR2010},  {"MTEXT", 44, 44, Version::kR2000},
    {"MTEXT", 45, 45, Version::kR2004},       {"MTEXT", 63, 63, Version::kR2004},
    {"MTEXT", 73, 73, Version::kR2000},       {"MTEXT", 90, 90, Version::kR2004},
    {"MTEXT", 421, 449, Version::kR2004},     {"MTEXT", 75, 79, Version::kR2007},
    {"MTEXT", 48, 49, Version::kR2007},       {"VERTEX", 91, 91, Version::kR2010},
};

// --- Which subclass marker each group of a plain entity stands under, for records of files that have none
// ---

struct SubclassPart {
  std::string_view marker;
  std::vector<int> codes;  // of its groups; empty: all that no other part names
};

using Parts = std::vector<SubclassPart>;

struct PlainType {
  std::string_view type, marker;
};

constexpr PlainType kPlainTypes[] = {
    {"LINE", "AcDbLine"},   {"POINT", "AcDbPoint"}, {"CIRCLE", "AcDbCircle"},        {"SOLID", "AcDbTrace"},
    {"TRACE", "AcDbTrace"}, {"3DFACE", "AcDbFace"}, {"INSERT", "AcDbBlockReference"}};

Parts polylineParts(std::int64_t flags) {
  if ((flags & 8) != 0) return {{"AcDb3dPolyline", {}}};
  if ((flags & 16) != 0) return {{"AcDbPolygonMesh", {}}};
  if ((flags & 64) != 0) return {{"AcDbPolyFaceMesh", {}}};
  return {{"AcDb2dPolyline", {}}};
}

Parts vertexParts(std::int64_t flags) {
  if ((flags & 128) != 0 && (flags & 64) == 0) return {{"AcDbFaceRecord", {}}};
  // The first part is empty on purpose: no group has the code 0 here.
  if ((flags & 128) != 0) return {{"AcDbVertex", {0}}, {"AcDbPolyFaceMeshVertex", {}}};
  if ((flags & 64) != 0) return {{"AcDbVertex", {0}}, {"AcDbPolygonMeshVertex", {}}};
  if ((flags & 32) != 0) return {{"AcDbVertex", {0}}, {"AcDb3dPolylineVertex", {}}};
  return {{"AcDbVertex", {0}}, {"AcDb2dVertex", {}}};
}

Parts dimensionParts(std::int64_t flags) {
  const SubclassPart base{"AcDbDimension",
                          {2, 10, 20, 30, 11, 21, 31, 12, 22, 32, 70, 1, 51, 53, 3, 210, 220, 230}};
  switch (flags & 7) {
    case 0:
      return {
          base, {"AcDbAlignedDimension", {13, 23, 33, 14, 24, 34, 40, 50, 52}}, {"AcDbRotatedDimension", {}}};
    case 1:
      return {base, {"AcDbAlignedDimension", {}}};
    case 2:
      return {base, {"AcDb2LineAngularDimension", {}}};
    case 3:
      return {base, {"AcDbDiametricDimension", {}}};
    case 4:
      return {base, {"AcDbRadialDimension", {}}};
    case 5:
      return {base, {"AcDb3PointAngularDimension", {}}};
    default:
      return {base, {"AcDbOrdinateDimension", {}}};
  }
}

// `flags` is the value of group 70. Empty for SEQEND and for types that have no parts of their own.
Parts subclassParts(std::string_view type, std::int64_t flags) {
  for (const PlainType& plain : kPlainTypes)
    if (plain.type == type) return {{plain.marker, {}}};
  if (type == "ARC") return {{"AcDbCircle", {39, 10, 20, 30, 40, 210, 220, 230}}, {"AcDbArc", {}}};
  if (type == "TEXT") return {{"AcDbText", {}}, {"AcDbText", {73}}};
  if (type == "ATTRIB") return {{"AcDbText", {}}, {"AcDbAttribute", {2, 70, 73, 74}}};
  if (type == "ATTDEF") return {{"AcDbText", {}}, {"AcDbAttributeDefinition", {3, 2, 70, 73, 74}}};
  if (type == "POLYLINE") return polylineParts(flags);
  if (type == "VERTEX") return vertexParts(flags);
  if (type == "DIMENSION") return dimensionParts(flags);
  return {};
}

}  // namespace

std::optional<Version> firstVersionOf(std::string_view type) {
  for (const TypeVersion& row : kTypes)
    if (row.type == type) return row.first;
  return std::nullopt;
}

// The plain groups of a record without its head, application groups and what follows an embedded object.
struct RecordTranslator::Walk {
  std::string_view type;
  bool markers = false;  // the source has subclass markers
  CommonGroups common;
  bool looseAnnotation = false;  // a leader whose annotation is not copied
  std::vector<const Group*> groups;
  std::size_t at = 0;

  Walk(const RecordGroups& record, const DxfStorage& from, const DxfStorage& to)
      : type(trimmed(record.all().front().value)), markers(from.facts().version >= Version::kR13) {
    const std::vector<Group>& all = record.all();
    bool inApp = false, marked = false;
    for (std::size_t i = 1; i < record.plainCount(); ++i) {
      const Group& group = all[i];
      if (group.code == 101 && to.facts().version < Version::kR2018) break;
      if (group.code == 102) inApp = trimmed(group.value).starts_with("{");
      if (inApp || group.code == 102) continue;
      const bool head = group.code == 5 || group.code == 330 ||
                        (group.code == 100 && equalNoCase(trimmed(group.value), kEntityMarker));
      if (!marked && group.code == 100) marked = !equalNoCase(trimmed(group.value), kEntityMarker);
      if (!marked && head) continue;
      groups.push_back(&group);
    }
  }
};

bool RecordTranslator::keeps(const Walk& walk, const Group& group) const {
  const bool common =
      walk.markers ? walk.common.atHome() || walk.common.strayed(group.code) : isCommonCode(group.code);
  const Version version = to_.facts().version;
  if (common) return !staysBehind(group.code) && version >= commonSince(group.code);
  return std::ranges::none_of(kGroups, [&](const GroupVersion& row) {
    return row.type == walk.type && group.code >= row.first && group.code <= row.last && version < row.since;
  });
}

bool RecordTranslator::copyHandle(const Group& group, RecordBuilder& builder) const {
  const std::optional<Handle> handle = handleValue(group);
  const auto found = handle ? replacements_.handles.find(*handle) : replacements_.handles.end();
  if (found != replacements_.handles.end()) builder.handle(group.code, found->second);
  return found != replacements_.handles.end();
}

bool RecordTranslator::copyGroup(const Walk& walk, const Group& group, RecordBuilder& builder) const {
  if (valueType(group.code) == ValueType::kHandle) {
    copyHandle(group, builder);  // without a counterpart here the reference is left out
    return true;
  }
  if (group.code == 2 && (walk.type == "INSERT" || walk.type == "DIMENSION")) {
    const std::wstring name = from_.decode(group.value);
    const auto found = replacements_.blockNames.find(base::upper(name));
    if (found != replacements_.blockNames.end()) {
      builder.text(2, found->second);
      return true;
    }
    if (walk.type == "DIMENSION") return true;  // its drawn block was missing already
  }
  if (walk.looseAnnotation && group.code == 73) {
    builder.integer(73, 3);  // created without annotation
    return true;
  }
  // Copied hatches do not follow the boundary objects of their old drawing.
  if (walk.type == "HATCH" && !walk.common.atHome()) {
    const bool sources =
        group.code == 97 && walk.at + 1 < walk.groups.size() && walk.groups[walk.at + 1]->code == 330;
    if (group.code == 71 || sources) {
      builder.integer(group.code, 0);
      return true;
    }
    if (group.code == 330) return true;
  }
  return builder.copy(group, from_);
}

// Group by group in the source's order.
bool RecordTranslator::copyOwn(Walk& walk, RecordBuilder& builder) const {
  for (walk.at = 0; walk.at < walk.groups.size(); ++walk.at) {
    const Group& group = *walk.groups[walk.at];
    if (group.code == 100) {
      walk.common.marker(trimmed(group.value));
      builder.subclass(trimmed(group.value));
    } else if (keeps(walk, group) && !copyGroup(walk, group, builder)) {
      return false;
    }
  }
  return true;
}

// From a file without subclass markers: the common groups, then each part behind its marker.
bool RecordTranslator::copyMarked(Walk& walk, RecordBuilder& builder) const {
  std::int64_t flags = 0;
  for (const Group* group : walk.groups)
    if (group->code == 70) flags = integerValue(*group, from_.dialect()).value_or(0);
  const Parts parts = subclassParts(walk.type, flags);
  const auto partOf = [&](int code) -> const SubclassPart* {
    if (isCommonCode(code)) return nullptr;
    const SubclassPart* rest = nullptr;
    for (const SubclassPart& part : parts) {
      if (part.codes.empty()) rest = &part;
      if (std::find(part.codes.begin(), part.codes.end(), code) != part.codes.end()) return &part;
    }
    return rest;
  };
  const auto copyPart = [&](const SubclassPart* part) {
    for (walk.at = 0; walk.at < walk.groups.size(); ++walk.at) {
      const Group& group = *walk.groups[walk.at];
      if (partOf(group.code) == part && keeps(walk, group) && !copyGroup(walk, group, builder)) return false;
    }
    return true;
  };
  if (!copyPart(nullptr)) return false;
  for (const SubclassPart& part : parts) {
    builder.subclass(part.marker);
    if (!copyPart(&part)) return false;
  }
  return true;
}

bool RecordTranslator::copyExtended(const RecordGroups& groups, RecordBuilder& builder) const {
  const DimOverrides overrides = readDimOverrides(groups, from_);
  const std::uint32_t begin = overrides.listAlone ? overrides.appBegin : overrides.listBegin;
  const std::uint32_t end = overrides.listAlone ? overrides.appEnd : overrides.listEnd;
  for (std::size_t i = groups.plainCount(); i < groups.all().size(); ++i) {
    const Group& group = groups.all()[i];
    if (group.begin >= begin && group.begin < end) continue;
    if (group.code == 1005) {
      if (!copyHandle(group, builder)) builder.handle(1005, 0);
    } else if (!builder.copy(group, from_)) {
      return false;
    }
  }
  return true;
}

base::Status RecordTranslator::translate(const RecordGroups& groups, RecordBuilder& builder) const {
  Walk walk(groups, from_, to_);
  if (walk.type == "LEADER") {
    for (const Group* group : walk.groups) {
      const std::optional<Handle> handle = group->code == 340 ? handleValue(*group) : std::nullopt;
      if (handle && !replacements_.handles.contains(*handle)) walk.looseAnnotation = true;
    }
  }
  const bool addMarkers = !walk.markers && to_.facts().version >= Version::kR13;
  const bool copied = addMarkers ? copyMarked(walk, builder) : copyOwn(walk, builder);
  if (copied && copyExtended(groups, builder)) return {};
  return failure(std::wstring(walk.type.begin(), walk.type.end()), L"A value of the entity is broken");
}

}  // namespace cad::dxf
