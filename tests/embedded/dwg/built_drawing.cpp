#include "tests/embedded/dwg/built_drawing.h"

#include <algorithm>
#include <map>
#include <stdexcept>
#include <vector>

#include "embedded/dwg/fields/object_fields.h"

namespace cad::dwg {
namespace {

// What the header and others name.
enum : Handle {
  kBlocks = 1,
  kLayers,
  kStyles,
  kLinetypes = 5,
  kViews,
  kUcss,
  kVports,
  kAppIds,
  kDimStyles,
  kViewportEntities,
  kNamedObjects,
  kGroups,
  kLayer0 = 0x10,
  kStandard,
  kAcad,
  kByBlock = 0x14,
  kByLayer,
  kContinuous,
  kDashed,
  kLayer1,
  kLayerOff,
  kLayouts,
  kPaperSpace,
  kJapanese,
  kDimStandard,
  kModelSpace = 0x1F,
  kModelLayout,
  kPaperLayout,
  kFirstFree = 0x30
};

class Builder {
 public:
  explicit Builder(Version version) : version_(version) {
    small_.version = version;
    classes_ = {{500, "LWPOLYLINE", true}, {501, "HATCH", true}};
    small_.classes = classSection(version, classes_);
  }

  SmallDrawing make() {
    makeTables();
    makeModelSpace();
    makeBlock(kPaperSpace, "*PAPER_SPACE", {});
    makeControls();
    FieldChanges variables;
    setHeader(variables);
    small_.header = headerSection(version_, variables);
    for (auto& [handle, object] : objects_)
      small_.objects.push_back({handle, std::move(object.data), object.handleBits});
    return std::move(small_);
  }

 private:
  struct Entity {
    ObjectKind kind;
    FieldChanges values;
    Handle handle = 0;
  };

  bool since(Version first) const { return version_ >= first; }
  // As programs write it: until R2000 with the end.
  Value text(std::string_view ascii) const {
    if (hasWideTexts(version_)) return std::u16string(ascii.begin(), ascii.end());
    return since(Version::kR2004) ? std::string(ascii) : std::string(ascii) + '\0';
  }

  void add(ObjectKind kind, Handle handle, const FieldChanges& values) {
    const auto object = build(kind, version_, handle, values, classes_);
    if (!object.ok()) throw std::logic_error("an object of the built drawing cannot be made");
    objects_[handle] = object.value();
  }

  void addNamed(ObjectKind kind, Handle handle, Handle control, std::string_view name, FieldChanges values) {
    values.set("name", text(name));
    values.setHandle("owner", control);
    add(kind, handle, values);
    if (handle != kByBlock && handle != kByLayer && handle != kModelSpace && handle != kPaperSpace)
      listed_[control].push_back(handle);
  }

  void makeTables() {
    makeLayer(kLayer0, "0", 7), makeLayer(kLayer1, "Layer1", 3), makeLayer(kLayerOff, "Layer_Off", -5);
    FieldChanges plain;
    if (!hasWideTexts(version_)) plain.set("texts", Value(std::string(256, '\0')));
    for (const auto& [handle, name] :
         {std::pair{kByBlock, "ByBlock"}, {kByLayer, "ByLayer"}, {kContinuous, "Continuous"}})
      addNamed(ObjectKind::kLinetype, handle, kLinetypes, name, plain);
    FieldChanges dashed = plain;
    dashed.set("description", text("__ __ __")), dashed.set("pattern length", 15.0);
    dashed.set("dash count", 2), dashed.set("dash length", 12.0, 0), dashed.set("dash length", -3.0, 1);
    addNamed(ObjectKind::kLinetype, kDashed, kLinetypes, "ACAD_ISO02W100", dashed);
    FieldChanges latin, japanese;
    latin.set("font", text("txt")), latin.set("last height", 2.5);
    japanese.set("font", text("romans")), japanese.set("big font", text("extfont2"));
    addNamed(ObjectKind::kStyle, kStandard, kStyles, "Standard", latin);
    addNamed(ObjectKind::kStyle, kJapanese, kStyles, "Japanese", japanese);
    FieldChanges sizes;
    sizes.set("DIMTXT", 2.5), sizes.set("DIMASZ", 2.5), sizes.setHandle("DIMTXSTY", kStandard);
    addNamed(ObjectKind::kDimStyle, kDimStandard, kDimStyles, "Standard", sizes);
    addNamed(ObjectKind::kAppId, kAcad, kAppIds, "ACAD", {});
    FieldChanges groups;
    groups.set("item count", 1), groups.set("item name", text("ACAD_GROUP")),
        groups.setHandle("item", kGroups);
    add(ObjectKind::kDictionary, kNamedObjects, groups);
    FieldChanges none;
    none.setHandle("owner", kNamedObjects);
    add(ObjectKind::kDictionary, kGroups, none);
  }

