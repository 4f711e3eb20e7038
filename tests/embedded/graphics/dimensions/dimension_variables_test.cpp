// Each dimension variable governs its part of the picture, and no other.

#include <gtest/gtest.h>

#include <set>

#include "embedded/graphics/dimensions/redraw.h"
#include "tests/embedded/dxf/dxf_text.h"
#include "tests/embedded/graphics/dimensions/settings.h"

namespace cad {
namespace {

// Lines of dimensions are red, what stands for extension lines is yellow, texts are green: an entity's colour
// and type tell which part of the picture it is.
constexpr char kStyle[] =
    "0 TABLE|2 DIMSTYLE|0 DIMSTYLE|105 30|100 AcDbSymbolTableRecord|100 AcDbDimStyleTableRecord|2 OFFICE|70 "
    "0|41 2.5|42 0.625|44 1.25|73 0|74 0|77 1|78 8|140 2.5|141 2.5|147 0.625|172 0|176 1|177 2|178 3|179 2|"
    "271 2|272 2|283 0|0 ENDTAB";

std::string recordOf(std::string_view name, int number) {
  const std::string handle = std::to_string(number);
  return "0 BLOCK_RECORD|5 2" + handle + "|100 AcDbSymbolTableRecord|100 AcDbBlockTableRecord|2 " +
         std::string(name) + "|";
}

std::string block(std::string_view name) {
  const std::string text(name);
  return "0 BLOCK|8 0|2 " + text + "|70 1|10 0|20 0|30 0|3 " + text + "|1 |0 ENDBLK|8 0|";
}

std::string dimension(char name, std::string_view groups) {
  constexpr char kHead[] = "|100 AcDbEntity|8 0|100 AcDbDimension|3 OFFICE|2 *D";
  return std::string("0 DIMENSION|5 ") + std::to_string(static_cast<int>(name)) + kHead + name + "|" +
         std::string(groups) + "|";
}

// By the last letter of the block: wide, Narrow, narrower still (M), Vertical, sloping (Z), placed by a
// person (U), Angular, Radial.
std::string drawingText() {
  constexpr std::string_view kBlocks[] = {"*DW", "*DN", "*DM", "*DV", "*DZ", "*DU", "*DA", "*DR", "_Dot"};
  std::string tables = "0 TABLE|2 BLOCK_RECORD|";
  std::string blocks;
  for (std::size_t i = 0; i < std::size(kBlocks); ++i) {
    tables += recordOf(kBlocks[i], static_cast<int>(10 + i));
    blocks += block(kBlocks[i]);
  }
  tables +=
      "0 ENDTAB|0 TABLE|2 LTYPE|0 LTYPE|5 40|100 AcDbSymbolTableRecord|100 AcDbLinetypeTableRecord|2 "
      "DASH|70 0|3 |72 65|73 0|40 0|0 ENDTAB|0 TABLE|2 STYLE|0 STYLE|5 41|100 AcDbSymbolTableRecord|100 "
      "AcDbTextStyleTableRecord|2 WIDE|70 0|40 0|41 2|50 0|71 0|42 2.5|3 romans.shx|4 |0 ENDTAB|";
  std::string dimensions;
  dimensions += dimension('W', "10 146.725|20 10|11 0|21 0|70 32|13 0|23 0|14 146.725|24 1");
  dimensions += dimension('N', "10 7|20 10|11 0|21 0|70 32|13 0|23 0|14 7|24 1");
  dimensions += dimension('M', "10 2|20 10|11 0|21 0|70 32|13 0|23 0|14 2|24 1");
  dimensions += dimension('V', "10 10|20 46.7|11 0|21 0|70 32|50 90|13 0|23 0|14 1|24 46.7");
  dimensions += dimension('Z', "10 10|20 0|11 0|21 0|70 33|13 0|23 10|14 1.6|24 11.2");
  dimensions += dimension('U', "10 46.7|20 10|11 60|21 18|70 160|13 0|23 0|14 46.7|24 1");
  dimensions += dimension('A', "10 28|20 28|11 0|21 0|70 37|13 30|23 0|14 0|24 30|15 0|25 0");
  dimensions += dimension('R', "10 0|20 0|11 42|21 0|70 164|15 30|25 0");
  return dxf::groups("0 SECTION|2 HEADER|9 $ACADVER|1 AC1027|9 $HANDSEED|5 400|0 ENDSEC|0 SECTION|2 TABLES|" +
                     tables + kStyle + "|0 ENDSEC|0 SECTION|2 BLOCKS|" + blocks +
                     "0 ENDSEC|0 SECTION|2 ENTITIES|" + dimensions + "0 ENDSEC|0 EOF");
}

// d dimension line, a arrow, e extension line or centre mark, t text, p definition point.
char partOf(const BlockEntity& entity) {
  if (entity.type == "POINT") return 'p';
  if (entity.type == "MTEXT") return 't';
  if (entity.type == "SOLID" || entity.type == "INSERT") return 'a';
  return entity.color == 2 ? 'e' : 'd';
}

struct Case {
  const char* settings;  // "DIMTOL=1 DIMTP=0.5": the last one is the change
  char dimension;
  const char* parts;  // which change, in alphabetical order
};

constexpr Case kCases[] = {
    {"DIMADEC=1", 'A', "t"},
    {"DIMALT=1", 'W', "t"},
    {"DIMALT=1 DIMALTD=4", 'W', "t"},
    {"DIMALT=1 DIMALTF=10", 'W', "t"},
    {"DIMALT=1 DIMALTRND=5", 'W', "t"},
    {"DIMALT=1 DIMTOL=1 DIMTP=0.5 DIMALTTD=4", 'W', "t"},
    {"DIMALT=1 DIMTOL=1 DIMTP=0.5 DIMALTTZ=8", 'W', "t"},
    {"DIMALT=1 DIMALTU=1", 'W', "t"},
    {"DIMALT=1 DIMALTF=2 DIMALTD=3 DIMALTZ=8", 'W', "t"},
    {"DIMALT=1 DIMAPOST=inch", 'W', "t"},
    {"DIMASO=0", 'W', ""},
    {"DIMASZ=4", 'W', "ad"},
    {"DIMAUNIT=2", 'A', "t"},
    {"DIMAZIN=2", 'A', "t"},
    {"DIMBLK=_Dot", 'W', "a"},
    {"DIMSAH=1 DIMBLK1=_Dot", 'W', "a"},
    {"DIMSAH=1 DIMBLK2=_Dot", 'W', "a"},
    {"DIMCEN=4", 'R', "e"},
    {"DIMCLRD=5", 'W', "ad"},
    {"DIMCLRE=5", 'W', "e"},
    {"DIMCLRT=5", 'W', "t"},
    {"DIMDEC=1", 'W', "t"},
    {"DIMTSZ=1 DIMDLE=2", 'W', "d"},
    {"DIMDLI=9", 'W', ""},
    {"DIMDSEP=44", 'W', "t"},
    {"DIMEXE=3", 'W', "e"},
    {"DIMEXO=2", 'W', "e"},
    {"DIMLUNIT=5 DIMFRAC=2", 'W', "t"},
    {"DIMFXLON=1", 'W', "e"},
    {"DIMFXLON=1 DIMFXL=3", 'W', "e"},
    {"DIMGAP=2", 'W', "t"},
    {"DIMJUST=1", 'W', "t"},
    {"DIMLDRBLK=_Dot", 'W', ""},
    {"DIMLFAC=2", 'W', "t"},
    {"DIMTP=0.5 DIMLIM=1", 'W', "t"},
    {"DIMLTYPE=DASH", 'W', "d"},
    {"DIMLTEX1=DASH", 'W', "e"},
    {"DIMLTEX2=DASH", 'W', "e"},
    {"DIMLUNIT=4", 'W', "t"},
    {"DIMLWD=50", 'W', "d"},
    {"DIMLWE=50", 'W', "e"},
    {"DIMPOST=<>mm", 'W', "t"},
    {"DIMRND=10", 'W', "t"},
    {"DIMBLK1=_Dot DIMSAH=1", 'W', "a"},
    {"DIMSCALE=1.2", 'W', "adet"},
    {"DIMSD1=1", 'W', "ad"},
    {"DIMSD2=1", 'W', "ad"},
    {"DIMSE1=1", 'W', "e"},
    {"DIMSE2=1", 'W', "e"},
    {"DIMSHO=0", 'W', ""},
    {"DIMTAD=0", 'W', "dt"},
    {"DIMTOL=1 DIMTP=0.125 DIMTDEC=1", 'W', "t"},
    {"DIMTOL=1 DIMTP=0.5 DIMTFAC=0.6", 'W', "t"},
    {"DIMTFILL=1", 'W', "t"},
    {"DIMTFILL=2 DIMTFILLCLR=6", 'W', "t"},
    {"DIMTIH=1", 'V', "dt"},
    {"DIMTOL=1 DIMTM=0.5", 'W', "t"},
    {"DIMTMOVE=2", 'U', "dt"},
    {"DIMTOL=1 DIMTP=0.5 DIMTOLJ=1", 'W', "t"},
    {"DIMTOL=1", 'W', "t"},
    {"DIMTOL=1 DIMTP=0.5", 'W', "t"},
    {"DIMTAD=0 DIMTVP=2", 'W', "dt"},
    {"DIMTXSTY=WIDE", 'W', "t"},
    {"DIMTXT=3", 'W', "t"},
    {"DIMTOL=1 DIMTP=0.5 DIMTZIN=8", 'W', "t"},
    {"DIMUPT=1", 'W', ""},
    {"DIMRND=0.1 DIMZIN=0", 'W', "t"},
    // The rules of fit, where there is no room.
    {"DIMATFIT=2", 'N', "adt"},
    {"DIMTIX=1 DIMSOXD=1", 'N', "ad"},
    {"DIMTIX=1", 'M', "dt"},
    {"DIMTOFL=1", 'N', "d"},
    {"DIMTOH=1", 'Z', "dt"},
    {"DIMTSZ=1", 'W', "ad"},
};

class DimensionVariables : public ::testing::Test {
 protected:
  std::unique_ptr<Drawing> drawing_ = dxf::read(drawingText());

