#include "embedded/dwg/fields/object_types.h"

#include <algorithm>
#include <array>

#include "embedded/dwg/fields/text_range.h"

namespace cad::dwg {
namespace {

using enum ObjectKind;

constexpr std::uint16_t kFirstClass = 500, kEntityClass = 0x1F2;

struct FixedType {
  std::uint16_t number;
  ObjectKind kind;
  std::string_view name;
  bool isEntity;
};

constexpr bool kEntity = true, kObject = false;

constexpr FixedType kFixedTypes[] = {
    {0x01, kText, "TEXT", kEntity},
    {0x02, kAttrib, "ATTRIB", kEntity},
    {0x03, kAttdef, "ATTDEF", kEntity},
    {0x04, kBlock, "BLOCK", kEntity},
    {0x05, kEndblk, "ENDBLK", kEntity},
    {0x06, kSeqend, "SEQEND", kEntity},
    {0x07, kInsert, "INSERT", kEntity},
    {0x08, kMinsert, "INSERT", kEntity},
    {0x0A, kVertex2d, "VERTEX", kEntity},
    {0x0B, kVertex3d, "VERTEX", kEntity},
    {0x0C, kVertexMesh, "VERTEX", kEntity},
    {0x0D, kVertexPface, "VERTEX", kEntity},
    {0x0E, kVertexPfaceFace, "VERTEX", kEntity},
    {0x0F, kPolyline2d, "POLYLINE", kEntity},
    {0x10, kPolyline3d, "POLYLINE", kEntity},
    {0x11, kArc, "ARC", kEntity},
    {0x12, kCircle, "CIRCLE", kEntity},
    {0x13, kLine, "LINE", kEntity},
    {0x14, kDimensionOrdinate, "DIMENSION", kEntity},
    {0x15, kDimensionLinear, "DIMENSION", kEntity},
    {0x16, kDimensionAligned, "DIMENSION", kEntity},
    {0x17, kDimensionAngular3Point, "DIMENSION", kEntity},
    {0x18, kDimensionAngular2Line, "DIMENSION", kEntity},
    {0x19, kDimensionRadius, "DIMENSION", kEntity},
    {0x1A, kDimensionDiameter, "DIMENSION", kEntity},
    {0x1B, kPoint, "POINT", kEntity},
    {0x1C, k3dFace, "3DFACE", kEntity},
    {0x1D, kPolylinePface, "POLYLINE", kEntity},
    {0x1E, kPolylineMesh, "POLYLINE", kEntity},
    {0x1F, kSolid, "SOLID", kEntity},
    {0x20, kTrace, "TRACE", kEntity},
    {0x21, kOther, "SHAPE", kEntity},
    {0x22, kViewport, "VIEWPORT", kEntity},
    {0x23, kEllipse, "ELLIPSE", kEntity},
    {0x24, kSpline, "SPLINE", kEntity},
    {0x25, kOther, "REGION", kEntity},
    {0x26, kOther, "3DSOLID", kEntity},
    {0x27, kOther, "BODY", kEntity},
    {0x28, kOther, "RAY", kEntity},
    {0x29, kOther, "XLINE", kEntity},
    {0x2A, kDictionary, "DICTIONARY", kObject},
    {0x2B, kOther, "OLEFRAME", kEntity},
    {0x2C, kMtext, "MTEXT", kEntity},
    {0x2D, kLeader, "LEADER", kEntity},
    {0x2E, kTolerance, "TOLERANCE", kEntity},
    {0x2F, kOther, "MLINE", kEntity},
    {0x30, kBlockControl, "BLOCK_RECORD", kObject},
    {0x31, kBlockHeader, "BLOCK_RECORD", kObject},
    {0x32, kLayerControl, "LAYER", kObject},
    {0x33, kLayer, "LAYER", kObject},
    {0x34, kStyleControl, "STYLE", kObject},
    {0x35, kStyle, "STYLE", kObject},
    {0x38, kLinetypeControl, "LTYPE", kObject},
    {0x39, kLinetype, "LTYPE", kObject},
    {0x3C, kViewControl, "VIEW", kObject},
    {0x3D, kOther, "VIEW", kObject},
    {0x3E, kUcsControl, "UCS", kObject},
    {0x3F, kOther, "UCS", kObject},
    {0x40, kVportControl, "VPORT", kObject},
    {0x41, kOther, "VPORT", kObject},
    {0x42, kAppIdControl, "APPID", kObject},
    {0x43, kAppId, "APPID", kObject},
    {0x44, kDimStyleControl, "DIMSTYLE", kObject},
    {0x45, kDimStyle, "DIMSTYLE", kObject},
    {0x46, kViewportEntityControl, "VX", kObject},
    {0x47, kOther, "VX", kObject},
    {0x48, kOther, "GROUP", kObject},
    {0x49, kOther, "MLINESTYLE", kObject},
    {0x4A, kOther, "OLE2FRAME", kEntity},
    {0x4C, kOther, "LONG_TRANSACTION", kObject},
    {0x4D, kLwpolyline, "LWPOLYLINE", kEntity},
    {0x4E, kHatch, "HATCH", kEntity},
    {0x4F, kOther, "XRECORD", kObject},
    {0x50, kOther, "ACDBPLACEHOLDER", kObject},
    {0x51, kOther, "VBA_PROJECT", kObject},
    {0x52, kLayout, "LAYOUT", kObject},
    {0x1F2, kOther, "ACAD_PROXY_ENTITY", kEntity},
    {0x1F3, kOther, "ACAD_PROXY_OBJECT", kObject},
};

// The types of the numbers below 500.
constexpr auto kTypesByNumber = [] {
  std::array<ObjectType, kFirstClass> types{};
  for (std::uint16_t number = 0; number < kFirstClass; ++number) types[number].number = number;
  for (const FixedType& fixed : kFixedTypes)
    types[fixed.number] = {fixed.number, fixed.kind, fixed.name, fixed.isEntity};
  return types;
}();

struct NamedKind {
  std::string_view dxfName;
  ObjectKind kind;
};

// Those that files may have as classes.
constexpr NamedKind kNamedKinds[] = {
    {"LWPOLYLINE", kLwpolyline},
    {"HATCH", kHatch},
    {"LAYOUT", kLayout},
    {"ARC_DIMENSION", kDimensionArc},
    {"LARGE_RADIAL_DIMENSION", kDimensionJogged},
    {"DBCOLOR", kDbColor},
    {"ACAD_TABLE", kTable},
};

// The parts of a class are read from one stream, or from two.
struct ClassReader {
  BitReader data, texts;
  bool wide;

