// Makes the DWG drawing of a plan that make_drawing made: the same objects with the same handles, AC1015.
//   make_dwg PLAN.dxf OUT.dwg
// Exit status 2: wrong arguments, something that plans do not have, or the file cannot be written.

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <fstream>
#include <map>
#include <numbers>
#include <sstream>
#include <stdexcept>

#include "embedded/dwg/fields/object_fields.h"
#include "tests/embedded/dwg/small_files.h"

namespace {

using namespace cad::dwg;
using cad::Handle;
using cad::Point;

constexpr Handle kModelSpace = 0x1F, kPaperSpace = 0x1B, kByBlock = 0x14, kByLayer = 0x15, kStandard = 0x11;
const std::map<std::string_view, std::pair<ObjectKind, Handle>> kControls = {
    {"BLOCK_RECORD", {ObjectKind::kBlockControl, 1}}, {"LAYER", {ObjectKind::kLayerControl, 2}},
    {"STYLE", {ObjectKind::kStyleControl, 3}},        {"LTYPE", {ObjectKind::kLinetypeControl, 5}},
    {"APPID", {ObjectKind::kAppIdControl, 9}},        {"DIMSTYLE", {ObjectKind::kDimStyleControl, 0xA}}};

constexpr int kTextAtHome = 1;  // of a dimension

double radians(double degrees) { return degrees * std::numbers::pi / 180; }

// One record of the DXF file.
class Source {
 public:
  void add(int code, std::string_view value) { groups_.emplace_back(code, value); }
  std::string_view type() const { return groups_.front().second; }
  std::string_view text(int code, std::string_view fallback = {}, unsigned index = 0) const {
    for (const auto& [each, value] : groups_)
      if (each == code && index-- == 0) return value;
    return fallback;
  }
  double real(int code, double fallback = 0, unsigned index = 0) const {
    const std::string_view value = text(code, {}, index);
    std::from_chars(value.data(), value.data() + value.size(), fallback);
    return fallback;
  }
  int integer(int code, int fallback = 0) const { return static_cast<int>(real(code, fallback)); }
  Handle handle(int code) const {
    const std::string_view value = text(code);
    Handle handle = 0;
    std::from_chars(value.data(), value.data() + value.size(), handle, 16);
    return handle;
  }
  Handle own() const { return handle(type() == "DIMSTYLE" ? 105 : 5); }
  Point point(int code, unsigned index = 0) const {
    return {real(code, 0, index), real(code + 10, 0, index), real(code + 20, 0, index)};
  }

 private:
  std::vector<std::pair<int, std::string_view>> groups_;
};

std::vector<Source> recordsOf(std::string_view file) {
  std::vector<Source> records;
  const auto line = [&file] {
    const std::size_t end = file.find("\r\n");
    if (end == file.npos) throw std::runtime_error("this is no plan of make_drawing");
    const std::string_view text = file.substr(0, end);
    file.remove_prefix(end + 2);
    return text;
  };
  while (!file.empty()) {
    std::string_view digits = line();
    digits.remove_prefix(std::min(digits.find_first_not_of(' '), digits.size()));
    int code = -1;
    std::from_chars(digits.data(), digits.data() + digits.size(), code);
    std::string_view value = line();
    if (code != 1 && code != 3) value.remove_prefix(std::min(value.find_first_not_of(' '), value.size()));
    if (code == 0) records.emplace_back();
    records.back().add(code, value);
  }
  return records;
}

class Maker {
 public:
  explicit Maker(const std::vector<Source>& records) : records_(records) {}

  std::string made() {
    collect();
    for (const auto& [type, control] : kControls) makeControl(type, control.first, control.second);
    for (const Source& record : records_) make(record);
    return written();
  }

 private:
  struct Block {
    Handle begin = 0, end = 0;
    std::vector<Handle> entities;
  };

  void collect() {
    bool inContent = false;
    for (const Source& record : records_) {
      const std::string_view type = record.type();
      if (type == "SECTION") {
        inContent = record.text(2) == "BLOCKS" || record.text(2) == "ENTITIES";
        continue;
      }
      if (type == "BLOCK") blocks_[record.handle(330)].begin = record.own();
      if (type == "ENDBLK") blocks_[record.handle(330)].end = record.own();
      if (kControls.contains(type)) {
        named_[{type, record.text(2)}] = record.own();
        listed_[type].push_back(record.own());
      } else if (inContent && record.own() != 0 && type != "BLOCK" && type != "ENDBLK") {
        blocks_[record.handle(330)].entities.push_back(record.own());
      }
    }
    for (const auto& [handle, block] : blocks_) {
      for (std::size_t i = 0; i < block.entities.size(); ++i)
        neighbours_[block.entities[i]] = {i == 0 ? 0 : block.entities[i - 1],
                                          i + 1 == block.entities.size() ? 0 : block.entities[i + 1]};
    }
  }

