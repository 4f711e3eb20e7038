// TEXT, ATTRIB, ATTDEF and MTEXT.

#include "embedded/dwg/fields/classes/classes.h"

namespace cad::dwg {
namespace {

void lineBefore2000(FieldVisitor& v) {
  v.bd("elevation");
  v.point2rd("insertion point");
  v.point2rd("alignment point");
  v.extrusion(BitType::k3BD);
  v.bd("thickness");
  v.bd("oblique angle");
  v.bd("rotation");
  v.bd("height", 1);
  v.bd("width factor", 1);
  v.text("text");
  v.bs("generation");
  v.bs("horizontal alignment");
  v.bs("vertical alignment");
}

void lineSince2000(FieldVisitor& v) {
  const std::int64_t absent = v.flags(BitType::kRC, "data flags", 0xFF, false,
                                      {{0x01, "elevation", 0.0},
                                       {0x02, "alignment point", Point{}},
                                       {0x04, "oblique angle", 0.0},
                                       {0x08, "rotation", 0.0},
                                       {0x10, "width factor", 1.0},
                                       {0x20, "generation", std::int64_t{0}},
                                       {0x40, "horizontal alignment", std::int64_t{0}},
                                       {0x80, "vertical alignment", std::int64_t{0}}});
  const auto has = [absent](std::int64_t flag) { return (absent & flag) == 0; };
  if (has(0x01)) v.rd("elevation");
  const Point at = v.point2rd("insertion point");
  if (has(0x02)) v.point(BitType::k2DD, "alignment point", {}, 0, at);
  v.extrusion();
  v.bt("thickness");
  if (has(0x04)) v.rd("oblique angle");
  if (has(0x08)) v.rd("rotation");
  v.rd("height", 1);
  if (has(0x10)) v.rd("width factor", 1);
  v.text("text");
  if (has(0x20)) v.bs("generation");
  if (has(0x40)) v.bs("horizontal alignment");
  if (has(0x80)) v.bs("vertical alignment");
}

// The text of several lines that attributes may have since R2018, an entity of its own within them.
void attributeMtext(FieldVisitor& v);

void attribute(FieldVisitor& v) {
  if (v.since(kR2010)) v.rc("class version");
  const std::int64_t type = v.since(kR2018) ? v.rc("attribute type", 1) : 1;
  if (type > 1) attributeMtext(v);
  v.text("tag");
  v.bs("field length");
  v.rc("flags");
  if (v.since(kR2007)) v.b("lock position");
  if (v.kind() == ObjectKind::kAttdef) {
    if (v.since(kR2010)) v.rc("definition class version");
    v.text("prompt");
  }
}

// What the columns since R2018 tell once more.
struct Box {
  Point at, xAxis{1, 0, 0};
  double width = 0, height = 0, extentsWidth = 0, extentsHeight = 0;
  std::int64_t attachment = 1;
};

void columns(FieldVisitor& v, const Box& box) {
  v.bs("columns version", 4);
  v.b("columns default", true);
  v.handle("columns application");
  v.again(BitType::kBL, "columns attachment", "attachment", box.attachment);
  v.again(BitType::k3BD, "columns x axis", "x axis", box.xAxis);
  v.again(BitType::k3BD, "columns insertion point", "insertion point", box.at);
  v.again(BitType::kBD, "columns reference width", "reference width", box.width);
  v.again(BitType::kBD, "columns reference height", "reference height", box.height);
  v.again(BitType::kBD, "columns extents width", "extents width", box.extentsWidth);
  v.again(BitType::kBD, "columns extents height", "extents height", box.extentsHeight);
  const std::int64_t type = v.bs("columns type");
  if (type == 0) return;
  constexpr std::uint64_t kLeastReal = 2;
  const std::int64_t count = v.bl("column count");
  v.bd("column width");
  v.bd("column gutter");
  const bool automatic = v.b("column auto height");
  v.b("columns reversed");
  if (automatic || type != 2) return;
  if (count < 0 || static_cast<std::uint64_t>(count) > v.left(Stream::kData) / kLeastReal) return v.fail();
  for (std::int64_t i = 0; i < count; ++i) v.bd("column height", 0, static_cast<std::uint32_t>(i));
}

void mtext(FieldVisitor& v) {
  Box box;
  box.at = v.point3bd("insertion point");
  v.extrusion(BitType::k3BD);
  box.xAxis = v.point(BitType::k3BD, "x axis", {1, 0, 0});
  box.width = v.bd("reference width");
  if (v.since(kR2007)) box.height = v.bd("reference height");
  v.bd("height", 1);
  box.attachment = v.bs("attachment", 1);
  v.bs("drawing direction", 5);
  box.extentsHeight = v.bd("extents height");
  box.extentsWidth = v.bd("extents width");
  v.text("text");
  v.handle("style");
  if (v.before(kR2000)) return;
  v.bs("line spacing style", 1);
  v.bd("line spacing factor", 1);
  v.b("unknown bit");
  if (v.before(kR2004)) return;
  const std::int64_t background = v.bl("background flags");
  if ((background & (v.since(kR2018) ? 0x11 : 0x01)) != 0) {
    v.bd("background scale", 1.5);
    v.color("background color");
    v.bl("background transparency");
  }
  if (v.since(kR2018) && v.b("not annotative", true)) columns(v, box);
}

void attributeMtext(FieldVisitor& v) {
  v.enter();
  describeEntity(v);
  mtext(v);
  v.leave();
  const std::int64_t size = v.bs("annotative size");
  if (size <= 0) return;
  v.bytes("annotative data", static_cast<std::uint64_t>(size));
  v.handle("annotative application");
  v.bs("annotative number");
}

}  // namespace

void describeTextLine(FieldVisitor& v) {
  v.before(kR2000) ? lineBefore2000(v) : lineSince2000(v);
  if (v.kind() != ObjectKind::kText) attribute(v);
  v.handle("style");
}

void describeMtext(FieldVisitor& v) { mtext(v); }

}  // namespace cad::dwg
