#include "cadhost/drawing_kinds.h"

#include "embedded/editor/host.h"
#include "tests/embedded/dwg/whole_drawing.h"
#include "tests/support/temp_folder.h"

namespace cadhost {
namespace {

class DrawingKinds : public test_support::TempFolder {
 protected:
  void SetUp() override { host.start(); }
  void TearDown() override { host.stop(); }

  void open(const char* name) { ASSERT_TRUE(host.openDocument(make(name, dwg)).ok()); }
  std::wstring proposed(const char* name) {
    return base::pathText(proposedFile(name, host.currentDrawing()));
  }
  bool saves(const char* name) {
    const std::wstring path = base::pathText(folder_ / name);
    return host.execute(saveLine(path, host.currentDrawing())).ok();
  }

  cad::Host& host = cad::Host::instance();
  const std::string dwg = cad::dwg::bytesOf(cad::dwg::wholeDrawing(base::Version::kR2004));
};

TEST_F(DrawingKinds, ADwgDrawingIsSavedAsDwgAndAsTemplateUnderAnyName) {
  open("plan one.dwg");
  EXPECT_EQ(host.currentDrawing().format(), L"DWG");
  EXPECT_EQ(proposed("plan.dwg"), L"plan.dwg");
  EXPECT_EQ(proposed("plan.DWT"), L"plan.DWT");
  EXPECT_EQ(proposed("plan.dxf"), L"plan.dwg");
  for (const char* name : {"copy.dwg", "my copy.dwt", "copy.bak", "plan one.dwg"}) {
    EXPECT_TRUE(saves(name)) << name;
    EXPECT_EQ(content(name), dwg) << name;
  }
  EXPECT_FALSE(saves("copy.dxf"));
  EXPECT_FALSE(std::filesystem::exists(folder_ / "copy.dxf"));
  const std::wstring filter = saveFilter(host.currentDrawing());
  EXPECT_NE(filter.find(L"*.dwt"), filter.npos);
  EXPECT_EQ(filter.find(L"dxf"), filter.npos);
}

TEST_F(DrawingKinds, ADxfDrawingIsSavedAsDxf) {
  EXPECT_EQ(proposed("Drawing1.dwg"), L"Drawing1.dxf");
  EXPECT_TRUE(saves("a.dxf"));
  EXPECT_TRUE(saves("a.bak"));
  EXPECT_EQ(content("a.bak"), content("a.dxf"));
  EXPECT_FALSE(saves("a.dwg"));
  const std::wstring filter = saveFilter(host.currentDrawing());
  EXPECT_EQ(filter, std::wstring(L"DXF 図面 (*.dxf)\0*.dxf\0すべてのファイル (*.*)\0*.*\0\0", 41));
}

TEST_F(DrawingKinds, TheChooserOffersAllKindsAtOnceFirst) {
  EXPECT_TRUE(openFilter().starts_with(std::wstring(L"図面 (*.dwg;*.dxf;*.dwt)\0*.dwg;*.dxf;*.dwt\0", 41)));
}

}  // namespace
}  // namespace cadhost