  Handle named(std::string_view table, std::string_view name) const {
    const auto found = named_.find({table, name});
    if (found == named_.end())
      throw std::runtime_error("the plan has no " + std::string(table) + " " + std::string(name));
    return found->second;
  }

  void add(ObjectKind kind, Handle handle, const FieldChanges& values) {
    const auto object = build(kind, Version::kR2000, handle, values, {});
    if (!object.ok()) throw std::runtime_error("an object of the plan cannot be made");
    changes_.objects.push_back({handle, false, object.value().data, object.value().handleBits});
  }

  void makeControl(std::string_view type, ObjectKind kind, Handle handle) {
    FieldChanges values;
    std::uint32_t count = 0;
    for (const Handle entry : listed_[type]) {
      const bool isApart =
          entry == kModelSpace || entry == kPaperSpace || entry == kByBlock || entry == kByLayer;
      if (!isApart) values.setHandle("entry", entry, count++);
    }
    values.set("entry count", count);
    if (type == "BLOCK_RECORD")
      values.setHandle("model space", kModelSpace), values.setHandle("paper space", kPaperSpace);
    if (type == "LTYPE") values.setHandle("by block", kByBlock), values.setHandle("by layer", kByLayer);
    add(kind, handle, values);
  }

  void make(const Source& record) {
    const std::string_view type = record.type();
    if (kControls.contains(type)) return makeTableRecord(record);
    if (type == "DICTIONARY") return add(ObjectKind::kDictionary, record.own(), {});
    if (record.own() == 0 || type == "TABLE" || type == "SECTION") return;
    FieldChanges values;
    makeCommon(record, values);
    add(makeOwn(record, values), record.own(), values);
  }

  void makeTableRecord(const Source& record) {
    const std::string_view type = record.type();
    std::string name(record.text(2));
    if (type == "BLOCK_RECORD" && name.starts_with("*D")) name = "*D";
    FieldChanges values;
    values.setHandle("owner", kControls.at(type).second);
    values.set("name", Value(name));
    ObjectKind kind = ObjectKind::kAppId;
    if (type == "LTYPE") kind = ObjectKind::kLinetype;
    if (type == "LAYER") {
      kind = ObjectKind::kLayer;
      Color color;
      color.number = static_cast<std::int16_t>(record.integer(62));
      values.setColor("color", color);
      values.setHandle("linetype", named("LTYPE", record.text(6)));
    } else if (type == "STYLE") {
      kind = ObjectKind::kStyle;
      values.set("last height", record.real(42));
      values.set("font", Value(std::string(record.text(3))));
      values.set("big font", Value(std::string(record.text(4))));
    } else if (type == "DIMSTYLE") {
      kind = ObjectKind::kDimStyle;
      for (const auto& [code, variable] : {std::pair{40, "DIMSCALE"},
                                           {41, "DIMASZ"},
                                           {42, "DIMEXO"},
                                           {44, "DIMEXE"},
                                           {140, "DIMTXT"},
                                           {147, "DIMGAP"}})
        values.set(variable, record.real(code));
      for (const auto& [code, variable] : {std::pair{77, "DIMTAD"}, {78, "DIMZIN"}, {271, "DIMDEC"}})
        values.set(variable, record.integer(code));
      Color byBlock;
      byBlock.number = 0;
      for (const char* variable : {"DIMCLRD", "DIMCLRE", "DIMCLRT"}) values.setColor(variable, byBlock);
      values.set("DIMTOFL", true), values.set("DIMTOLJ", 0);
      values.setHandle("DIMTXSTY", kStandard);
    } else if (type == "BLOCK_RECORD") {
      kind = ObjectKind::kBlockHeader;
      const Block& block = blocks_[record.own()];
      values.set("anonymous", name == "*D");
      values.setHandle("block", block.begin), values.setHandle("end of block", block.end);
      if (!block.entities.empty())
        values.setHandle("first entity", block.entities.front()),
            values.setHandle("last entity", block.entities.back());
    }
    add(kind, record.own(), values);
  }

  void makeCommon(const Source& record, FieldChanges& values) {
    const Handle owner = record.handle(330), own = record.own();
    values.set("entity mode", owner == kModelSpace ? 2 : owner == kPaperSpace ? 1 : 0);
    if (owner != kModelSpace && owner != kPaperSpace) values.setHandle("owner", owner);
    if (const auto found = neighbours_.find(own); found != neighbours_.end()) {
      const auto& [previous, next] = found->second;
      const bool isChain = previous + 1 == own && next == own + 1;
      values.set("no links", isChain);
      if (!isChain) values.setHandle("previous", previous), values.setHandle("next", next);
    }
    Color color;
    color.number = static_cast<std::int16_t>(record.integer(62, 256));
    values.setColor("color", color);
    values.setHandle("layer", named("LAYER", record.text(8)));
  }

