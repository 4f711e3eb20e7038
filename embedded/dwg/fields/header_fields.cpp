#include "embedded/dwg/fields/header_fields.h"

#include "embedded/dwg/fields/classes/classes.h"
#include "embedded/dwg/fields/field_reader.h"
#include "embedded/dwg/fields/field_writer.h"
#include "embedded/dwg/fields/text_range.h"

namespace cad::dwg {
namespace {

using Names = std::initializer_list<std::string_view>;

constexpr std::uint32_t kSizeBits = 32;
constexpr std::size_t kMostBytes = 0xFFFFFFF;  // places are 32 bits wide

void bits(FieldVisitor& v, Names names) {
  for (const std::string_view name : names) v.b(name);
}

void shorts(FieldVisitor& v, Names names) {
  for (const std::string_view name : names) v.bs(name);
}

void longs(FieldVisitor& v, Names names) {
  for (const std::string_view name : names) v.bl(name);
}

void bytes(FieldVisitor& v, Names names) {
  for (const std::string_view name : names) v.rc(name);
}

void reals(FieldVisitor& v, Names names) {
  for (const std::string_view name : names) v.bd(name);
}

void points(FieldVisitor& v, Names names) {
  for (const std::string_view name : names) v.point3bd(name);
}

void texts(FieldVisitor& v, Names names) {
  for (const std::string_view name : names) v.text(name);
}

void handles(FieldVisitor& v, Names names, std::uint8_t code = 5) {
  for (const std::string_view name : names) v.handle(name, code);
}

void switches(FieldVisitor& v) {
  const bool old = v.before(kR2000);
  bits(v, {"DIMASO", "DIMSHO"});
  if (old) v.b("DIMSAV");
  bits(v, {"PLINEGEN", "ORTHOMODE", "REGENMODE", "FILLMODE", "QTEXTMODE", "PSLTSCALE", "LIMCHECK"});
  if (old) v.b("BLIPMODE");
  if (v.since(kR2004)) v.b("unknown 11");
  bits(v, {"USRTIMER", "SKPOLY", "ANGDIR", "SPLFRAME"});
  if (old) bits(v, {"ATTREQ", "ATTDIA"});
  bits(v, {"MIRRTEXT", "WORLDVIEW"});
  if (old) v.b("WIREFRAME");
  bits(v, {"TILEMODE", "PLIMCHECK", "VISRETAIN"});
  if (old) v.b("DELOBJ");
  bits(v, {"DISPSILH", "PELLIPSE"});
}

void numbers(FieldVisitor& v) {
  const bool old = v.before(kR2000);
  v.bs("PROXYGRAPHICS");
  if (old) v.bs("DRAGMODE");
  shorts(v, {"TREEDEPTH", "LUNITS", "LUPREC", "AUNITS", "AUPREC"});
  if (old) v.bs("OSMODE");
  v.bs("ATTMODE");
  if (old) v.bs("COORDS");
  v.bs("PDMODE");
  if (old) v.bs("PICKSTYLE");
  if (v.since(kR2004)) longs(v, {"unknown 12", "unknown 13", "unknown 14"});
  shorts(v, {"USERI1", "USERI2", "USERI3", "USERI4", "USERI5", "SPLINESEGS", "SURFU", "SURFV", "SURFTYPE",
             "SURFTAB1", "SURFTAB2", "SPLINETYPE", "SHADEDGE", "SHADEDIF", "UNITMODE", "MAXACTVP", "ISOLINES",
             "CMLJUST", "TEXTQLTY"});
  reals(v, {"LTSCALE",  "TEXTSIZE", "TRACEWID", "SKETCHINC", "FILLETRAD", "THICKNESS", "ANGBASE",
            "PDSIZE",   "PLINEWID", "USERR1",   "USERR2",    "USERR3",    "USERR4",    "USERR5",
            "CHAMFERA", "CHAMFERB", "CHAMFERC", "CHAMFERD",  "FACETRES",  "CMLSCALE",  "CELTSCALE"});
  if (v.before(kR2007)) v.text("MENU");
}

void current(FieldVisitor& v) {
  v.date("TDUCREATE"), v.date("TDUUPDATE");  // in universal time
  if (v.since(kR2004)) longs(v, {"unknown 15", "unknown 16", "unknown 17"});
  v.date("TDINDWG"), v.date("TDUSRTIMER");
  v.color("CECOLOR");
  v.visit({.name = "HANDSEED", .type = BitType::kDataHandle, .fallback = HandleReference{}});
  handles(v, {"CLAYER", "TEXTSTYLE", "CELTYPE"});
  if (v.since(kR2007)) v.handle("CMATERIAL");
  handles(v, {"DIMSTYLE", "CMLSTYLE"});
  if (v.since(kR2000)) v.bd("PSVPSCALE");
}

// The spaces have the same variables, those of paper space with a P before their names.
struct SpaceNames {
  std::string_view base, extentsLeast, extentsMost, limitsLeast, limitsMost, elevation;
  std::string_view origin, xAxis, yAxis, name, reference, view, baseName;
  std::array<std::string_view, 6> origins;
};

constexpr SpaceNames kPaper = {
    "PINSBASE",
    "PEXTMIN",
    "PEXTMAX",
    "PLIMMIN",
    "PLIMMAX",
    "PELEVATION",
    "PUCSORG",
    "PUCSXDIR",
    "PUCSYDIR",
    "PUCSNAME",
    "PUCSORTHOREF",
    "PUCSORTHOVIEW",
    "PUCSBASE",
    {"PUCSORGTOP", "PUCSORGBOTTOM", "PUCSORGLEFT", "PUCSORGRIGHT", "PUCSORGFRONT", "PUCSORGBACK"}};
constexpr SpaceNames kModel = {
    "INSBASE",     "EXTMIN",
    "EXTMAX",      "LIMMIN",
    "LIMMAX",      "ELEVATION",
    "UCSORG",      "UCSXDIR",
    "UCSYDIR",     "UCSNAME",
    "UCSORTHOREF", "UCSORTHOVIEW",
    "UCSBASE",     {"UCSORGTOP", "UCSORGBOTTOM", "UCSORGLEFT", "UCSORGRIGHT", "UCSORGFRONT", "UCSORGBACK"}};

void space(FieldVisitor& v, const SpaceNames& names) {
  points(v, {names.base, names.extentsLeast, names.extentsMost});
  v.point2rd(names.limitsLeast), v.point2rd(names.limitsMost);
  v.bd(names.elevation);
  points(v, {names.origin, names.xAxis, names.yAxis});
  v.handle(names.name);
  if (v.before(kR2000)) return;
  v.handle(names.reference);
  v.bs(names.view);
  v.handle(names.baseName);
  for (const std::string_view origin : names.origins) v.point3bd(origin);
}

void tables(FieldVisitor& v) {
  handles(v,
          {"BLOCK CONTROL", "LAYER CONTROL", "STYLE CONTROL", "LTYPE CONTROL", "VIEW CONTROL", "UCS CONTROL",
           "VPORT CONTROL", "APPID CONTROL", "DIMSTYLE CONTROL"},
          3);
  if (v.before(kR2004)) v.handle("VX CONTROL", 3);
  handles(v, {"GROUP DICTIONARY", "MLINESTYLE DICTIONARY", "NAMED OBJECTS"});
  if (v.before(kR2000)) return;
  shorts(v, {"TSTACKALIGN", "TSTACKSIZE"});
  if (v.before(kR2007)) texts(v, {"HYPERLINKBASE", "STYLESHEET"});
  handles(v, {"LAYOUT DICTIONARY", "PLOTSETTINGS DICTIONARY", "PLOTSTYLE DICTIONARY"});
  if (v.since(kR2004)) handles(v, {"MATERIAL DICTIONARY", "COLOR DICTIONARY"});
  if (v.since(kR2007)) v.handle("VISUALSTYLE DICTIONARY");
  if (v.since(kR2013)) v.handle("unknown 20");
}

void since2000(FieldVisitor& v) {
  constexpr std::int64_t kByHandle = 3;
  v.bl("flags");  // lineweight in the lowest five bits; ends, joints and more
  v.bs("INSUNITS");
  if (v.bs("CEPSNTYPE") == kByHandle) v.handle("CPSNID");
  if (v.before(kR2007)) texts(v, {"FINGERPRINTGUID", "VERSIONGUID"});
  if (v.before(kR2004)) return;
  bytes(v, {"SORTENTS", "INDEXCTL", "HIDETEXT", "XCLIPFRAME", "DIMASSOC", "HALOGAP"});
  shorts(v, {"OBSCOLOR", "INTERSECTIONCOLOR"});
  bytes(v, {"OBSLTYPE", "INTERSECTIONDISPLAY"});
  if (v.before(kR2007)) v.text("PROJECTNAME");
}

void since2007(FieldVisitor& v) {
  v.b("CAMERADISPLAY");
  longs(v, {"unknown 21", "unknown 22"});
  reals(v, {"unknown 23", "STEPSPERSEC", "STEPSIZE", "3DDWFPREC", "LENSLENGTH", "CAMERAHEIGHT"});
  bytes(v, {"SOLIDHIST", "SHOWHIST"});
  reals(v, {"PSOLWIDTH", "PSOLHEIGHT", "LOFTANG1", "LOFTANG2", "LOFTMAG1", "LOFTMAG2"});
  v.bs("LOFTPARAM");
  v.rc("LOFTNORMALS");
  reals(v, {"LATITUDE", "LONGITUDE", "NORTHDIRECTION"});
  v.bl("TIMEZONE");
  bytes(v, {"LIGHTGLYPHDISPLAY", "TILEMODELIGHTSYNCH", "DWFFRAME", "DGNFRAME"});
  v.b("REALWORLDSCALE");
  v.color("INTERFERECOLOR");
  handles(v, {"INTERFEREOBJVS", "INTERFEREVPVS", "DRAGVS"});
  v.rc("CSHADOW");
  v.bd("SHADOWPLANELOCATION");
}

void describeHeader(FieldVisitor& v) {
  if (v.since(kR2013)) v.integer(BitType::kBLL, "REQUIREDVERSIONS");
  reals(v, {"unit 1", "unit 2", "unit 3", "unit 4"});
  // The texts follow each other at the end since R2007; the order among them is that of this list.
  texts(v, {"unit 1 name", "unit 2 name", "unit 3 name", "unit 4 name"});
  if (v.since(kR2007)) texts(v, {"MENU", "DIMPOST", "DIMAPOST"});
  if (v.since(kR2010)) texts(v, {"DIMALTMZS", "DIMMZS"});
  if (v.since(kR2007))
    texts(v, {"HYPERLINKBASE", "STYLESHEET", "FINGERPRINTGUID", "VERSIONGUID", "PROJECTNAME"});
  longs(v, {"unknown 8", "unknown 9"});
  if (v.before(kR2000)) v.bs("unknown 10");
  if (v.before(kR2004)) v.handle("current viewport");
  switches(v);
  numbers(v);
  current(v);
  space(v, kPaper);
  space(v, kModel);
  describeDimVariables(v, true);
  tables(v);
  if (v.since(kR2000)) since2000(v);
  handles(v, {"PAPER SPACE", "MODEL SPACE", "LTYPE BYLAYER", "LTYPE BYBLOCK", "LTYPE CONTINUOUS"});
  if (v.since(kR2007)) since2007(v);
  if (v.before(kR2007)) shorts(v, {"unknown 54", "unknown 55", "unknown 56", "unknown 57"});
}

// Before R2007 all stands in one stream.
Streams streamsOf(std::string_view section, Version version, bool& valid) {
  const auto bits = static_cast<std::uint32_t>(section.size() * 8);
  valid = section.size() <= kMostBytes;
  if (!valid || !hasWideTexts(version)) return {.dataEnd = valid ? bits : 0, .handlesInData = true};
  const std::uint32_t size = BitReader(section).rl();
  const TextRange texts = textRange(section, size);
  valid = texts.valid && texts.dataEnd >= kSizeBits;
  if (!valid) return {};
  return {.dataBegin = kSizeBits,
          .dataEnd = texts.dataEnd,
          .textBegin = texts.begin,
          .textEnd = texts.end,
          .handleBegin = size,
          .handleEnd = bits - (bits - size) % 8};
}

base::Failure damaged() { return {{}, L"The header variables are damaged: they end within the section"}; }

std::string assemble(std::string_view section, const Streams& streams, const Streams& rest,
                     FieldWriter& writer) {
  BitWriter whole;
  std::uint32_t end = streams.handleEnd;  // of what may not be lost
  if (streams.handlesInData) {
    const std::uint32_t left = rest.dataEnd - rest.dataBegin;
    end = left < 8 ? rest.dataBegin : rest.dataEnd;
    whole.copy(writer.data());
    whole.copy(section, rest.dataBegin, end);
  } else {
    BitWriter front;
    front.copy(writer.data());
    front.copy(section, rest.dataBegin, rest.dataEnd);
    writer.texts().copy(section, rest.textBegin, rest.textEnd);
    front.copy(writer.texts());
    closeTexts(front, writer.texts().size());
    whole.rl(static_cast<std::uint32_t>(kSizeBits + front.size()));
    whole.copy(front);
    whole.copy(writer.handles());
    whole.copy(section, rest.handleBegin, rest.handleEnd);
  }
  const auto missing = static_cast<std::uint32_t>((8 - whole.size() % 8) % 8);
  if (section.size() * 8 - end == missing) {
    whole.copy(section, end, end + missing);
  } else {
    whole.alignToByte();
  }
  return whole.take();
}

}  // namespace

Fields readHeader(std::string_view section, Version version) {
  bool valid = false;
  FieldReader reader(section, streamsOf(section, version, valid), version, ObjectKind::kOther, 0);
  if (valid) {
    describeHeader(reader);
  } else {
    reader.fail();
  }
  return reader.take(true);
}

base::Result<std::string> rewriteHeader(std::string_view section, Version version,
                                        const FieldChanges& changes) {
  bool valid = false;
  const Streams streams = streamsOf(section, version, valid);
  if (!valid) return damaged();
  FieldReader reader(section, streams, version, ObjectKind::kOther, 0);
  describeHeader(reader);
  if (reader.failed()) return damaged();
  const Streams rest = reader.rest();
  const Fields source = reader.take(true);
  FieldWriter writer(&source, changes, version, ObjectKind::kOther, 0, streams.handlesInData);
  describeHeader(writer);
  if (const std::string_view misfit = writer.misfit(); !misfit.empty())
    return base::Failure{{},
                         L"The header variable " + std::wstring(misfit.begin(), misfit.end()) +
                             L" cannot be written so in a DWG file of this version"};
  return assemble(section, streams, rest, writer);
}

}  // namespace cad::dwg
