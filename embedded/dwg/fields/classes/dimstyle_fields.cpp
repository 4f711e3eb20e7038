// DIMSTYLE: the dimension variables by their names.

#include "embedded/dwg/fields/classes/classes.h"

namespace cad::dwg {
namespace {

void before2000(FieldVisitor& v) {
  for (const std::string_view name : {"DIMTOL", "DIMLIM", "DIMTIH", "DIMTOH", "DIMSE1", "DIMSE2", "DIMALT",
                                      "DIMTOFL", "DIMSAH", "DIMTIX", "DIMSOXD"})
    v.b(name);
  v.rc("DIMALTD", 2), v.rc("DIMZIN");
  v.b("DIMSD1"), v.b("DIMSD2");
  v.rc("DIMTOLJ", 1), v.rc("DIMJUST"), v.rc("DIMFIT", 3);
  v.b("DIMUPT");
  v.rc("DIMTZIN"), v.rc("DIMALTZ"), v.rc("DIMALTTZ"), v.rc("DIMTAD");
  v.bs("DIMUNIT", 2), v.bs("DIMAUNIT"), v.bs("DIMDEC", 4), v.bs("DIMTDEC", 4), v.bs("DIMALTU", 2);
  v.bs("DIMALTTD", 2);
}

void sizes(FieldVisitor& v) {
  v.bd("DIMSCALE", 1), v.bd("DIMASZ", 0.18), v.bd("DIMEXO", 0.0625), v.bd("DIMDLI", 0.38);
  v.bd("DIMEXE", 0.18), v.bd("DIMRND"), v.bd("DIMDLE"), v.bd("DIMTP"), v.bd("DIMTM");
}

void texts(FieldVisitor& v) {
  v.bd("DIMTXT", 0.18), v.bd("DIMCEN", 0.09), v.bd("DIMTSZ"), v.bd("DIMALTF", 25.4), v.bd("DIMLFAC", 1);
  v.bd("DIMTVP"), v.bd("DIMTFAC", 1), v.bd("DIMGAP", 0.09);
}

void colors(FieldVisitor& v) { v.color("DIMCLRD"), v.color("DIMCLRE"), v.color("DIMCLRT"); }

void tolerances(FieldVisitor& v) {
  for (const std::string_view name : {"DIMTOL", "DIMLIM", "DIMTIH", "DIMTOH", "DIMSE1", "DIMSE2"}) v.b(name);
  v.bs("DIMTAD"), v.bs("DIMZIN"), v.bs("DIMAZIN");
}

void alternates(FieldVisitor& v) {
  v.bd("DIMALTRND");
  v.b("DIMALT");
  v.bs("DIMALTD", 2);
  v.b("DIMTOFL"), v.b("DIMSAH"), v.b("DIMTIX"), v.b("DIMSOXD");
}

void units(FieldVisitor& v) {
  v.bs("DIMADEC"), v.bs("DIMDEC", 4), v.bs("DIMTDEC", 4), v.bs("DIMALTU", 2), v.bs("DIMALTTD", 2);
  v.bs("DIMAUNIT"), v.bs("DIMFRAC"), v.bs("DIMLUNIT", 2), v.bs("DIMDSEP", '.'), v.bs("DIMTMOVE");
  v.bs("DIMJUST");
  v.b("DIMSD1"), v.b("DIMSD2");
  v.bs("DIMTOLJ", 1), v.bs("DIMTZIN"), v.bs("DIMALTZ"), v.bs("DIMALTTZ");
  v.b("DIMUPT");
  v.bs("DIMATFIT", 3);
}

}  // namespace

void describeDimVariables(FieldVisitor& v, bool ofHeader) {
  // The header has its texts at the end of all since R2007.
  const bool textsFirst = v.since(kR2000) && !(ofHeader && v.since(kR2007));
  const auto suffixes = [&v] { v.text("DIMPOST"), v.text("DIMAPOST"); };
  if (textsFirst) suffixes();
  if (v.before(kR2000)) {
    before2000(v);
    if (ofHeader) v.handle("DIMTXSTY");
  }
  sizes(v);
  if (v.since(kR2007)) {
    v.bd("DIMFXL", 1), v.bd("DIMJOGANG", std::numbers::pi / 4);
    v.bs("DIMTFILL"), v.color("DIMTFILLCLR");
  }
  if (v.since(kR2000)) tolerances(v);
  if (v.since(kR2007)) v.bs("DIMARCSYM");
  texts(v);
  if (v.before(kR2000)) {
    suffixes();
    v.text("DIMBLK"), v.text("DIMBLK1"), v.text("DIMBLK2");
  } else {
    alternates(v);
  }
  colors(v);
  if (v.since(kR2000)) units(v);
  if (v.since(kR2007)) v.b("DIMFXLON");
  if (v.since(kR2010)) {
    v.b("DIMTXTDIRECTION");
    v.bd("DIMALTMZF", 100);
    if (!ofHeader) v.text("DIMALTMZS");
    v.bd("DIMMZF", 100);
    if (!ofHeader) v.text("DIMMZS");
  }
  if (v.since(kR2000)) {
    for (const std::string_view name : {"DIMTXSTY", "DIMLDRBLK", "DIMBLK", "DIMBLK1", "DIMBLK2"})
      v.handle(name);
    if (v.since(kR2007)) v.handle("DIMLTYPE"), v.handle("DIMLTEX1"), v.handle("DIMLTEX2");
    v.bs("DIMLWD", -2), v.bs("DIMLWE", -2);
  }
}

void describeDimStyle(FieldVisitor& v) {
  describeNamed(v);
  describeDimVariables(v, false);
  v.b("unknown bit");
  if (v.before(kR2000)) v.handle("DIMTXSTY");
}

}  // namespace cad::dwg
