#include "tests/embedded/dwg/whole_drawing.h"

#include <algorithm>

#include "embedded/dwg/fields/object_fields.h"
#include "embedded/dwg/files/raw_values.h"

namespace cad::dwg {
namespace {

constexpr Handle kBlocks = 1, kLayers = 2, kStyles = 3, kLinetypes = 5, kAppIds = 9, kDimStyles = 0xA;
constexpr Handle kLayer0 = 0x10, kStandard = 0x11, kAppId = 0x12, kByBlock = 0x14, kByLayer = 0x15,
                 kContinuous = 0x16, kDimStyle = 0x17, kWall = 0x18, kPaper = 0x1B, kModel = 0x1F,
                 kMark = 0x25;

class Maker {
 public:
  explicit Maker(Version version) { drawing_.version = version; }

  SmallDrawing made() {
    control(ObjectKind::kBlockControl, kBlocks, {kMark}, {{"model space", kModel}, {"paper space", kPaper}});
    control(ObjectKind::kLayerControl, kLayers, {kLayer0, kWall});
    control(ObjectKind::kStyleControl, kStyles, {kStandard});
    control(ObjectKind::kLinetypeControl, kLinetypes, {kContinuous},
            {{"by block", kByBlock}, {"by layer", kByLayer}});
    control(ObjectKind::kAppIdControl, kAppIds, {kAppId});
    control(ObjectKind::kDimStyleControl, kDimStyles, {kDimStyle});
    layer(kLayer0, u"0", 7), layer(kWall, u"WALL", 1);
    named(ObjectKind::kStyle, kStandard, kStyles, u"Standard", {});
    named(ObjectKind::kAppId, kAppId, kAppIds, u"ACAD", {});
    named(ObjectKind::kDimStyle, kDimStyle, kDimStyles, u"Standard", {});
    named(ObjectKind::kLinetype, kByBlock, kLinetypes, u"ByBlock", {});
    named(ObjectKind::kLinetype, kByLayer, kLinetypes, u"ByLayer", {});
    named(ObjectKind::kLinetype, kContinuous, kLinetypes, u"Continuous", {});
    block(kPaper, u"*Paper_Space", {}), block(kModel, u"*Model_Space", {0x30, 0x31, 0x32});
    block(kMark, u"MARK", {0x28});
    entities();
    std::ranges::sort(drawing_.objects, {}, &SmallObject::handle);
    sections();
    return std::move(drawing_);
  }

 private:
  using Named = std::pair<std::string_view, Handle>;
  bool since(Version version) const { return drawing_.version >= version; }

  Value text(std::u16string_view ascii) const {
    if (since(Version::kR2007)) return std::u16string(ascii);
    return std::string(ascii.begin(), ascii.end());
  }

  void add(ObjectKind kind, Handle handle, const FieldChanges& values) {
    const auto object = build(kind, drawing_.version, handle, values, {});
    drawing_.objects.push_back({handle, object.value().data, object.value().handleBits});
  }

  void control(ObjectKind kind, Handle handle, const std::vector<Handle>& entries,
               const std::vector<Named>& more = {}) {
    FieldChanges values;
    values.set("entry count", entries.size());
    for (std::uint32_t i = 0; i < entries.size(); ++i) values.setHandle("entry", entries[i], i);
    for (const auto& [name, record] : more) values.setHandle(name, record);
    add(kind, handle, values);
  }

  void named(ObjectKind kind, Handle handle, Handle owner, std::u16string_view name, FieldChanges values) {
    values.set("name", text(name));
    values.setHandle("owner", owner);
    add(kind, handle, values);
  }

  void layer(Handle handle, std::u16string_view name, std::int16_t number) {
    FieldChanges values;
    Color color;
    color.number = number;
    values.setColor("color", color);
    values.setHandle("linetype", kContinuous);
    named(ObjectKind::kLayer, handle, kLayers, name, values);
  }

  // The block's begin and end have the two handles behind its entry's.
  void block(Handle entry, std::u16string_view name, const std::vector<Handle>& content) {
    FieldChanges values;
    values.setHandle("block", entry + 1), values.setHandle("end of block", entry + 2);
    if (since(Version::kR2004)) {
      values.set("entity count", content.size());
      for (std::uint32_t i = 0; i < content.size(); ++i) values.setHandle("entity", content[i], i);
    } else if (!content.empty()) {
      values.setHandle("first entity", content.front()), values.setHandle("last entity", content.back());
    }
    named(ObjectKind::kBlockHeader, entry, kBlocks, name, values);
    FieldChanges begin;
    begin.set("name", text(name));
    entity(ObjectKind::kBlock, entry + 1, entry, kLayer0, begin);
    entity(ObjectKind::kEndblk, entry + 2, entry, kLayer0, {});
  }

  void entity(ObjectKind kind, Handle handle, Handle owner, Handle layer, FieldChanges values) {
    values.set("entity mode", owner == kModel ? 2 : owner == kPaper ? 1 : 0);
    if (owner != kModel && owner != kPaper) values.setHandle("owner", owner);
    values.setColor("color", Color());
    values.setHandle("layer", layer);
    add(kind, handle, values);
  }

  void entities() {
    FieldChanges circle, line, one, insert;
    circle.set("radius", 2.0);
    entity(ObjectKind::kCircle, 0x28, kMark, kLayer0, circle);
    line.set("end", Value(Point{10, 5, 0}));
    entity(ObjectKind::kLine, 0x30, kModel, kWall, line);
    one.set("text", text(u"one")), one.set("height", 2.5), one.setHandle("style", kStandard);
    entity(ObjectKind::kText, 0x31, kModel, kWall, one);
    insert.set("insertion point", Value(Point{3, 4, 0})), insert.setHandle("block", kMark);
    entity(ObjectKind::kInsert, 0x32, kModel, kLayer0, insert);
  }

  void sections() {
    FieldChanges variables;
    variables.setHandle("HANDSEED", 0x100);
    variables.setHandle("CLAYER", kLayer0), variables.setHandle("TEXTSTYLE", kStandard);
    variables.setHandle("CELTYPE", kByLayer), variables.setHandle("DIMSTYLE", kDimStyle);
    variables.set("TILEMODE", true), variables.set("LTSCALE", 1.0);
    drawing_.header = headerSection(drawing_.version, variables);
    // None, and before it in the newer ones what tells so.
    drawing_.classes.assign(since(Version::kR2007) ? 32 : since(Version::kR2004) ? 8 : 0, '\0');
    if (since(Version::kR2007)) putRaw(drawing_.classes, 0, std::uint32_t{200});
  }

  SmallDrawing drawing_;
};

}  // namespace

SmallDrawing wholeDrawing(Version version) { return Maker(version).made(); }

}  // namespace cad::dwg