  RecordId find(char name) const {
    const std::wstring wanted = L"*D" + std::wstring(1, static_cast<wchar_t>(name));
    for (RecordId id = 0; id < drawing_->recordCount(); ++id) {
      if (drawing_->typeName(id) == "DIMENSION" && drawing_->text(id, Property::kDimBlock) == wanted)
        return id;
    }
    return kNoRecord;
  }

  // The name of the last variable.
  std::string set(RecordId id, std::string_view settings) {
    std::string name;
    forEachSetting(settings, [&](const DimVariableInfo& info, const Variable& value) {
      name = info.name;
      EXPECT_TRUE(info.isOfHeaderOnly() || drawing_->setDimVariable(id, info, value).ok()) << name;
    });
    return name;
  }

  std::vector<BlockEntity> picture(RecordId id) {
    DimRedraw redraw(*drawing_, {});
    const DimRedraw::Result result = redraw.picture(id, drawing_->record(id));
    EXPECT_FALSE(keepsBlock(result.outcome));
    return result.entities;
  }

  // A change of colour makes no other part of an entity.
  static std::string partsOf(const std::vector<BlockEntity>& all, const std::vector<BlockEntity>& before) {
    std::string parts;
    for (std::size_t i = 0; i < all.size(); ++i)
      parts += partOf(all.size() == before.size() ? before[i] : all[i]);
    return parts;
  }

