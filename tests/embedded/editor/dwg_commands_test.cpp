// The commands on DWG drawings: their own format, and what of one format goes into the other.

#include "acedCmdNF.h"
#include "tests/embedded/dwg/whole_drawing.h"
#include "tests/embedded/editor/host_fixture.h"
#include "tests/support/in_command.h"

namespace {

using cad::Property;
using cad::RecordId;
using cad::Table;
using cad::Version;
using test_support::inCommand;

class DwgCommands : public cad_test::HostTest {
 protected:
  static std::string drawingBytes(Version version = Version::kR2000) {
    return cad::dwg::bytesOf(cad::dwg::wholeDrawing(version));
  }
  std::filesystem::path openDwg(Version version = Version::kR2000) {
    const std::filesystem::path path = make("plan.dwg", drawingBytes(version));
    EXPECT_TRUE(host().execute(L"OPEN " + quoted(path)).ok()) << base::toUtf8(printed_);
    return path;
  }
  std::wstring quoted(const std::filesystem::path& path) { return L"\"" + text(path) + L"\""; }
  bool insert(const std::filesystem::path& file) {
    return host().execute(L"-INSERT " + quoted(file) + L" S 1 R 0 0,0").ok();
  }
  std::size_t blockSize(std::wstring_view name) {
    const RecordId block = drawing().find(Table::kBlock, name);
    return block == cad::kNoRecord ? 0 : drawing().entitiesOf(block).size();
  }
};

TEST_F(DwgCommands, OpenChangeAndQuickSaveInEveryVersion) {
  for (const Version version : {Version::kR13, Version::kR14, Version::kR2000, Version::kR2004,
                                Version::kR2007, Version::kR2010, Version::kR2013, Version::kR2018}) {
    const std::filesystem::path path = openDwg(version);
    ASSERT_EQ(drawing().path(), path);
    ASSERT_TRUE(drawing().setInteger(drawing().findHandle(0x30), Property::kColorIndex, 3).ok());
    EXPECT_TRUE(host().execute(L"QSAVE").ok()) << base::toUtf8(printed_);
    ASSERT_TRUE(host().closeDocument().ok());
    ASSERT_TRUE(host().openDocument(path).ok());
    EXPECT_EQ(drawing().facts().version, version);
    EXPECT_EQ(drawing().integer(drawing().findHandle(0x30), Property::kColorIndex), 3);
    ASSERT_TRUE(host().closeDocument().ok());
  }
}

TEST_F(DwgCommands, SaveAsKeepsFormatAndVersion) {
  openDwg();
  const auto saveAs = [&](const wchar_t* word, const std::string& name) {
    const std::wstring path = text(folder_ / name);
    int result = RTERROR;
    inCommand([&] {
      result = acedCommandS(RTSTR, L"SAVEAS", RTSTR, word, RTSTR, path.c_str(), RTNONE);
      acedCommandS();
    });
    return result;
  };
  EXPECT_EQ(saveAs(L"2018", "copy"), RTNORM) << base::toUtf8(printed_);
  EXPECT_EQ(content(folder_ / "copy.DWG"), drawingBytes());
  EXPECT_EQ(saveAs(L"T", "copy"), RTNORM) << base::toUtf8(printed_);
  EXPECT_EQ(content(folder_ / "copy.DWT"), drawingBytes());
  EXPECT_EQ(saveAs(L"DXF", "copy.DXF"), RTERROR);
  EXPECT_TRUE(printedHas(L"saving a DWG drawing as DXF is not supported yet"));
  EXPECT_FALSE(exists("copy.DXF"));
}

TEST_F(DwgCommands, InsertedDrawingsBecomeBlocksAndUndoTakesThemBack) {
  const std::filesystem::path part = make("part.dwg", drawingBytes(Version::kR2018));
  const std::filesystem::path plan = make("other.dxf", cad_test::drawingText());
  openDwg();
  ASSERT_TRUE(insert(part)) << base::toUtf8(printed_);
  EXPECT_EQ(blockSize(L"PART"), 3U);
  ASSERT_TRUE(insert(plan)) << base::toUtf8(printed_);
  EXPECT_EQ(blockSize(L"OTHER"), 5U);
  EXPECT_NE(drawing().find(Table::kLayer, L"WALL-A"), cad::kNoRecord);
  EXPECT_EQ(drawing().entitiesOf(drawing().modelSpace()).size(), 5U);
  ASSERT_TRUE(host().execute(L"U").ok() && host().execute(L"U").ok());
  EXPECT_EQ(savedBytes(), drawingBytes());
}

TEST_F(DwgCommands, ADwgDrawingGoesIntoADxfDrawing) {
  const std::filesystem::path part = make("part.dwg", drawingBytes(Version::kR2018));
  open();
  ASSERT_TRUE(insert(part)) << base::toUtf8(printed_);
  EXPECT_EQ(blockSize(L"PART"), 3U);
  EXPECT_EQ(blockSize(L"MARK"), 1U);
  EXPECT_NE(drawing().find(Table::kLayer, L"WALL"), cad::kNoRecord);
  ASSERT_TRUE(host().execute(L"U").ok());
  EXPECT_EQ(savedBytes(), cad_test::drawingText());
}

TEST_F(DwgCommands, WhatIsDamagedIsToldWhenItIsOpened) {
  cad::dwg::SmallDrawing damaged = cad::dwg::wholeDrawing(Version::kR2000);
  for (cad::dwg::SmallObject& object : damaged.objects)
    if (object.handle == 0x31) object.data.assign(object.data.size(), '\xFF');
  ASSERT_TRUE(host().openDocument(make("damaged.dwg", cad::dwg::bytesOf(damaged))).ok());
  EXPECT_TRUE(printedHas(L"1 of its objects cannot be read and stays as it came (31)"));
}

}  // namespace
