// DICTIONARY, LAYOUT and VIEWPORT.
//
// DICTIONARY: "item count", "cloning", "hard owner", "item name" [i], "item" [i].
// LAYOUT: the plot settings by names like theirs; "name", "tab order", "layout flags", "insertion base",
// "limits minimum", "limits maximum", "extents minimum", "extents maximum", "viewport count",
// "block", "active viewport", "viewport" [i].
// VIEWPORT: "center", "width", "height", "view target", "view direction", "view twist", "view height",
// "view center", "status flags", "frozen layer count", "frozen layer" [i], "boundary".

#include "embedded/dwg/fields/classes/classes.h"

namespace cad::dwg {
namespace {

void coordinateSystem(FieldVisitor& v) {
  v.point3bd("ucs origin");
  v.point(BitType::k3BD, "ucs x axis", {1, 0, 0}), v.point(BitType::k3BD, "ucs y axis", {0, 1, 0});
}

void plotSettings(FieldVisitor& v) {
  v.text("plot settings name"), v.text("printer");
  v.bs("plot flags");
  for (const std::string_view name :
       {"left margin", "bottom margin", "right margin", "top margin", "paper width", "paper height"})
    v.bd(name);
  v.text("paper");
  v.point(BitType::k2BD, "plot origin");
  v.bs("plot unit"), v.bs("plot rotation"), v.bs("plot type");
  v.point(BitType::k2BD, "plot window minimum"), v.point(BitType::k2BD, "plot window maximum");
  v.before(kR2004) ? v.text("plot view name") : v.handle("plot view");
  v.bd("paper units", 1), v.bd("drawing units", 1);
  v.text("style sheet");
  v.bs("scale type"), v.bd("scale factor", 1);
  v.point(BitType::k2BD, "paper image origin");
  if (v.since(kR2004)) v.bs("shade plot type"), v.bs("shade plot resolution"), v.bs("shade plot dpi", 300);
  if (v.since(kR2007)) v.handle("shade plot", 4);
}

void window(FieldVisitor& v) {
  v.point3bd("view target");
  v.point(BitType::k3BD, "view direction", {0, 0, 1});
  v.bd("view twist"), v.bd("view height"), v.bd("lens length", 50);
  v.bd("front clip"), v.bd("back clip"), v.bd("snap angle");
  v.point2rd("view center"), v.point2rd("snap base"), v.point2rd("snap unit"), v.point2rd("grid unit");
  v.bs("circle zoom", 1000);
  if (v.since(kR2007)) v.bs("grid major", 5);
}

}  // namespace

void describeDictionary(FieldVisitor& v) {
  constexpr std::uint64_t kLeastText = 2;
  const std::uint32_t count = v.count(BitType::kBL, "item count", kLeastHandle, Stream::kHandles);
  if (v.since(kR2000)) v.bs("cloning", 1);
  if (v.since(kR14)) v.rc("hard owner");
  if (count > v.left(v.since(kR2007) ? Stream::kText : Stream::kData) / kLeastText) return v.fail();
  for (std::uint32_t i = 0; i < count; ++i) v.text("item name", i);
  for (std::uint32_t i = 0; i < count; ++i) v.handle("item", 2, i);
}

void describeLayout(FieldVisitor& v) {
  plotSettings(v);
  v.text("name");
  v.bs("tab order"), v.bs("layout flags");
  v.point3bd("insertion base");
  v.point2rd("limits minimum"), v.point2rd("limits maximum");
  coordinateSystem(v);
  v.bd("elevation");
  v.bs("ucs view");
  v.point3bd("extents minimum"), v.point3bd("extents maximum");
  const std::uint32_t viewports =
      v.since(kR2004) ? v.count(BitType::kBL, "viewport count", kLeastHandle, Stream::kHandles) : 0;
  v.handle("block", 4), v.handle("active viewport", 4);
  v.handle("base ucs"), v.handle("named ucs");
  for (std::uint32_t i = 0; i < viewports; ++i) v.handle("viewport", 4, i);
}

void describeViewport(FieldVisitor& v) {
  v.point3bd("center");
  v.bd("width"), v.bd("height");
  if (v.before(kR2000)) return v.handle("viewport header");
  window(v);
  const std::uint32_t frozen = v.count(BitType::kBL, "frozen layer count", kLeastHandle, Stream::kHandles);
  v.bl("status flags");
  v.text("style sheet");
  v.rc("render mode");
  v.b("ucs at origin"), v.b("ucs of viewport");
  coordinateSystem(v);
  v.bd("ucs elevation");
  v.bs("ucs view");
  if (v.since(kR2004)) v.bs("shade plot mode");
  if (v.since(kR2007)) {
    v.b("default lights", true), v.rc("lighting type");
    v.bd("brightness"), v.bd("contrast");
    v.color("ambient color");
  }
  for (std::uint32_t i = 0; i < frozen; ++i) v.handle("frozen layer", v.before(kR2004) ? 5 : 4, i);
  v.handle("boundary");
  if (v.before(kR2004)) v.handle("viewport header");
  v.handle("named ucs"), v.handle("base ucs");
  if (v.since(kR2007)) {
    v.handle("background", 4), v.handle("visual style"), v.handle("shade plot", 4), v.handle("sun", 3);
  }
}

}  // namespace cad::dwg
