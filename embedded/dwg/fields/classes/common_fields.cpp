// What every object has, and every entity.

#include "embedded/dwg/fields/classes/classes.h"

namespace cad::dwg {
namespace {

constexpr std::int64_t kByHandle = 3;  // of the flags for linetype, plot style, material

// What the file says of the order of entities, and of what hangs on them.
void links(FieldVisitor& v, std::uint32_t reactors, bool hasDictionary) {
  for (std::uint32_t i = 0; i < reactors; ++i) v.handle("reactor", 4, i);
  if (hasDictionary) v.handle("dictionary", 3);
}

void graphics(FieldVisitor& v) {
  if (!v.b("has graphics")) return;
  const std::int64_t size = v.integer(v.since(kR2010) ? BitType::kBLL : BitType::kRL, "graphics size");
  if (size < 0) v.fail();
  v.bytes("graphics", static_cast<std::uint64_t>(size));
}

void colorReference(FieldVisitor& v) {
  const Color* wish = v.wantedColor("color", 0);
  const bool given = wish != nullptr && wish->reference;
  v.visit({.name = "color",
           .type = BitType::kHandle,
           .part = Part::kReference,
           .fallback = HandleReference{5, 0, given ? *wish->reference : 0},
           .derived = given});
}

}  // namespace

void describeEntity(FieldVisitor& v) {
  const std::int64_t mode = v.bb("entity mode");
  const std::uint32_t reactors = v.count(BitType::kBL, "reactor count", kLeastHandle, Stream::kHandles);
  const bool byLayer = v.before(kR2000) && v.b("linetype by layer", true);
  const bool noDictionary = v.since(kR2004) && v.b("no dictionary", true);
  const bool noLinks = v.before(kR2004) ? v.b("no links", true) : true;
  if (v.since(kR2013)) v.b("has binary data");
  const bool hasColorReference = v.entityColor();
  v.bd("linetype scale", 1);
  const std::int64_t linetype = v.since(kR2000) ? v.bb("linetype flags") : byLayer ? 0 : kByHandle;
  const std::int64_t plotStyle = v.since(kR2000) ? v.bb("plot style flags") : 0;
  const std::int64_t material = v.since(kR2007) ? v.bb("material flags") : 0;
  if (v.since(kR2007)) v.rc("shadow flags");
  const bool fullStyle = v.since(kR2010) && v.b("has full visual style");
  const bool faceStyle = v.since(kR2010) && v.b("has face visual style");
  const bool edgeStyle = v.since(kR2010) && v.b("has edge visual style");
  v.bs("invisible");
  if (v.since(kR2000)) v.rc("lineweight", 29);

  if (mode == 0) v.handle("owner", kNearCode);
  links(v, reactors, !noDictionary);
  const auto linetypeOf = [&] {
    if (linetype == kByHandle) v.handle("linetype");
  };
  if (v.before(kR2000)) v.handle("layer"), linetypeOf();
  if (!noLinks) v.handle("previous", kNearCode), v.handle("next", kNearCode);
  if (hasColorReference) colorReference(v);
  if (v.since(kR2000)) v.handle("layer"), linetypeOf();
  if (material == kByHandle) v.handle("material");
  if (plotStyle == kByHandle) v.handle("plot style");
  if (fullStyle) v.handle("full visual style");
  if (faceStyle) v.handle("face visual style");
  if (edgeStyle) v.handle("edge visual style");
}

void describeCommon(FieldVisitor& v, bool isEntity) {
  if (isEntity) graphics(v);
  v.sizeField();
  if (isEntity) return describeEntity(v);
  const std::uint32_t reactors = v.count(BitType::kBL, "reactor count", kLeastHandle, Stream::kHandles);
  const bool noDictionary = v.since(kR2004) && v.b("no dictionary", true);
  if (v.since(kR2013)) v.b("has binary data");
  v.handle("owner", kNearCode);
  links(v, reactors, !noDictionary);
}

}  // namespace cad::dwg
