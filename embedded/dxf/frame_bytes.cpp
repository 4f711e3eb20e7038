// The records that frame sections and tables, for files that lack them.

#include "embedded/dxf/dxf_storage.h"
#include "embedded/dxf/group_writer.h"

namespace cad::dxf {
namespace {

constexpr std::string_view kSectionNames[] = {"HEADER", "TABLES", "BLOCKS", "ENTITIES", "OBJECTS"};
constexpr std::string_view kTableNames[] = {"",      "LAYER", "LTYPE", "STYLE", "DIMSTYLE",    "BLOCK",
                                            "APPID", "VIEW",  "UCS",   "VPORT", "BLOCK_RECORD"};

}  // namespace

std::string DxfStorage::sectionBytes(Section section, bool end) const {
  GroupWriter writer(dialect_);
  writer.text(0, end ? "ENDSEC" : "SECTION");
  if (!end) writer.text(2, kSectionNames[static_cast<std::size_t>(section)]);
  return writer.take();
}

std::string DxfStorage::tableBytes(Table table, std::optional<Handle> handle, bool end) const {
  GroupWriter writer(dialect_);
  writer.text(0, end ? "ENDTAB" : "TABLE");
  if (end) return writer.take();
  writer.text(2, kTableNames[static_cast<std::size_t>(table)]);
  if (handle) writer.handle(5, *handle);
  if (facts_.version >= Version::kR2000) writer.handle(330, 0);
  if (facts_.version >= Version::kR13) writer.text(100, "AcDbSymbolTable");
  writer.integer(70, 0);
  if (table == Table::kDimStyle && facts_.version >= Version::kR2000) writer.text(100, "AcDbDimStyleTable");
  return writer.take();
}

}  // namespace cad::dxf
