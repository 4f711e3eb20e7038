#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "base/codepage.h"
#include "embedded/dwg/bits/bit_reader.h"
#include "embedded/dwg/bits/bit_writer.h"
#include "embedded/dwg/bits/crc.h"
#include "embedded/dwg/files/object_map.h"
#include "embedded/dwg/files/raw_values.h"
#include "embedded/dwg/files/section_changes.h"
#include "tests/embedded/dwg/small_files.h"

namespace cad::dwg {
namespace {

constexpr Version kVersions[] = {Version::kR13,   Version::kR14,   Version::kR2000, Version::kR2004,
                                 Version::kR2007, Version::kR2010, Version::kR2013, Version::kR2018};

class DwgFiles : public ::testing::TestWithParam<Version> {
 protected:
  void SetUp() override {
    drawing = smallDrawing(GetParam());
    bytes = bytesOf(drawing);
    auto read = readBytes(bytes);
    ASSERT_TRUE(read) << base::toUtf8(read.failure().text());
    file = std::move(read.value());
  }
  // The objects of a file as they stand in it.
  static std::map<Handle, std::string> objectsOf(const DwgFile& file) {
    std::map<Handle, std::string> objects;
    for (const ObjectPlace& place : file.places()) {
      const auto object = file.objectAt(place.offset);
      EXPECT_TRUE(object);
      objects[place.handle] = object.value().whole;
    }
    return objects;
  }
  std::unique_ptr<DwgFile> written(const FileChanges& changes) {
    const auto result = file->write(changes);
    if (!result) ADD_FAILURE() << base::toUtf8(result.failure().text());
    auto read = readBytes(result ? result.value() : std::string());
    if (!read) ADD_FAILURE() << base::toUtf8(read.failure().text());
    return read ? std::move(read.value()) : nullptr;
  }
  ChangedObject changed(Handle handle, std::string data) const {
    return {handle, false, std::move(data), GetParam() >= Version::kR2010 ? 8U : 0U};
  }