  void makeLayer(Handle handle, std::string_view name, int number) {
    FieldChanges values;
    Color color;
    color.number = static_cast<std::int16_t>(number);
    values.setColor("color", color);
    values.setHandle("linetype", kContinuous);
    if (number < 0 && !since(Version::kR2000)) values.set("off", true);
    addNamed(ObjectKind::kLayer, handle, kLayers, name, values);
  }

  Entity entity(ObjectKind kind, std::initializer_list<std::pair<std::string_view, Value>> values) {
    Entity made{kind, {}};
    for (const auto& [name, value] : values) made.values.set(name, value);
    made.values.setHandle("layer", kLayer1);
    return made;
  }
  Entity textOf(ObjectKind kind, std::string_view content, double rotation) {
    Entity made = entity(kind, {{"insertion point", Point{10, 20, 0}},
                                {"height", 2.5},
                                {"rotation", rotation},
                                {"text", text(content)}});
    made.values.setHandle("style", kStandard);
    if (kind != ObjectKind::kText) made.values.set("tag", text("TAG"));
    return made;
  }

  void makeModelSpace() {
    using enum ObjectKind;
    const Handle part = makeBlock(
        nextHandle_++, "PART",
        {entity(kLine, {{"start", Point{0, 0, 0}}, {"end", Point{4, 0, 0}}}), textOf(kAttdef, "usual", 0)});
    const Handle picture = makeBlock(
        nextHandle_++, "*D", {entity(kLine, {{"start", Point{0, 10, 0}}, {"end", Point{50, 10, 0}}})});
    std::vector<Entity> content = {
        entity(kLine, {{"start", Point{0, 0, 0}}, {"end", Point{100, 0, 5}}}),
        entity(kCircle, {{"center", Point{5, 5, 0}}, {"radius", 3.0}}),
        entity(kArc, {{"center", Point{5, 5, 0}}, {"radius", 4.0}, {"end angle", 1.5}}),
        textOf(kText, "plain", 0),
        textOf(kText, "turned by 30 degrees", 0.5235987755982988),
        entity(kMtext, {{"insertion point", Point{1, 2, 0}}, {"height", 3.5}, {"text", text("one\\Ptwo")}}),
        entity(kSolid, {}),
        entity(kInsert, {{"insertion point", Point{50, 50, 0}}, {"has attributes", std::int64_t{1}}}),
        entity(kDimensionLinear, {{"point 13", Point{0, 0, 0}},
                                  {"point 14", Point{50, 0, 0}},
                                  {"point 10", Point{50, 10, 0}},
                                  {"text midpoint", Point{25, 12, 0}}}),
        entity(kLeader, {{"vertex count", std::int64_t{2}}}),
        entity(kLwpolyline, {{"vertex count", std::int64_t{2}}}),
        entity(kHatch, {{"name", text("SOLID")},
                        {"solid", std::int64_t{1}},
                        {"path count", std::int64_t{1}},
                        {"path flags", std::int64_t{2}},
                        {"closed", std::int64_t{1}},
                        {"point count", std::int64_t{3}}}),
    };
    const auto of = [&](ObjectKind kind) -> FieldChanges& {
      return std::ranges::find(content, kind, &Entity::kind)->values;
    };
    of(kMtext).setHandle("style", kJapanese);
    of(kDimensionLinear).setHandle("dimension style", kDimStandard);
    of(kDimensionLinear).setHandle("block", picture);
    of(kLeader).set("vertex", Value(Point{7, 7, 0}), 1),
        of(kLeader).setHandle("dimension style", kDimStandard);
    of(kLwpolyline).set("vertex", Value(Point{9, 9, 0}), 1);
    of(kHatch).set("point", Value(Point{8, 0, 0}), 1), of(kHatch).set("point", Value(Point{8, 8, 0}), 2);
    addReference(of(kInsert), part);
    makeBlock(kModelSpace, "*MODEL_SPACE", std::move(content));
  }

  // With one attribute, which it owns.
  void addReference(FieldChanges& insert, Handle block) {
    const Handle attribute = nextHandle_++, end = nextHandle_++;
    insert.setHandle("block", block), insert.setHandle("sequence end", end);
    if (since(Version::kR2004)) {
      insert.set("attribute count", 1), insert.setHandle("attribute", attribute);
    } else {
      insert.setHandle("first attribute", attribute), insert.setHandle("last attribute", attribute);
    }
    parts_ = {{textOf(ObjectKind::kAttrib, "filled in", 0)}, {entity(ObjectKind::kSeqend, {})}};
    parts_[0].handle = attribute, parts_[1].handle = end;
  }

