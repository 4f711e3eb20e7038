// An empty drawing in code page 932, with what every drawing has.

#include <cstdlib>
#include <string>
#include <utility>

#include "embedded/dxf/dialect.h"
#include "embedded/dxf/group_writer.h"
#include "embedded/dxf/loader.h"

namespace cad::dxf {
namespace {

// Handles of the records that others refer to.
constexpr Handle kSeed = 0x100, kBlockRecords = 0x1, kLayers = 0x2, kStyles = 0x3, kLinetypes = 0x5,
                 kViews = 0x6;
constexpr Handle kUcs = 0x7, kViewports = 0x8, kAppIds = 0x9, kDimStyles = 0xA, kStandardStyle = 0x11;
constexpr Handle kRoot = 0xC, kGroups = 0xD, kModel = 0x1F, kPaper = 0x1B;

class Template {
 public:
  explicit Template(Version version) : version_(version) {}

  std::string build() {
    header();
    tables();
    blocks();
    section("ENTITIES");
    end("ENDSEC");
    objects();
    end("EOF");
    return out_.take();
  }

 private:
  void section(std::string_view name) {
    out_.text(0, "SECTION");
    out_.text(2, name);
  }
  void end(std::string_view type) { out_.text(0, type); }

  void header() {
    section("HEADER");
    out_.text(9, "$ACADVER");
    out_.text(1, versionCode(version_));
    out_.text(9, "$DWGCODEPAGE");
    out_.text(3, "ANSI_932");
    out_.text(9, "$CLAYER");
    out_.text(8, "0");
    out_.text(9, "$HANDSEED");
    out_.handle(5, kSeed);
    end("ENDSEC");
  }

  void table(std::string_view name, Handle handle, int count) {
    out_.text(0, "TABLE");
    out_.text(2, name);
    out_.handle(5, handle);
    out_.handle(330, 0);
    out_.text(100, "AcDbSymbolTable");
    out_.integer(70, count);
  }
  void entry(std::string_view type, Handle handle, Handle owner, std::string_view subclass,
             std::string_view name) {
    out_.text(0, type);
    out_.handle(type == "DIMSTYLE" ? 105 : 5, handle);
    out_.handle(330, owner);
    out_.text(100, "AcDbSymbolTableRecord");
    out_.text(100, subclass);
    out_.text(2, name);
    if (type != "BLOCK_RECORD") out_.integer(70, 0);
  }

  void tables() {
    section("TABLES");
    viewports();
    linetypes();
    layersAndStyles();
    namesAndDimensions();
    table("BLOCK_RECORD", kBlockRecords, 2);
    blockRecord(kModel, "*Model_Space");
    blockRecord(kPaper, "*Paper_Space");
    end("ENDTAB");
    end("ENDSEC");
  }
  void blockRecord(Handle handle, std::string_view name) {
    entry("BLOCK_RECORD", handle, kBlockRecords, "AcDbBlockTableRecord", name);
    out_.handle(340, 0);
    if (version_ < Version::kR2007) return;
    out_.integer(70, 0);   // units
    out_.integer(280, 1);  // may be exploded
    out_.integer(281, 0);  // may be scaled unevenly
  }
  void viewports() {
    table("VPORT", kViewports, 0);
    end("ENDTAB");
    table("VIEW", kViews, 0);
    end("ENDTAB");
    table("UCS", kUcs, 0);
    end("ENDTAB");
  }
  void linetypes() {
    table("LTYPE", kLinetypes, 3);
    Handle handle = 0x14;
    for (const auto& [name, description] : {std::pair<std::string_view, std::string_view>{"ByBlock", ""},
                                            {"ByLayer", ""},
                                            {"Continuous", "Solid line"}}) {
      entry("LTYPE", handle++, kLinetypes, "AcDbLinetypeTableRecord", name);
      out_.text(3, description);
      out_.integer(72, 65);
      out_.integer(73, 0);
      out_.real(40, 0);
    }
    end("ENDTAB");
  }
  void layersAndStyles() {
    table("LAYER", kLayers, 1);
    entry("LAYER", 0x10, kLayers, "AcDbLayerTableRecord", "0");
    out_.integer(62, 7);
    out_.text(6, "Continuous");
    out_.integer(370, -3);
    end("ENDTAB");
    table("STYLE", kStyles, 1);
    entry("STYLE", kStandardStyle, kStyles, "AcDbTextStyleTableRecord", "Standard");
    out_.real(40, 0);
    out_.real(41, 1);
    out_.real(50, 0);
    out_.integer(71, 0);
    out_.real(42, 2.5);
    out_.text(3, "txt");
    out_.text(4, "");
    end("ENDTAB");
  }
  void namesAndDimensions() {
    table("APPID", kAppIds, 1);
    entry("APPID", 0x12, kAppIds, "AcDbRegAppTableRecord", "ACAD");
    end("ENDTAB");
    table("DIMSTYLE", kDimStyles, 1);
    out_.text(100, "AcDbDimStyleTable");
    entry("DIMSTYLE", 0x27, kDimStyles, "AcDbDimStyleTableRecord", "Standard");
    out_.handle(340, kStandardStyle);
    end("ENDTAB");
  }

  void block(std::string_view name, Handle owner, Handle first, bool paper) {
    for (const bool begin : {true, false}) {
      out_.text(0, begin ? "BLOCK" : "ENDBLK");
      out_.handle(5, begin ? first : first + 1);
      out_.handle(330, owner);
      out_.text(100, "AcDbEntity");
      if (paper) out_.integer(67, 1);
      out_.text(8, "0");
      out_.text(100, begin ? "AcDbBlockBegin" : "AcDbBlockEnd");
      if (!begin) continue;
      out_.text(2, name);
      out_.integer(70, 0);
      out_.point(10, 0, 0, 0);
      out_.text(3, name);
      out_.text(1, "");
    }
  }
  void blocks() {
    section("BLOCKS");
    block("*Model_Space", kModel, 0x20, false);
    block("*Paper_Space", kPaper, 0x22, true);
    end("ENDSEC");
  }

  void dictionary(Handle handle, Handle owner) {
    out_.text(0, "DICTIONARY");
    out_.handle(5, handle);
    out_.handle(330, owner);
    out_.text(100, "AcDbDictionary");
    out_.integer(281, 1);
  }
  void objects() {
    section("OBJECTS");
    dictionary(kRoot, 0);
    out_.text(3, "ACAD_GROUP");
    out_.handle(350, kGroups);
    dictionary(kGroups, kRoot);
    end("ENDSEC");
  }

  Version version_;
  Dialect dialect_;
  GroupWriter out_{dialect_};
};

}  // namespace

std::unique_ptr<Drawing> newDrawing(Version version) {
  auto made = loadBytes(Template(version).build());
  if (!made) std::abort();  // the bytes above do not depend on anything
  return std::move(made.value());
}

}  // namespace cad::dxf
