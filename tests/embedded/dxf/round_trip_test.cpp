#include <gtest/gtest.h>

#include <bit>
#include <filesystem>

#include "base/fold.h"
#include "embedded/formats/drawing_files.h"
#include "tests/embedded/dxf/dxf_text.h"

namespace cad::dxf {
namespace {

constexpr std::string_view kEntities =
    "0 LINE|5 A1|8 WALL|62 3|10 0.0|20 0.0|11 1.5|21 2.0|"
    "0 TEXT|5 A2|8 TXT|10 1.0|20 1.0|40 2.5|1 ABC|7 ROMANS|"
    "0 UNHEARD_OF|5 A3|8 0|300 kept|1001 APP|1000 x";

// The groups of `text` in binary, for texts whose codes are of the types below.
std::string toBinary(std::string_view text, bool wide) {
  std::string out("AutoCAD Binary DXF\r\n\x1a\0", 22);
  const auto raw = [&](std::uint64_t value, int count) {
    for (int i = 0; i < count; ++i) out += static_cast<char>(value >> (8 * i));
  };
  while (!text.empty()) {
    const auto line = [&] {
      const std::size_t end = text.find('\n');
      const std::string result(text.substr(0, end));
      text.remove_prefix(end + 1);
      return result;
    };
    const int code = std::stoi(line());
    const std::string value = line();
    if (wide) {
      raw(static_cast<std::uint64_t>(code), 2);
    } else if (code < 255) {
      raw(static_cast<std::uint64_t>(code), 1);
    } else {
      raw(255, 1);
      raw(static_cast<std::uint64_t>(code), 2);
    }
    if (code >= 10 && code < 60) {
      raw(std::bit_cast<std::uint64_t>(std::stod(value)), 8);
    } else if (code >= 60 && code < 80) {
      raw(static_cast<std::uint64_t>(std::stoi(value)), 2);
    } else {
      out += value;
      out += '\0';
    }
  }
  return out;
}

TEST(RoundTrip, UntouchedTextDrawingsAreWrittenByteForByte) {
  const std::string lf = drawingText("AC1009", kEntities);
  const std::string crlf = groups("0 SECTION|2 ENTITIES|0 LINE|8 A|0 ENDSEC|0 EOF", "\r\n");
  const std::string mixed = "0\r\nSECTION\n  2\nENTITIES\r\n 0 \nLINE\n8\t\r\nA\n0\nENDSEC\n0\r\nEOF\r\n";
  const std::string comments = groups("999 made by hand|999 twice") + lf + "\n\nbehind the end";
  const std::string noLastLineEnd = lf.substr(0, lf.size() - 1);
  const std::string cr = groups("999 a|0 SECTION|2 ENTITIES|0 LINE|8 A|0 ENDSEC|0 EOF", "\r");
  const std::string crcrlf = groups("0 SECTION|2 ENTITIES|0 LINE|8 A|0 ENDSEC|0 EOF", "\r\r\n");
  for (const std::string& text :
       {lf, crlf, crcrlf, mixed, comments, "\xEF\xBB\xBF" + lf, noLastLineEnd, cr}) {
    const auto drawing = read(text);
    ASSERT_TRUE(drawing) << text;
    EXPECT_EQ(saved(*drawing), text);
  }
}

TEST(RoundTrip, ChangesOfAnyFileKeepItsLineEnds) {
  for (const char* lineEnd : {"\n", "\r\n", "\r\r\n", "\r"}) {
    const auto drawing = read(groups("0 SECTION|2 ENTITIES|0 TEXT|8 A|40 2.5|1 x|0 ENDSEC|0 EOF", lineEnd));
    ASSERT_TRUE(drawing);
    const RecordId text = entity(*drawing, "TEXT");
    EXPECT_EQ(drawing->text(text, Property::kTextString), L"x");
    ASSERT_TRUE(drawing->setReal(text, Property::kTextHeight, 3.5).ok());
    ASSERT_TRUE(drawing->setText(text, Property::kTextString, L"yz").ok());
    ASSERT_TRUE(drawing->setInteger(text, Property::kColorIndex, 4).ok());
    ASSERT_TRUE(drawing->setInteger(text, Property::kColorIndex, 5).ok());
    EXPECT_EQ(saved(*drawing),
              groups("0 SECTION|2 ENTITIES|0 TEXT|8 A|62      5|40 3.5|1 yz|0 ENDSEC|0 EOF", lineEnd));
  }
}

TEST(RoundTrip, SectionsThatNobodyReadsAreKept) {
  const std::string text = groups(
      "0 SECTION|2 CLASSES|0 CLASS|1 X|0 ENDSEC|0 SECTION|2 ENTITIES|0 POINT|8 P|0 ENDSEC|"
      "0 SECTION|2 THUMBNAILIMAGE|90 3|310 00FF00|0 ENDSEC|0 SECTION|2 ACDSDATA|70 2|0 ACDSSCHEMA|90 0|"
      "0 ENDSEC|0 SECTION|2 WHATEVER|1 x|0 THING|8 A|0 ENDSEC|0 EOF");
  const auto drawing = read(text);
  ASSERT_TRUE(drawing);
  EXPECT_EQ(saved(*drawing), text);
  const RecordId point = entity(*drawing, "POINT");
  ASSERT_TRUE(drawing->setInteger(point, Property::kColorIndex, 5).ok());
  EXPECT_EQ(saved(*drawing), replaced(text, "  8\nP\n", "  8\nP\n 62\n5\n"));
  EXPECT_EQ(drawing->find(Table::kLayer, L"A"), kNoRecord) << "a layer named in an unknown section";
}

TEST(RoundTrip, BinaryDrawingsOfBothFlavours) {
  for (const bool wide : {false, true}) {
    const std::string text = drawingText(wide ? "AC1018" : "AC1009", kEntities);
    const std::string binary = toBinary(text, wide);
    const auto drawing = read(binary);
    ASSERT_TRUE(drawing);
    EXPECT_TRUE(storageOf(*drawing).dialect().binary);
    EXPECT_EQ(drawing->facts().codePage, 932);
    EXPECT_EQ(saved(*drawing), binary);
    // A changed binary drawing is the binary form of the changed text drawing.
    ASSERT_TRUE(drawing->setInteger(entity(*drawing, "LINE"), Property::kColorIndex, 7).ok());
    ASSERT_TRUE(drawing->setReal(entity(*drawing, "TEXT"), Property::kTextHeight, 3.25).ok());
    ASSERT_TRUE(drawing->setReal(entity(*drawing, "TEXT"), Property::kRotation, 30).ok());
    ASSERT_TRUE(drawing->setText(entity(*drawing, "TEXT"), Property::kTextString, L"longer").ok());
    std::string expected = replaced(text, " 62\n3\n", " 62\n7\n");
    expected = replaced(expected, " 40\n2.5\n", " 40\n3.25\n");
    expected = replaced(expected, "  1\nABC\n  7\nROMANS\n", "  1\nlonger\n  7\nROMANS\n 50\n30.0\n");
    EXPECT_EQ(saved(*drawing), toBinary(expected, wide));
  }
}

#if !defined(_WIN32)  // where a file can be cut off that somebody reads

TEST(RoundTrip, NothingIsSavedOfADrawingWhoseFileIsCutOff) {
  const auto source = test_support::tempPath("kiv_dxf_shrinks"),
             target = test_support::tempPath("kiv_dxf_target");
  std::string lines;
  for (int i = 0; i < 5000; ++i) lines += "|0 LINE|8 A|10 1.0";
  const std::string bytes = drawingText("AC1015", "0 TEXT|8 A|40 2.5|1 x" + lines);
  for (const std::size_t left : {std::size_t{100}, bytes.size() - 100, bytes.size()}) {
    ASSERT_TRUE(base::writeFileAtomically(source, bytes).ok());
    auto drawing = formats::open(source);
    ASSERT_TRUE(drawing.ok());
    std::filesystem::resize_file(source, left);
    if (left == bytes.size()) std::filesystem::last_write_time(source, {});  // written anew
    const base::Status status = drawing.value()->save(target);
    EXPECT_EQ(status.failure().kind, base::FailureKind::kChangedWhileRead) << left;
    EXPECT_EQ(status.failure().place, base::pathText(source));
    EXPECT_FALSE(std::filesystem::exists(target));
  }
  std::filesystem::remove(source);
}

#endif

// The project's own drawings, and those of the folder KIV_SAMPLES when it is named.
std::vector<std::filesystem::path> realDrawings() {
  namespace fs = std::filesystem;
  std::vector<fs::path> found;
  const fs::path source = KIV_SOURCE_DIR;
  for (const fs::path& folder : {source / "examples", source / "tests" / "cases", fs::path(KIV_SAMPLES)}) {
    if (folder.empty()) continue;
    const std::size_t before = found.size();
    for (const auto& file : fs::recursive_directory_iterator(folder)) {
      if (file.path().extension() == ".dxf") found.push_back(file);
    }
    EXPECT_GT(found.size(), before) << "no drawings in " << folder;
  }
  return found;
}

TEST(RoundTrip, RealDrawingsComeBackUntouchedAndAfterUndo) {
  for (const std::filesystem::path& file : realDrawings()) {
    SCOPED_TRACE(file);
    const std::string source = base::readFile(file).value();
    auto loaded = formats::open(file);
    ASSERT_TRUE(loaded.ok()) << base::toUtf8(loaded.failure().text());
    Drawing& drawing = *loaded.value();
    EXPECT_EQ(saved(drawing), source);
    EXPECT_FALSE(drawing.entitiesOf(drawing.modelSpace()).empty());
    drawing.beginUndoGroup();
    const auto records = static_cast<RecordId>(drawing.recordCount());
    for (RecordId id = 0; id < records; ++id) {
      if (drawing.record(id).kind != RecordKind::kEntity) continue;
      ASSERT_TRUE(drawing.setInteger(id, Property::kColorIndex, 3).ok());
      ASSERT_TRUE(drawing.setText(id, Property::kLinetype, L"ByBlock").ok());
      if (drawing.canHold(id, Property::kRotation)) {
        ASSERT_TRUE(drawing.setReal(id, Property::kRotation, 12.5).ok());
        EXPECT_NEAR(drawing.real(id, Property::kRotation).value_or(0), 12.5, 1e-12);
      }
      EXPECT_EQ(drawing.integer(id, Property::kColorIndex), 3);
    }
    const std::string changed = saved(drawing);
    auto again = loadBytes(changed);
    ASSERT_TRUE(again.ok());
    for (const RecordId id : again.value()->entitiesOf(again.value()->modelSpace())) {
      EXPECT_EQ(again.value()->integer(id, Property::kColorIndex), 3);
      EXPECT_EQ(base::upper(again.value()->text(id, Property::kLinetype).value_or(L"")), L"BYBLOCK");
    }
    ASSERT_TRUE(drawing.undo());
    EXPECT_EQ(saved(drawing), source);
  }
}

}  // namespace
}  // namespace cad::dxf