  void addEntity(Entity& entity, Handle owner, Handle previous, Handle next) {
    const bool isSpace = owner == kModelSpace || owner == kPaperSpace;
    entity.values.set("entity mode", owner == kModelSpace ? 2 : owner == kPaperSpace ? 1 : 0);
    if (!isSpace) entity.values.setHandle("owner", owner);
    if (!since(Version::kR2004) && previous + next != 0) {
      entity.values.set("no links", false);
      entity.values.setHandle("previous", previous), entity.values.setHandle("next", next);
    }
    add(entity.kind, entity.handle, entity.values);
    if (entity.kind != ObjectKind::kInsert) return;
    for (Entity& part : parts_) addEntity(part, entity.handle, 0, 0);
  }

  // Returns the handle of its table's record.
  Handle makeBlock(Handle record, std::string_view name, std::vector<Entity> content) {
    for (Entity& each : content) each.handle = nextHandle_++;
    const auto handleAt = [&](std::size_t i) { return i < content.size() ? content[i].handle : 0; };
    for (std::size_t i = 0; i < content.size(); ++i)
      addEntity(content[i], record, handleAt(i - 1), handleAt(i + 1));
    Entity begin = entity(ObjectKind::kBlock, {{"name", text(name)}}), end = entity(ObjectKind::kEndblk, {});
    begin.handle = nextHandle_++, end.handle = nextHandle_++;
    addEntity(begin, record, 0, 0), addEntity(end, record, 0, 0);
    FieldChanges values;
    values.set("anonymous", name == "*D");
    values.setHandle("block", begin.handle), values.setHandle("end of block", end.handle);
    if (since(Version::kR2004)) {
      values.set("entity count", content.size());
      for (std::uint32_t i = 0; i < content.size(); ++i) values.setHandle("entity", handleAt(i), i);
    } else if (!content.empty()) {
      values.setHandle("first entity", content.front().handle);
      values.setHandle("last entity", content.back().handle);
    }
    addNamed(ObjectKind::kBlockHeader, record, kBlocks, name, values);
    return record;
  }

  void makeControls() {
    using enum ObjectKind;
    for (const auto& [kind, handle] : {std::pair{kBlockControl, kBlocks},
                                       {kLayerControl, kLayers},
                                       {kStyleControl, kStyles},
                                       {kLinetypeControl, kLinetypes},
                                       {kViewControl, kViews},
                                       {kUcsControl, kUcss},
                                       {kVportControl, kVports},
                                       {kAppIdControl, kAppIds},
                                       {kDimStyleControl, kDimStyles}}) {
      FieldChanges values;
      const std::vector<Handle>& listed = listed_[handle];
      values.set("entry count", listed.size());
      for (std::uint32_t i = 0; i < listed.size(); ++i) values.setHandle("entry", listed[i], i);
      if (kind == kBlockControl)
        values.setHandle("model space", kModelSpace), values.setHandle("paper space", kPaperSpace);
      if (kind == kLinetypeControl)
        values.setHandle("by block", kByBlock), values.setHandle("by layer", kByLayer);
      add(kind, handle, values);
    }
  }

  void setHeader(FieldChanges& variables) const {
    variables.set("TILEMODE", true), variables.set("LTSCALE", 1.0), variables.set("TEXTSIZE", 2.5);
    variables.set("DIMTXT", 2.5), variables.set("DIMSCALE", 1.0);
    for (const auto& [name, handle] :
         {std::pair{"HANDSEED", nextHandle_},       {"CLAYER", Handle{kLayer0}},
          {"TEXTSTYLE", Handle{kStandard}},         {"CELTYPE", Handle{kByLayer}},
          {"DIMSTYLE", Handle{kDimStandard}},       {"DIMTXSTY", Handle{kStandard}},
          {"BLOCK CONTROL", Handle{kBlocks}},       {"LAYER CONTROL", Handle{kLayers}},
          {"STYLE CONTROL", Handle{kStyles}},       {"LTYPE CONTROL", Handle{kLinetypes}},
          {"VIEW CONTROL", Handle{kViews}},         {"UCS CONTROL", Handle{kUcss}},
          {"VPORT CONTROL", Handle{kVports}},       {"APPID CONTROL", Handle{kAppIds}},
          {"DIMSTYLE CONTROL", Handle{kDimStyles}}, {"NAMED OBJECTS", Handle{kNamedObjects}},
          {"GROUP DICTIONARY", Handle{kGroups}},    {"MODEL SPACE", Handle{kModelSpace}},
          {"PAPER SPACE", Handle{kPaperSpace}},     {"LTYPE BYLAYER", Handle{kByLayer}},
          {"LTYPE BYBLOCK", Handle{kByBlock}},      {"LTYPE CONTINUOUS", Handle{kContinuous}}})
      variables.setHandle(name, handle);
  }

  Version version_;
  SmallDrawing small_;
  std::vector<FileClass> classes_;
  std::map<Handle, WrittenObject> objects_;
  std::map<Handle, std::vector<Handle>> listed_;
  std::vector<Entity> parts_;
  Handle nextHandle_ = kFirstFree;
};

}  // namespace

SmallDrawing builtParts(Version version) { return Builder(version).make(); }

}  // namespace cad::dwg