  SmallDrawing drawing;
  std::string bytes;
  std::unique_ptr<DwgFile> file;
};
INSTANTIATE_TEST_SUITE_P(Versions, DwgFiles, ::testing::ValuesIn(kVersions),
                         [](const auto& test) { return std::string(base::versionCode(test.param)); });

TEST_P(DwgFiles, TellWhatTheyHoldAndAreWrittenByteForByte) {
  EXPECT_EQ(file->version(), GetParam());
  EXPECT_EQ(file->facts().codePageName, "ANSI_932");
  EXPECT_EQ(file->header(), drawing.header);
  EXPECT_EQ(file->classes(), drawing.classes);
  ASSERT_EQ(file->places().size(), drawing.objects.size());
  for (const SmallObject& object : drawing.objects) {
    const ObjectPlace* place = file->find(object.handle);
    ASSERT_NE(place, nullptr);
    const auto read = file->objectAt(place->offset);
    ASSERT_TRUE(read);
    EXPECT_EQ(read.value().data, object.data);
    EXPECT_EQ(read.value().handleBits, GetParam() >= Version::kR2010 ? 8U : 0U);
    EXPECT_TRUE(read.value().crcHolds());
  }
  EXPECT_EQ(file->find(1), nullptr);
  EXPECT_EQ(file->write({}).value(), bytes);
  // What is changed into what it is, is no change.
  FileChanges same;
  same.header = drawing.header;
  EXPECT_EQ(file->write(same).value(), bytes);
}

TEST_P(DwgFiles, ChangesLeaveAllElseAsItIs) {
  FileChanges changes;
  changes.header = drawing.header + " and more of them";
  changes.classes = "fewer";
  const std::string large(70000, 'L');
  changes.objects = {changed(9, "longer than it was before, by some bytes"), changed(3 * 60, "s"),
                     changed(5000, "new"), ChangedObject{3 * 61, true, {}, 0}, changed(4, large)};
  const auto now = written(changes);
  ASSERT_NE(now, nullptr);
  EXPECT_EQ(now->header(), *changes.header);
  EXPECT_EQ(now->classes(), *changes.classes);
  auto expected = objectsOf(*file);
  const auto actual = objectsOf(*now);
  for (const ChangedObject& change : changes.objects) {
    const ObjectPlace* place = now->find(change.handle);
    ASSERT_EQ(place == nullptr, change.erased);
    expected.erase(change.handle);
    if (change.erased) continue;
    const auto object = now->objectAt(place->offset);
    ASSERT_TRUE(object);
    EXPECT_EQ(object.value().data, change.data);
    EXPECT_TRUE(object.value().crcHolds());
    expected[change.handle] = object.value().whole;
  }
  EXPECT_EQ(actual, expected);
  EXPECT_EQ(now->write({}).value(), file->write(changes).value());
}

TEST_P(DwgFiles, ThePreviewCanBeFoundBehindChanges) {
  FileChanges changes;
  changes.header = drawing.header + std::string(300, 'h');
  for (Handle handle = 7000; handle < 7100; ++handle) {
    changes.objects.push_back(changed(handle, std::string(900, static_cast<char>('a' + handle % 26))));
  }
  const auto result = file->write(changes);
  ASSERT_TRUE(result);
  const std::string& now = result.value();
  const auto at = rawAt<std::uint32_t>(now, 0x0D);
  constexpr std::uint64_t kPictureAt = 22;
  EXPECT_EQ(part(now, rawAt<std::uint32_t>(now, at + kPictureAt), 7), "picture");
  // The next free handle and the number of objects are told more than once.
  const auto reread = readBytes(now);
  ASSERT_TRUE(reread);
  EXPECT_EQ(reread.value()->places().size(), drawing.objects.size() + 100);
}

TEST_P(DwgFiles, WhatCannotBeWrittenIsRefused) {
  const auto refused = [&](std::vector<ChangedObject> objects) {
    FileChanges changes;
    changes.objects = std::move(objects);
    return !file->write(changes);
  };
  EXPECT_TRUE(refused({changed(0, "x")}));
  EXPECT_TRUE(refused({changed(3, "x"), changed(3, "y")}));
  EXPECT_TRUE(refused({changed(3, "")}));
  EXPECT_TRUE(refused({changed(5000, "")}));
  EXPECT_TRUE(refused({ChangedObject{5, true, {}, 0}}));
  EXPECT_TRUE(refused({ChangedObject{3, false, "x", 9}}));
}

TEST_P(DwgFiles, CutOffAnywhereTheyAreRefusedWithThePlace) {
  for (std::size_t length = 0; length < bytes.size() - 0x500; length += 1 + length / 60) {
    const auto read = readBytes(bytes.substr(0, length));
    ASSERT_FALSE(read) << length;
    EXPECT_TRUE(read.failure().place.starts_with(L"byte ")) << length;
  }
}

TEST_P(DwgFiles, AnyWrongByteIsReadOrRefused) {
  std::size_t refused = 0;
  for (std::size_t at = 6; at < bytes.size(); at += at < 0x500 ? 3 : 37) {
    std::string wrong = bytes;
    wrong[at] = static_cast<char>(~wrong[at]);
    const auto read = readBytes(wrong);
    refused += read ? 0 : 1;
    if (read) {
      EXPECT_EQ(read.value()->write({}).value(), wrong);
    }
  }
  EXPECT_GT(refused, 50U);
}

TEST(DwgRefusals, OtherFilesAndVersions) {
  const auto reason = [](const std::string& bytes) {
    const auto read = readBytes(bytes);
    return read ? std::wstring(L"read") : read.failure().text();
  };
  const std::wstring kOld =
      L"byte 0: This is a DWG drawing of a version before R13; please save it in a newer one";
  const std::wstring kNew =
      L"byte 0: This is a DWG drawing of a newer version than is known here; please save it in an older one";
  EXPECT_EQ(reason(""), L"byte 0: This is not a DWG drawing");
  EXPECT_EQ(reason("  0\nSECTION\n"), L"byte 0: This is not a DWG drawing");
  EXPECT_EQ(reason("AC1009" + std::string(500, '\0')), kOld);
  EXPECT_EQ(reason("AC2.10" + std::string(500, '\0')), kOld);
  EXPECT_EQ(reason("AC1040" + std::string(500, '\0')), kNew);
  EXPECT_EQ(reason("AC2005" + std::string(500, '\0')), kNew);
  EXPECT_EQ(reason("AC9999" + std::string(500, '\0')), kNew);
  EXPECT_EQ(reason("AC1015"), L"byte 6: The file is cut off");
}

TEST(DwgRefusals, MapsThatLeadAstray) {
  for (const Version version : {Version::kR2004, Version::kR2007}) {
    const SmallDrawing drawing = smallDrawing(version);
    const auto reason = [&](const PageFaults& faults) {
      const auto read =
          readBytes(version == Version::kR2007 ? codedBytes(drawing, faults) : pagedBytes(drawing, faults));
      return read ? std::wstring(L"read") : read.failure().reason;
    };
    EXPECT_EQ(reason({}), L"read");
    EXPECT_EQ(reason({.isEncrypted = true}), L"The drawing is encrypted with a password");
    const wchar_t* const kTwice = L"The section map names a page that does not exist, or one twice";
    EXPECT_EQ(reason({.usesPageTwice = true}), kTwice);
    EXPECT_EQ(reason({.namesNoPage = true}), kTwice);
    EXPECT_EQ(reason({.hasPageTwice = true}), L"The page map is damaged");
    const wchar_t* const kLarge = L"AcDb:AcDbObjects is larger than the file can hold";
    EXPECT_EQ(reason({.objectsSize = std::uint64_t{1} << 40}), kLarge);
    EXPECT_EQ(reason({.objectsSize = ~std::uint64_t{0}}), kLarge);
    EXPECT_EQ(reason({.startsAgain = true}), L"AcDb:AcDbObjects is damaged");
    std::string encrypted = bytesOf(drawing);
    encrypted[0x18] = 1;
    EXPECT_EQ(readBytes(encrypted).failure().text(), L"byte 24: The drawing is encrypted with a password");
  }
}

// A place of the second header that cannot be is no reason to write the file into itself.
TEST(DwgPages, WhatStandsBehindThemStays) {
  const auto behindChange = [](const std::string& bytes) {
    FileChanges changes;
    changes.header = "another header";
    const auto read = readBytes(bytes);
    EXPECT_TRUE(read) << base::toUtf8(read.failure().text());
    return read ? read.value()->write(changes).value() : std::string();
  };
  const SmallDrawing paged = smallDrawing(Version::kR2004), coded = smallDrawing(Version::kR2007);
  EXPECT_TRUE(behindChange(pagedBytes(paged) + "behind").ends_with("behind"));
  const std::string rest = std::string(0x4000, 'x') + "behind";  // the page map is told to be so large
  EXPECT_TRUE(behindChange(pagedBytes(paged, {.secondHeaderAt = 0}) + rest).ends_with("behind"));
  EXPECT_TRUE(behindChange(codedBytes(coded) + "behind").ends_with("behind"));
  const PageFaults wrong{.secondHeaderAt = ~std::uint64_t{0} - 0x200};
  EXPECT_LT(behindChange(pagedBytes(paged, wrong)).size(), 2 * pagedBytes(paged).size());
  EXPECT_EQ(behindChange(codedBytes(coded, wrong)).find("AC1021", 1), std::string::npos);
  EXPECT_EQ(behindChange(pagedBytes(paged, wrong)).find("AC1018", 1), std::string::npos);
}

TEST(DwgObjectMap, KeepsWhatStandsBehindIt) {
  const auto file = readBytes(bytesOf(smallDrawing(Version::kR2004)));
  ASSERT_TRUE(file);
  UnpackedSections sections;
  sections.objects = file.value()->objects();
  sections.handles = writeObjectMap(file.value()->places());
  sections.mapLength = sections.handles.size();
  sections.handles += "behind";
  FileChanges changes;
  changes.objects = {{3, true, {}, 0}};
  const auto changed = changedSections(*file.value(), sections, changes);
  ASSERT_TRUE(changed);
  EXPECT_TRUE(changed.value().at(kHandlesName).ends_with("behind"));
}

class LocatedDwg : public ::testing::Test {
 protected:
  SmallDrawing drawing = smallDrawing(Version::kR2000);
  SmallPlaces places;
  std::string bytes = locatedBytes(drawing, places);
};

TEST(DwgSecondHeader, FollowsInEachVersionAndStaysAsItCameWhenItIsDamaged) {
  for (const Version version : {Version::kR13, Version::kR14, Version::kR2000}) {
    SmallPlaces places;
    const SmallDrawing drawing = smallDrawing(version);
    const std::string bytes = locatedBytes(drawing, places);
    const auto behind = [&](std::string file) {
      FileChanges changes;
      changes.header = drawing.header + "12345";
      const auto read = readBytes(std::move(file));
      EXPECT_TRUE(read) << base::toUtf8(read.failure().text());
      return read ? read.value()->write(changes).value().substr(places.secondHeader + 5) : std::string();
    };
    const std::string tail = behind(bytes);
    BitReader second(std::string_view(tail).substr(16));
    second.rl();
    EXPECT_EQ(static_cast<std::uint64_t>(second.bl()), places.secondHeader + 5);
    std::string damaged = bytes;
    damaged[places.secondHeader + 30] ^= 1;
    EXPECT_EQ(behind(damaged), damaged.substr(places.secondHeader));
  }
}

// The map stands before two objects at the end of the file, so that what it tells hangs from its own length.
TEST(DwgObjectsBehindTheMap, AreChangedAndMovedAsTheOthers) {
  for (const Version version : {Version::kR13, Version::kR14, Version::kR2000}) {
    SmallDrawing drawing = smallDrawing(version);
    SmallPlaces unused;
    const std::string usual = locatedBytes(drawing, unused);
    const auto before = readBytes(usual);
    ASSERT_TRUE(before);
    const std::span<const ObjectPlace> places = before.value()->places();
    std::vector<ObjectPlace> moved(places.begin(), places.end());
    std::string behind;
    for (const std::size_t number : {std::size_t{40}, moved.size() - 1}) {
      moved[number].offset = usual.size() + 64 + behind.size();
      behind += before.value()->objectOf(places[number]).whole;
    }
    drawing.spoil = [from = mapPairs(places), to = mapPairs(moved)](std::string& piece) {
      if (piece == from) piece = to;
    };
    std::string bytes = locatedBytes(drawing, unused);
    bytes.resize(usual.size() + 64);
    bytes += behind;
    const auto file = readBytes(bytes);
    ASSERT_TRUE(file);
    EXPECT_EQ(file.value()->write({}).value(), bytes);
    FileChanges changes;
    changes.header = drawing.header + std::string(300, 'h');
    const Handle last = moved.back().handle;
    changes.objects = {{30, false, std::string(5000, 'a'), 0},
                       {moved[40].handle, false, "shorter", 0},
                       {last, false, std::string(200, 'l'), 0},
                       {33, true, {}, 0},
                       {last + 5, false, "new", 0}};
    const auto written = file.value()->write(changes);
    ASSERT_TRUE(written) << base::toUtf8(written.failure().text());
    const auto now = readBytes(written.value());
    ASSERT_TRUE(now) << base::toUtf8(now.failure().text());
    EXPECT_EQ(now.value()->places().size(), moved.size());
    for (const ObjectPlace& place : now.value()->places()) {
      const ObjectBytes object = now.value()->objectOf(place);
      const auto change = std::ranges::find(changes.objects, place.handle, &ChangedObject::handle);
      EXPECT_TRUE(object.crcHolds());
      EXPECT_EQ(object.data, change != changes.objects.end()
                                 ? std::string_view(change->data)
                                 : file.value()->objectOf(*file.value()->find(place.handle)).data);
    }
    EXPECT_EQ(now.value()->write({}).value(), written.value());
  }
}

TEST_F(LocatedDwg, ObjectsWithinTheLocatorsAreRefused) {
  drawing.objects.resize(1);
  // The size of section 4, four bytes, reads as that of an object of four.
  drawing.spoil = [](std::string& piece) {
    if (piece.size() > 4 || piece.front() != 3) return;
    BitWriter pair;
    pair.umc(3), pair.mc(0x19 + 9 * 4 + 5);
    piece = pair.take();
  };
  const auto read = readBytes(locatedBytes(drawing, places));
  ASSERT_FALSE(read);
  EXPECT_EQ(read.failure().reason, L"There is no whole object here");
}

TEST_F(LocatedDwg, WhatTellsPlacesFollows) {
  const auto file = readBytes(bytes);
  ASSERT_TRUE(file);
  FileChanges changes;
  changes.header = drawing.header + "12345";
  changes.objects = {{3, false, drawing.objects[0].data + "123", 0}, {999, false, "ten bytes.", 0}};
  const auto result = file.value()->write(changes);
  ASSERT_TRUE(result);
  const std::string& now = result.value();
  constexpr std::uint64_t kHeader = 5, kObject = 3, kAdded = 14;
  const std::uint64_t mapLength = places.freeSpace - places.map;
  const std::uint64_t moved = now.size() - bytes.size();
  // The map tells one more, in three to six bytes.
  EXPECT_GE(moved, kHeader + kObject + kAdded + 3);
  EXPECT_EQ(rawAt<std::uint32_t>(now, 0x19 + 18 + 1), places.map + kHeader + kObject + kAdded);
  EXPECT_EQ(rawAt<std::uint32_t>(now, 0x19 + 18 + 5), mapLength + moved - kHeader - kObject - kAdded);
  const std::uint64_t freeSpace = places.freeSpace + moved;
  EXPECT_EQ(rawAt<std::uint32_t>(now, freeSpace + 4), drawing.objects.size() + 1);
  EXPECT_EQ(rawAt<std::uint32_t>(now, freeSpace + 16),
            rawAt<std::uint32_t>(bytes, places.freeSpace + 16) + kHeader);
  EXPECT_EQ(rawAt<std::uint32_t>(now, places.auxHeader + 79), 1000U);
  EXPECT_EQ(part(now, places.picture + moved, 7), "picture");
  // Its second header names its own place, and the next free handle.
  BitReader second(part(now, places.secondHeader + moved + 16, 100));
  second.rl();
  EXPECT_EQ(static_cast<std::uint64_t>(second.bl()), places.secondHeader + moved);

  // Back to what it was: byte for byte, but for the next free handle.
  const auto changed = readBytes(now);
  ASSERT_TRUE(changed);
  FileChanges back;
  back.header = drawing.header;
  back.objects = {{3, false, drawing.objects[0].data, 0}, {999, true, {}, 0}};
  const auto again = readBytes(changed.value()->write(back).value());
  ASSERT_TRUE(again);
  EXPECT_EQ(again.value()->file().size(), bytes.size());
  const std::uint64_t objectsBegin = readBytes(bytes).value()->places().front().offset;
  const std::uint64_t objectsLength = places.map - objectsBegin;
  EXPECT_EQ(part(again.value()->file(), objectsBegin, objectsLength),
            part(bytes, objectsBegin, objectsLength));
}

TEST_F(LocatedDwg, AnObjectsWrongCrcStaysAsItCame) {
  const std::uint64_t second = readBytes(bytes).value()->places()[1].offset;
  bytes[second + 5] ^= 1;
  const auto file = readBytes(bytes);
  ASSERT_TRUE(file);
  const std::string whole(file.value()->objectAt(second).value().whole);
  EXPECT_FALSE(file.value()->objectAt(second).value().crcHolds());
  FileChanges changes;
  changes.objects = {{3, false, "x", 0}};
  const auto now = readBytes(file.value()->write(changes).value());
  ASSERT_TRUE(now);
  EXPECT_EQ(now.value()->objectAt(now.value()->find(6)->offset).value().whole, whole);
}

TEST_F(LocatedDwg, ObjectsThatShareBytesAreNotWrittenOverEachOther) {
  // The last handle names the object of the one before it.
  const auto whole = readBytes(bytes);
  ASSERT_TRUE(whole);
  const Handle last = drawing.objects.back().handle;
  const std::size_t mapEnd = places.freeSpace - 4;
  const std::size_t pageSize = places.freeSpace - 6 - places.map;
  // Its offset from the other's takes one byte.
  bytes[mapEnd - 3] = 0;
  const std::uint16_t crc = crc16(kCrcStart, part(bytes, places.map, pageSize));
  bytes[mapEnd - 2] = static_cast<char>(crc >> 8);
  bytes[mapEnd - 1] = static_cast<char>(crc);
  const auto file = readBytes(bytes);
  ASSERT_TRUE(file) << base::toUtf8(file.failure().text());
  ASSERT_EQ(file.value()->find(last)->offset, file.value()->find(last - 3)->offset);
  FileChanges changes;
  changes.objects = {{last, false, "changed", 0}, {last - 6, true, {}, 0}};
  const auto now = readBytes(file.value()->write(changes).value());
  ASSERT_TRUE(now);
  const auto dataOf = [&](Handle handle) {
    return now.value()->objectAt(now.value()->find(handle)->offset).value().data;
  };
  EXPECT_EQ(dataOf(last), "changed");
  EXPECT_EQ(dataOf(last - 3), drawing.objects[drawing.objects.size() - 2].data);
  EXPECT_EQ(now.value()->find(last - 6), nullptr);
}

TEST(DwgObjectMap, ComesBackFromSeveralPages) {
  std::vector<ObjectPlace> places;
  std::uint64_t offset = 0x1000000;
  for (Handle handle = 5; handle < 4000; handle += 1 + handle % 7) {
    places.push_back({handle, offset});
    offset += handle % 3 == 0 ? 100000 : ~std::uint64_t{77};  // forth and back
  }
  const std::string bytes = writeObjectMap(places);
  const auto map = readObjectMap(bytes + "behind", 0);
  ASSERT_TRUE(map);
  EXPECT_EQ(map.value().length, bytes.size());
  for (std::size_t page = 0, size = 3; size > 2; page += size + 2) {
    size = static_cast<unsigned char>(bytes.at(page)) << 8 | static_cast<unsigned char>(bytes.at(page + 1));
    EXPECT_LE(size, 2034U);  // other readers take no larger ones
  }
  ASSERT_EQ(map.value().places.size(), places.size());
  for (std::size_t i = 0; i < places.size(); ++i) {
    EXPECT_EQ(map.value().places[i].handle, places[i].handle);
    EXPECT_EQ(map.value().places[i].offset, places[i].offset);
  }
  const auto reason = [](const std::vector<ObjectPlace>& wrong) {
    const auto read = readObjectMap(writeObjectMap(wrong), 7);
    return read ? std::wstring(L"read") : read.failure().text();
  };
  EXPECT_EQ(reason({{3, 1}, {0x2A, 1}, {0x2A, 2}}), L"byte 7: AcDb:Handles names the object 2A twice");
  EXPECT_EQ(reason({{0, 1}}), L"byte 7: AcDb:Handles names an object of the handle 0");
  EXPECT_EQ(reason({}), L"byte 7: AcDb:Handles names no object");
}

}  // namespace
}  // namespace cad::dwg