  static std::vector<BlockEntity> withPart(const std::vector<BlockEntity>& all, const std::string& parts,
                                           char part) {
    std::vector<BlockEntity> out;
    for (std::size_t i = 0; i < all.size(); ++i) {
      if (parts[i] == part) out.push_back(all[i]);
    }
    return out;
  }

  // The last of the settings is what changes; the name of its variable.
  std::string run(const Case& test) {
    const RecordId id = find(test.dimension);
    const std::string_view settings = test.settings;
    const std::size_t last = settings.rfind(' ') + 1;  // 0 where there is one only
    set(id, settings.substr(0, last));
    const std::vector<BlockEntity> before = picture(id);
    const std::string name = set(id, settings.substr(last));
    const std::vector<BlockEntity> after = picture(id);
    const std::string partsBefore = partsOf(before, before), partsAfter = partsOf(after, before);
    std::string changed;
    for (const char which : {'a', 'd', 'e', 'p', 't'}) {
      if (!differences(withPart(after, partsAfter, which), withPart(before, partsBefore, which), {}).empty())
        changed += which;
    }
    EXPECT_EQ(changed, test.parts) << test.settings << " on " << test.dimension;
    return name;
  }
};

TEST_F(DimensionVariables, GovernTheirPartOfThePicture) {
  std::set<std::string, std::less<>> tested;
  for (const Case& test : kCases) {
    drawing_ = dxf::read(drawingText());
    tested.insert(run(test));
  }
  const auto isMissing = [&](const DimVariableInfo& info) {
    return info.isOffered() && !tested.contains(info.name);
  };
  for (const DimVariableInfo& info : kDimVariables) EXPECT_FALSE(isMissing(info)) << info.name;
}

}  // namespace
}  // namespace cad
