#pragma once
// The classes of objects, and how a file tells them.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "embedded/dwg/fields/field.h"

namespace cad::dwg {

// The classes whose fields are described.
enum class ObjectKind : std::uint8_t {
  kOther,
  kText,
  kAttrib,
  kAttdef,
  kBlock,
  kEndblk,
  kSeqend,
  kInsert,
  kMinsert,
  kVertex2d,
  kVertex3d,
  kVertexMesh,
  kVertexPface,
  kVertexPfaceFace,
  kPolyline2d,
  kPolyline3d,
  kPolylineMesh,
  kPolylinePface,
  kArc,
  kCircle,
  kLine,
  kPoint,
  kEllipse,
  kSpline,
  kSolid,
  kTrace,
  k3dFace,
  kLwpolyline,
  kMtext,
  kLeader,
  kTolerance,
  kHatch,
  kViewport,
  kDimensionOrdinate,
  kDimensionLinear,
  kDimensionAligned,
  kDimensionAngular3Point,
  kDimensionAngular2Line,
  kDimensionRadius,
  kDimensionDiameter,
  kDimensionArc,
  kDimensionJogged,  // of a large radius
  kBlockControl,
  kBlockHeader,
  kLayerControl,
  kLayer,
  kStyleControl,
  kStyle,
  kLinetypeControl,
  kLinetype,
  kViewControl,
  kUcsControl,
  kVportControl,
  kAppIdControl,
  kAppId,
  kDimStyleControl,
  kDimStyle,
  kViewportEntityControl,
  kDictionary,
  kLayout,
  kDbColor,
  kTable,  // described as far as it is a reference to the block that shows it
};
inline constexpr ObjectKind kLastWhole = ObjectKind::kDbColor;  // up to it they are described whole

// A class of the class section.
struct FileClass {
  std::uint16_t number = 0;  // 500 and more
  std::string dxfName;       // ASCII; "?" for what is not
  bool isEntity = false;
};

// The classes of a file by their number. `section`: DwgFile::classes().
// R2004 and later files hold a count before; texts are a stream of their own from R2007 on.
base::Result<std::vector<FileClass>> readClasses(std::string_view section, Version version);

// What an object is. Types below 500 tell it by their number, others by their class.
struct ObjectType {
  std::uint16_t number = 0;
  ObjectKind kind = ObjectKind::kOther;
  // As DXF spells the type of an entity or object, or its table ("LAYER"); "" for a number that nothing is
  // known of. INSERT also for those of several rows, DIMENSION, POLYLINE and VERTEX for every kind of it.
  // Lasts as long as the classes that it came from.
  std::string_view name;
  bool isEntity = false;
};

ObjectType typeOf(std::uint16_t number, const std::vector<FileClass>& classes);
// The number by which a file has objects of the kind; nullopt: the file's classes have none of it.
std::optional<std::uint16_t> numberOf(ObjectKind kind, Version version,
                                      const std::vector<FileClass>& classes);

}  // namespace cad::dwg