  std::string name() {
    std::string ascii;
    if (wide) {
      for (const char16_t c : texts.tu()) ascii += c < 0x80 ? static_cast<char>(c) : '?';
    } else {
      for (const char c : data.tv()) ascii += static_cast<unsigned char>(c) < 0x80 ? c : '?';
    }
    while (!ascii.empty() && ascii.back() == '\0') ascii.pop_back();  // some programs write the end along
    return ascii;
  }
};

FileClass readClass(ClassReader& from, Version version) {
  FileClass result;
  result.number = static_cast<std::uint16_t>(from.data.bs());
  from.data.bs();  // what a proxy of it allows
  from.name();     // the application
  from.name();     // the class in C++
  result.dxfName = from.name();
  from.data.b();  // whether it was a proxy
  result.isEntity = from.data.bs() == kEntityClass;
  if (version >= Version::kR2004) {  // how many objects, and the version that the class came with
    for (int i = 0; i < 5; ++i) from.data.bl();
  }
  return result;
}

}  // namespace

base::Result<std::vector<FileClass>> readClasses(std::string_view section, Version version) {
  ClassReader from{BitReader(section), BitReader(section, 0, 0), hasWideTexts(version)};
  if (from.wide) {
    const std::uint32_t size = from.data.rl();
    const TextRange texts = textRange(section, size);
    from.data = BitReader(section, 32, texts.dataEnd);
    from.texts = BitReader(section, texts.begin, texts.end);
  }
  std::uint16_t last = 0;
  if (version >= Version::kR2004) {
    last = static_cast<std::uint16_t>(from.data.bs());
    from.data.rc(), from.data.rc(), from.data.b();
  }
  constexpr std::uint64_t kLeast = 18;  // bits of a class's number
  std::vector<FileClass> classes;
  while (from.data.left() >= kLeast && (version < Version::kR2004 || classes.size() + kFirstClass <= last)) {
    classes.push_back(readClass(from, version));
    if (!from.data.failed() && !from.texts.failed() && classes.back().number >= kFirstClass) continue;
    return base::Failure{{}, L"The class section is damaged at class " + std::to_wstring(classes.size())};
  }
  if (from.data.failed()) return base::Failure{{}, L"The class section is damaged at its beginning"};
  return classes;
}

ObjectType typeOf(std::uint16_t number, const std::vector<FileClass>& classes) {
  if (number < kFirstClass) return kTypesByNumber[number];
  ObjectType type{.number = number, .kind = kOther, .name = {}, .isEntity = false};
  const std::size_t usual = number - kFirstClass;  // classes stand in the order of their numbers
  const FileClass* found = nullptr;
  if (usual < classes.size() && classes[usual].number == number) {
    found = &classes[usual];
  } else if (const auto at = std::ranges::find(classes, number, &FileClass::number); at != classes.end()) {
    found = &*at;
  }
  if (found == nullptr) return type;
  type.name = found->dxfName, type.isEntity = found->isEntity;
  for (const NamedKind& named : kNamedKinds)
    if (named.dxfName == type.name) type.kind = named.kind;
  return type;
}

std::optional<std::uint16_t> numberOf(ObjectKind kind, Version version,
                                      const std::vector<FileClass>& classes) {
  const auto* const fixed = std::ranges::find(kFixedTypes, kind, &FixedType::kind);
  if (kind != kOther && fixed != std::end(kFixedTypes) && version >= Version::kR2004) return fixed->number;
  for (const NamedKind& named : kNamedKinds) {
    if (named.kind != kind) continue;
    const auto found = std::ranges::find(classes, named.dxfName, &FileClass::dxfName);
    if (found != classes.end()) return found->number;
    if (version < Version::kR2000) return std::nullopt;  // there it was a class, always
  }
  if (kind == kOther || fixed == std::end(kFixedTypes)) return std::nullopt;
  return fixed->number;
}

}  // namespace cad::dwg
