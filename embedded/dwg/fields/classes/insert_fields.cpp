// References to blocks, and the entities that begin and end sequences.

#include <bit>

#include "embedded/dwg/fields/classes/classes.h"

namespace cad::dwg {
namespace {

constexpr std::int64_t kSeparate = 0, kOnlyXIsOne = 1, kUniform = 2, kAllOne = 3;

std::int64_t scaleForm(const Point& scale) {
  if (scale.x == 1 && scale.y == 1 && scale.z == 1) return kAllOne;
  if (scale.x == scale.y && scale.x == scale.z) return kUniform;
  return scale.x == 1 ? kOnlyXIsOne : kSeparate;
}

void scale(FieldVisitor& v) {
  if (v.before(kR2000)) {
    v.point(BitType::k3BD, "scale", {1, 1, 1});
    return;
  }
  std::int64_t form = std::get<std::int64_t>(v.wanted("scale form", kAllOne));
  if (v.changes("scale")) form = scaleForm(std::get<Point>(v.wanted("scale", Point{1, 1, 1})));
  form = v.derived(BitType::kBB, "scale form", form);
  double x = 1;
  if (form == kSeparate || form == kUniform) {
    x = v.real(BitType::kRD, "scale", 1, 0, Part::kX);
  } else {
    v.implied("scale", Part::kX, 1.0);
  }
  for (const Part part : {Part::kY, Part::kZ}) {
    if (form == kSeparate || form == kOnlyXIsOne) {
      v.real(BitType::kDD, "scale", x, 0, part, x);
    } else {
      v.implied("scale", part, x);
    }
  }
}

}  // namespace

void describeInsert(FieldVisitor& v) {
  v.point3bd("insertion point");
  scale(v);
  v.bd("rotation");
  v.extrusion(BitType::k3BD);
  const bool attributes = v.b("has attributes");
  const std::uint32_t count = attributes && v.since(kR2004)
                                  ? v.count(BitType::kBL, "attribute count", kLeastHandle, Stream::kHandles)
                                  : 0;
  if (v.kind() == ObjectKind::kMinsert) {
    v.bs("columns", 1), v.bs("rows", 1);
    v.bd("column spacing"), v.bd("row spacing");
  }
  v.handle("block");
  if (!attributes) return;
  if (v.before(kR2004)) v.handle("first attribute", 4), v.handle("last attribute", 4);
  for (std::uint32_t i = 0; i < count; ++i) v.handle("attribute", 3, i);
  v.handle("sequence end", 3);
}

}  // namespace cad::dwg
