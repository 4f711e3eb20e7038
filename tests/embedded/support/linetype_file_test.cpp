#include "embedded/support/linetype_file.h"

#include <gtest/gtest.h>

#include "tests/embedded/dxf/dxf_text.h"

namespace cad::support {
namespace {

using dxf::read;
using dxf::saved;

std::filesystem::path shipped(const char* name) {
  return std::filesystem::path(KIV_SOURCE_DIR) / "embedded" / "support" / name;
}

std::unique_ptr<Drawing> drawing() { return read(dxf::drawingText("AC1009", "0 LINE|8 0|62 1")); }

TEST(LinetypeFile, ReadsHeadersPatternsAndComments) {
  const auto all = parseLinetypes(
      ";; a comment\r\n*CHAIN , long, and short __ _\r\n; between\r\n A, .5,-.25 "
      ",+0,-.25\r\n\r\n*\x95\xC7,x\nA,1,-1\n");
  ASSERT_EQ(all.size(), 2u);
  EXPECT_EQ(all[0].name, L"CHAIN");
  EXPECT_EQ(all[0].description, L"long, and short __ _");
  EXPECT_EQ(all[0].dashes, (std::vector<double>{0.5, -0.25, 0, -0.25}));
  EXPECT_EQ(all[0].refusal, L"");
  EXPECT_EQ(all[1].name, L"\x58C1");
}

TEST(LinetypeFile, DefinitionsThatCannotBeUsedSayWhy) {
  const auto all = parseLinetypes(
      "*GAS,x\nA,.5,-.2,[\"GAS\",STANDARD,S=.1,R=0.0,X=-0.1,Y=-.05],-.25\n*BAD,x\nA,one,-1\n*GAP,x\nA,-1,1\n"
      "*LONG,x\nA,1,-1,1,-1,1,-1,1,-1,1,-1,1,-1,1\n*NONE,x\n*B,x\nB,1,-1\n*SHORT,x\nA,1\n");
  ASSERT_EQ(all.size(), 7u);
  for (const LinetypeDefinition& each : all) EXPECT_NE(each.refusal, L"") << all.size();
  EXPECT_NE(all[0].refusal.find(L"shape file"), std::wstring::npos);
}

TEST(LinetypeFile, NoBytesCanMakeItFail) {
  EXPECT_TRUE(parseLinetypes("").empty());
  EXPECT_TRUE(parseLinetypes("A,1,-1\n").empty());
  EXPECT_EQ(parseLinetypes("*").size(), 1u);
  EXPECT_EQ(parseLinetypes("\xEF\xBB\xBF*\xE5\xA3\x81,x\nA,1,-1").front().name, L"\x58C1");
}

TEST(LinetypeFile, ShippedFilesAreUsableThroughout) {
  for (const char* name : {"acad.lin", "acadiso.lin", "jis.lin"}) {
    const auto bytes = base::readFile(shipped(name));
    ASSERT_TRUE(bytes.ok()) << name;
    const auto all = parseLinetypes(bytes.value());
    EXPECT_GE(all.size(), 14u);
    for (const LinetypeDefinition& each : all) {
      EXPECT_EQ(each.refusal, L"") << base::toUtf8(each.name);
      EXPECT_LE(each.description.size(), 47u) << base::toUtf8(each.name);
    }
  }
}

TEST(LoadLinetypes, AddsOneByNameOnce) {
  auto target = drawing();
  const std::string original = saved(*target);
  ASSERT_TRUE(loadLinetypes(*target, L"center", shipped("acadiso.lin")).ok());
  EXPECT_NE(saved(*target).find(dxf::groups("72 65|73 4|40 50.8|49 31.75|49 -6.35|49 6.35|49 -6.35")),
            std::string::npos);
  EXPECT_NE(target->find(Table::kLinetype, std::wstring_view(L"CENTER")), kNoRecord);
  EXPECT_EQ(target->find(Table::kLinetype, std::wstring_view(L"CENTER2")), kNoRecord);
  EXPECT_FALSE(loadLinetypes(*target, L"CENTER", shipped("acadiso.lin")).ok());
  EXPECT_TRUE(target->undo());
  EXPECT_EQ(saved(*target), original);
}

TEST(LoadLinetypes, PatternsPassOverThoseThatAreThere) {
  auto target = drawing();
  ASSERT_TRUE(loadLinetypes(*target, L"JIS_02_0.7", shipped("jis.lin")).ok());
  ASSERT_TRUE(loadLinetypes(*target, L"jis_02*", shipped("jis.lin")).ok());
  EXPECT_NE(target->find(Table::kLinetype, std::wstring_view(L"JIS_02_4.0")), kNoRecord);
  EXPECT_EQ(target->find(Table::kLinetype, std::wstring_view(L"JIS_08_11")), kNoRecord);
  EXPECT_FALSE(loadLinetypes(*target, L"jis_02*", shipped("jis.lin")).ok());
  EXPECT_FALSE(loadLinetypes(*target, L"NOSUCH", shipped("jis.lin")).ok());
  EXPECT_FALSE(loadLinetypes(*target, L"*", shipped("nosuch.lin")).ok());
}

}  // namespace
}  // namespace cad::support
