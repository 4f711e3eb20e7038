// The tables' controls and records.
//
// Controls: "entry count", "entry" [i]; BLOCK "model space", "paper space"; LTYPE "by block", "by layer".
// Records: "name", "xref".  LAYER: until R14 "frozen", "off", "frozen in new", "locked"; since R2000 "flags"
// (1 frozen, 2 off, 4 frozen in new viewports, 8 locked, 16 plotted, 32 and up the lineweight); "color",
// "plot style", "material", "linetype".  LTYPE: "description", "pattern length", "alignment", "dash count",
// "dash length", "shape number", "dash x", "dash y", "dash scale", "dash rotation", "dash flags" (2 text,
// 4 shape, 1 absolute), "dash style" [i], "texts" (bytes; its length is fixed).  STYLE: "shape file",
// "vertical", "height", "width factor", "oblique angle", "generation", "last height", "font", "big font".
// BLOCK_HEADER: "anonymous", "has attributes", "external", "overlaid", "loaded", "base point", "path",
// "insert marks", "description", "preview", "units", "explodable", "scaling", "block", "first entity",
// "last entity", "entity count", "entity" [i], "end of block", "insert" [i], "layout".

#include "embedded/dwg/fields/classes/classes.h"

namespace cad::dwg {
namespace {

constexpr std::int64_t kTextMark = 2;

void layer(FieldVisitor& v) {
  if (v.before(kR2000)) {
    v.b("frozen"), v.b("off"), v.b("frozen in new"), v.b("locked");
  } else {
    constexpr int kPlotted = 0x10, kDefaultLineWeight = 31 << 5;
    v.bs("flags", kPlotted | kDefaultLineWeight);
  }
  v.color("color");
  if (v.since(kR2000)) v.handle("plot style");
  if (v.since(kR2007)) v.handle("material");
  v.handle("linetype");
  if (v.since(kR2013)) v.handle("visual style");
}

void linetype(FieldVisitor& v) {
  constexpr int kAligned = 'A';
  v.text("description");
  v.bd("pattern length");
  v.rc("alignment", kAligned);
  constexpr std::uint64_t kLeastDash = 138;  // bits
  const std::uint32_t dashes = v.count(BitType::kRC, "dash count", kLeastDash);
  bool texts = v.before(kR2007);
  for (std::uint32_t i = 0; i < dashes; ++i) {
    v.bd("dash length", 0, i);
    v.bs("shape number", 0, i);
    v.rd("dash x", 0, i), v.rd("dash y", 0, i);
    v.bd("dash scale", 1, i), v.bd("dash rotation", 0, i);
    if ((v.bs("dash flags", 0, i) & kTextMark) != 0) texts = true;
    v.handle("dash style", 5, i);
  }
  if (texts) v.bytes("texts", v.before(kR2007) ? 256 : 512);
}

void style(FieldVisitor& v) {
  v.b("shape file"), v.b("vertical");
  v.bd("height"), v.bd("width factor", 1), v.bd("oblique angle");
  v.rc("generation");
  v.bd("last height", 1);
  v.text("font"), v.text("big font");
}

// A byte for each reference to the block, and a zero.
std::uint32_t insertMarks(FieldVisitor& v) {
  std::uint32_t count = 0;
  while (v.rc("insert mark", 0, count) != 0 && !v.failed()) ++count;
  return count;
}

}  // namespace

void describeNamed(FieldVisitor& v) {
  v.text("name");
  if (v.before(kR2007)) v.b("referenced", true);
  v.bs("xref index");
  if (v.before(kR2007)) v.b("xref dependent");
  v.handle("xref");
}

void describeTableRecord(FieldVisitor& v) {
  describeNamed(v);
  switch (v.kind()) {
    case ObjectKind::kLayer:
      return layer(v);
    case ObjectKind::kLinetype:
      return linetype(v);
    case ObjectKind::kStyle:
      return style(v);
    default:
      v.rc("unknown byte");  // APPID
  }
}

void describeBlockHeader(FieldVisitor& v) {
  describeNamed(v);
  v.b("anonymous"), v.b("has attributes");
  const bool external = v.b("external"), overlaid = v.b("overlaid");
  if (v.since(kR2000)) v.b("loaded");
  const std::uint32_t owned = v.since(kR2004) && !external && !overlaid
                                  ? v.count(BitType::kBL, "entity count", kLeastHandle, Stream::kHandles)
                                  : 0;
  v.point3bd("base point");
  v.text("path");
  std::uint32_t inserts = 0;
  if (v.since(kR2000)) {
    inserts = insertMarks(v);
    v.text("description");
    const std::int64_t preview = v.bl("preview size");
    if (preview < 0) v.fail();
    v.bytes("preview", static_cast<std::uint64_t>(preview));
  }
  if (v.since(kR2007)) v.bs("units"), v.b("explodable", true), v.rc("scaling");
  v.handle("block", 3);
  if (v.before(kR2004) && !external && !overlaid) v.handle("first entity", 4), v.handle("last entity", 4);
  for (std::uint32_t i = 0; i < owned; ++i) v.handle("entity", 3, i);
  v.handle("end of block", 3);
  for (std::uint32_t i = 0; i < inserts; ++i) v.handle("insert", 4, i);
  if (v.since(kR2000)) v.handle("layout");
}

void describeControl(FieldVisitor& v) {
  const auto isOf = [&v](ObjectKind kind) { return v.kind() == kind; };
  const std::uint32_t entries = v.count(BitType::kBL, "entry count", kLeastHandle, Stream::kHandles);
  std::uint32_t more = 0;
  if (isOf(ObjectKind::kDimStyleControl) && v.since(kR2000))
    more = v.count(BitType::kRC, "more count", kLeastHandle, Stream::kHandles);
  for (std::uint32_t i = 0; i < entries; ++i) v.handle("entry", 2, i);
  if (isOf(ObjectKind::kBlockControl)) v.handle("model space", 3), v.handle("paper space", 3);
  if (isOf(ObjectKind::kLinetypeControl)) v.handle("by block", 3), v.handle("by layer", 3);
  for (std::uint32_t i = 0; i < more; ++i) v.handle("more", 5, i);
}

}  // namespace cad::dwg
