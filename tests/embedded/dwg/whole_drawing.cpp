#include "tests/embedded/dwg/whole_drawing.h"

#include <stdexcept>

#include "tests/embedded/dwg/dwg_copy.h"
#include "tests/embedded/dxf/dxf_text.h"

namespace cad::dwg {
namespace {

constexpr std::string_view kText =
    "0 SECTION|2 HEADER|9 $ACADVER|1 %|9 $DWGCODEPAGE|3 ANSI_932|9 $CLAYER|8 0|9 $TEXTSTYLE|7 Standard|"
    "9 $DIMSTYLE|2 Standard|9 $TILEMODE|70 1|9 $LTSCALE|40 1.0|0 ENDSEC|0 SECTION|2 TABLES|"
    "0 TABLE|2 LTYPE|5 5|0 LTYPE|5 14|2 ByBlock|70 0|0 LTYPE|5 15|2 ByLayer|70 0|0 LTYPE|5 16|2 Continuous|"
    "70 0|0 ENDTAB|0 TABLE|2 LAYER|5 2|0 LAYER|5 10|2 0|70 0|62 7|6 Continuous|0 LAYER|5 18|2 WALL|70 0|62 1|"
    "6 Continuous|0 ENDTAB|0 TABLE|2 STYLE|5 3|0 STYLE|5 11|2 Standard|70 0|0 ENDTAB|0 TABLE|2 APPID|5 9|"
    "0 APPID|5 12|2 ACAD|70 0|0 ENDTAB|0 TABLE|2 DIMSTYLE|5 A|0 DIMSTYLE|105 17|2 Standard|70 0|0 ENDTAB|"
    "0 TABLE|2 BLOCK_RECORD|5 1|0 BLOCK_RECORD|5 1B|2 *Paper_Space|0 BLOCK_RECORD|5 1F|2 *Model_Space|"
    "0 BLOCK_RECORD|5 25|2 MARK|0 ENDTAB|0 ENDSEC|0 SECTION|2 BLOCKS|"
    "0 BLOCK|5 1C|100 AcDbEntity|8 0|100 AcDbBlockBegin|2 *Paper_Space|70 0|0 ENDBLK|5 1D|100 AcDbEntity|8 0|"
    "0 BLOCK|5 20|100 AcDbEntity|8 0|100 AcDbBlockBegin|2 *Model_Space|70 0|0 ENDBLK|5 21|100 AcDbEntity|8 0|"
    "0 BLOCK|5 26|100 AcDbEntity|8 0|100 AcDbBlockBegin|2 MARK|70 0|10 0.0|20 0.0|"
    "0 CIRCLE|5 28|100 AcDbEntity|8 0|100 AcDbCircle|10 0.0|20 0.0|40 2.0|0 ENDBLK|5 27|100 AcDbEntity|8 0|"
    "0 ENDSEC|0 SECTION|2 ENTITIES|0 LINE|5 30|100 AcDbEntity|8 WALL|100 AcDbLine|10 0.0|20 0.0|11 10.0|21 "
    "5.0|"
    "0 TEXT|5 31|100 AcDbEntity|8 WALL|100 AcDbText|10 0.0|20 0.0|40 2.5|1 one|7 Standard|"
    "0 INSERT|5 32|100 AcDbEntity|8 0|100 AcDbBlockReference|2 MARK|10 3.0|20 4.0|0 ENDSEC|0 EOF";

}  // namespace

SmallDrawing wholeDrawing(Version version) {
  const auto drawing =
      dxf::read(dxf::groups(dxf::replaced(std::string(kText), "%", base::versionCode(version))));
  if (!drawing) throw std::logic_error("the text of the whole drawing is refused");
  const auto file = readBytes(dwgOf(*drawing));
  if (!file.ok()) throw std::logic_error("the whole drawing cannot be read");
  SmallDrawing parts;
  parts.version = version;
  parts.header = file.value()->header(), parts.classes = file.value()->classes();
  for (const ObjectPlace& place : file.value()->places()) {
    const ObjectBytes object = file.value()->objectOf(place);
    parts.objects.push_back({place.handle, std::string(object.data), object.handleBits});
  }
  return parts;
}

}  // namespace cad::dwg