  ObjectKind makeOwn(const Source& record, FieldChanges& values) const {
    const std::string_view type = record.type();
    const auto text = [&](const char* field, int code) {
      values.set(field, Value(std::string(record.text(code))));
    };
    const auto real = [&](const char* field, int code) { values.set(field, record.real(code)); };
    const auto angle = [&](const char* field, int code) { values.set(field, radians(record.real(code))); };
    const auto point = [&](const char* field, int code, unsigned index = 0) {
      values.set(field, Value(record.point(code, index)), index);
    };
    if (type == "BLOCK") return text("name", 2), ObjectKind::kBlock;
    if (type == "ENDBLK") return ObjectKind::kEndblk;
    if (type == "LINE") return point("start", 10), point("end", 11), ObjectKind::kLine;
    if (type == "POINT") return point("point", 10), ObjectKind::kPoint;
    if (type == "CIRCLE" || type == "ARC") {
      point("center", 10), real("radius", 40);
      if (type == "CIRCLE") return ObjectKind::kCircle;
      return angle("start angle", 50), angle("end angle", 51), ObjectKind::kArc;
    }
    if (type == "SOLID") {
      for (unsigned i = 0; i < 4; ++i) values.set("corner", Value(record.point(10 + static_cast<int>(i))), i);
      return ObjectKind::kSolid;
    }
    if (type == "LWPOLYLINE") {
      const auto count = static_cast<unsigned>(record.integer(90));
      values.set("flags", 512), values.set("vertex count", count);
      for (unsigned i = 0; i < count; ++i) point("vertex", 10, i);
      return ObjectKind::kLwpolyline;
    }
    if (type == "TEXT") {
      point("insertion point", 10), real("height", 40), text("text", 1), angle("rotation", 50);
      values.set("width factor", record.real(41, 1)), values.setHandle("style", kStandard);
      return ObjectKind::kText;
    }
    if (type == "MTEXT") {
      point("insertion point", 10), real("height", 40), real("reference width", 41), text("text", 1);
      values.set("attachment", record.integer(71)), values.set("drawing direction", record.integer(72));
      values.setHandle("style", kStandard);
      return ObjectKind::kMtext;
    }
    if (type == "INSERT") {
      point("insertion point", 10), angle("rotation", 50);
      values.setHandle("block", named("BLOCK_RECORD", record.text(2)));
      return ObjectKind::kInsert;
    }
    if (type == "DIMENSION") {
      point("text midpoint", 11), real("measurement", 42);
      values.set("flags 1", kTextAtHome);
      for (const auto& [field, code] : {std::pair{"point 10", 10}, {"point 13", 13}, {"point 14", 14}})
        point(field, code);
      values.set("attachment", record.integer(71));
      values.setHandle("dimension style", named("DIMSTYLE", record.text(3)));
      values.setHandle("block", named("BLOCK_RECORD", record.text(2)));
      return ObjectKind::kDimensionLinear;
    }
    if (type == "HATCH") {
      const auto count = static_cast<unsigned>(record.integer(93));
      text("name", 2), values.set("solid", true);
      values.set("path count", 1), values.set("path flags", record.integer(92));
      values.set("closed", true), values.set("point count", count);
      for (unsigned i = 0; i < count; ++i) values.set("point", Value(record.point(10, i + 1)), i);
      values.set("pattern type", record.integer(76));
      return ObjectKind::kHatch;
    }
    throw std::runtime_error("the plan has an object of the type " + std::string(type));
  }

  // The objects are added to a file that has a header and one object of no meaning.
  std::string written() {
    FieldChanges variables;
    variables.setHandle("HANDSEED", 0xFFFFFF);
    variables.set("TILEMODE", true);
    SmallDrawing seed;
    seed.classes.clear();
    seed.header = headerSection(Version::kR2000, variables);
    seed.objects = {{1, changes_.objects.front().data}};
    const auto file = readBytes(bytesOf(seed));
    if (!file.ok()) throw std::runtime_error("the file cannot be made");
    std::ranges::sort(changes_.objects, {}, &ChangedObject::handle);
    auto bytes = file.value()->write(changes_);
    if (!bytes.ok()) throw std::runtime_error("the objects cannot be written");
    return std::move(bytes.value());
  }

  const std::vector<Source>& records_;
  std::map<Handle, Block> blocks_;  // by their table entries
  std::map<Handle, std::pair<Handle, Handle>> neighbours_;
  std::map<std::pair<std::string_view, std::string_view>, Handle> named_;
  std::map<std::string_view, std::vector<Handle>> listed_;
  FileChanges changes_;
};

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) return std::fprintf(stderr, "make_dwg PLAN.dxf OUT.dwg\n"), 2;
  try {
    std::ostringstream plan;
    plan << std::ifstream(argv[1], std::ios::binary).rdbuf();
    const std::string text = plan.str();
    const std::vector<Source> records = recordsOf(text);
    const std::string bytes = Maker(records).made();
    std::ofstream out(argv[2], std::ios::binary);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    out.close();
    if (!out) throw std::runtime_error("the file cannot be written");
  } catch (const std::exception& error) {
    std::fprintf(stderr, "make_dwg: %s\n", error.what());
    return 2;
  }
  return 0;
}
