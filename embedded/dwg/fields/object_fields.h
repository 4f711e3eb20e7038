#pragma once
// Reading, rewriting and making objects by their fields. Each class is described once, and the description
// serves all three; names are those of the DXF reference in lower case, as the lists below.
//
// Every object: "owner", "reactor count", "reactor" [i], "dictionary" (its extension dictionary, a handle);
//   R2004 on "no dictionary", R2013 on "has binary data".
// Every entity: "graphics" (the preview, a span), "entity mode" (0 owner by handle, 1 paper space, 2 model
//   space; "owner" is there with 0 only), "no links" (R13 to R2000), "previous", "next" (entities before
//   and after in the block, R13 to R2000), "color", "linetype scale", "linetype flags" (R2000 on: 0 ByLayer,
//   1 ByBlock, 2 Continuous, 3 by "linetype"; R13 and R14 have "linetype by layer", a bit), "linetype",
//   "plot style flags", "plot style", "material flags", "material", "shadow flags", "invisible",
//   "lineweight" (the file's number; see lineWeightOf()), "layer".
// TEXT, ATTRIB, ATTDEF: "elevation", "insertion point", "alignment point", "extrusion", "thickness",
//   "oblique angle", "rotation", "height", "width factor", "text", "generation", "horizontal alignment",
//   "vertical alignment", "style"; ATTRIB and ATTDEF "tag", "field length", "flags", "lock position",
//   ATTDEF "prompt". Angles are radians.
// MTEXT: "insertion point", "extrusion", "x axis", "reference width", "reference height", "height",
//   "attachment", "drawing direction", "extents height", "extents width", "text", "line spacing style",
//   "line spacing factor", "background flags", "background scale", "background color",
//   "background transparency", "style"; R2018 on the box once more with its columns: "columns attachment",
//   "columns x axis", "columns insertion point" and so on, which follow the others where they were alike.
// INSERT: "insertion point", "scale", "rotation", "extrusion", "has attributes", "attribute count",
//   "block", "first attribute", "last attribute" (to R2000), "attribute" [i] (R2004 on), "sequence end";
//   MINSERT also "columns", "rows", "column spacing", "row spacing".
// DIMENSION: "class version", "extrusion", "text midpoint", "elevation", "flags 1", "text",
//   "text rotation", "horizontal direction", "insert scale", "insert rotation", "attachment",
//   "line spacing style", "line spacing factor", "measurement", "flip arrow 1", "flip arrow 2", "point 10"
//   to "point 16" (the points by their group codes), "oblique angle", "rotation", "flags 2",
//   "leader length", "dimension style", "block".
// LEADER: "annotation type", "path type", "vertex count", "vertex" [i], "origin", "extrusion",
//   "x direction", "offset to block", "offset", "box height", "box width", "hook line on x direction",
//   "arrow on", "annotation", "dimension style".
// HATCH: see hatch_fields.cpp.
// Tables: "name", "flags" or bits by their names; each see table_fields.cpp. DIMSTYLE: the variables' names
//   ("DIMSCALE").

#include <string>

#include "base/result.h"
#include "embedded/dwg/fields/field.h"
#include "embedded/dwg/fields/object_frame.h"

namespace cad::dwg {

Fields readFields(const ObjectFrame& frame);
// What every object has, extended data not included: enough for a layer, a linetype, a colour, an owner.
Fields readCommonFields(const ObjectFrame& frame);

// Whether two states of one object are the same to the bit but for what every object of its sort has.
bool differInCommonOnly(const ObjectFrame& before, const ObjectFrame& now);

// What the description leaves of an object's streams, in bits; nothing of one that it knows whole.
struct FieldRest {
  std::uint32_t data = 0, texts = 0, handles = 0;
};
FieldRest fieldRest(const ObjectFrame& frame);

// An object as ChangedObject (files/dwg_file.h) wants it.
struct WrittenObject {
  std::string data;
  std::uint64_t handleBits = 0;
};

// The object's data with these fields changed; every bit that they do not concern is copied. Data, text and
// handle stream find their sizes and flags anew. Fails when the object is not intact, when it is of a class
// that is not described and a field is not one that all objects have, or when there is no such field.
base::Result<WrittenObject> rewrite(const ObjectFrame& frame, const FieldChanges& changes);

// A new object. Fails for a class that the file's classes do not have, and for a field that it has not.
base::Result<WrittenObject> build(ObjectKind kind, Version version, Handle handle, const FieldChanges& values,
                                  const std::vector<FileClass>& classes);

// The lineweight of an entity or layer in hundredths of a millimetre; -1 ByLayer, -2 ByBlock, -3 default.
int lineWeightOf(std::int64_t stored);
std::optional<std::int64_t> storedLineWeight(int lineWeight);

}  // namespace cad::dwg
