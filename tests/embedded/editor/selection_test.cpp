#include <set>

#include "acdb.h"
#include "dbmain.h"
#include "embedded/editor/selection_sets.h"
#include "embedded/objects/database_access.h"
#include "tests/embedded/editor/host_fixture.h"
#include "tests/support/in_command.h"

namespace {

using cad_test::HostTest;
using test_support::inCommand;

class Selection : public HostTest {
 protected:
  void SetUp() override {
    HostTest::SetUp();
    open();
  }

  // The types and layers of what a filter selects, newest first; the filter is released.
  std::string select(resbuf* filter, int expected = RTNORM) {
    ads_name set;
    EXPECT_EQ(acedSSGet(L"X", nullptr, nullptr, filter, set), expected);
    if (filter) acutRelRb(filter);
    std::string out;
    Adesk::Int32 length = 0;
    if (acedSSLength(set, &length) != RTNORM) return out;
    for (int i = 0; i < length; ++i) out += describe(set, i) + " ";
    EXPECT_EQ(acedSSFree(set), RTNORM);
    return out;
  }
  std::string describe(const ads_name set, int index) {
    ads_name entity;
    EXPECT_EQ(acedSSName(set, index, entity), RTNORM);
    AcDbObjectId id;
    EXPECT_EQ(acdbGetObjectId(id, entity), Acad::eOk);
    const cad::RecordId record = cad::recordOf(id);
    const cad::NameId layer = drawing().name(record, cad::Property::kLayer);
    return std::string(drawing().typeName(record)) + ":" + std::string(drawing().names().stored(layer));
  }
};

TEST_F(Selection, WholeDrawingNewestFirstWithoutBlockContents) {
  EXPECT_EQ(select(nullptr), "CIRCLE:0 INSERT:WALL-B LINE:LOCKED LINE:WALL-A TEXT:WALL-B TEXT:WALL-A ");
}

TEST_F(Selection, NameConditionsAreWildcardsRegardlessOfCase) {
  EXPECT_EQ(select(acutBuildList(8, L"wall-*", RTNONE)),
            "INSERT:WALL-B LINE:WALL-A TEXT:WALL-B TEXT:WALL-A ");
  EXPECT_EQ(select(acutBuildList(RTDXF0, L"text,circle", RTNONE)), "CIRCLE:0 TEXT:WALL-B TEXT:WALL-A ");
  EXPECT_EQ(select(acutBuildList(7, L"kanji", RTNONE)), "TEXT:WALL-B ");
  EXPECT_EQ(select(acutBuildList(7, L"STANDARD", RTNONE)), "TEXT:WALL-A ");
  EXPECT_EQ(select(acutBuildList(6, L"BYLAYER", RTDXF0, L"CIRCLE", RTNONE)), "CIRCLE:0 ");
  EXPECT_EQ(select(acutBuildList(2, L"do*", RTNONE)), "INSERT:WALL-B ");
}

TEST_F(Selection, NumbersAndRelations) {
  EXPECT_EQ(select(acutBuildList(62, 1, RTNONE)), "TEXT:WALL-A ");
  EXPECT_EQ(select(acutBuildList(62, 256, RTDXF0, L"LINE", RTNONE)), "LINE:WALL-A ");
  EXPECT_EQ(select(acutBuildList(-4, L"<", 62, 6, RTNONE)), "LINE:LOCKED TEXT:WALL-A ");
  EXPECT_EQ(select(acutBuildList(-4, L">=", 40, 3.5, RTNONE)), "TEXT:WALL-B ");
  EXPECT_EQ(select(acutBuildList(67, 1, RTNONE)), "CIRCLE:0 ");
  EXPECT_EQ(select(acutBuildList(410, L"Model", RTDXF0, L"CIRCLE", RTNONE), RTERROR), "");
  EXPECT_EQ(select(acutBuildList(48, 1.0, RTDXF0, L"INSERT", RTNONE)), "INSERT:WALL-B ");
}

TEST_F(Selection, NestedOperators) {
  EXPECT_EQ(select(acutBuildList(-4, L"<AND", -4, L"<or", RTDXF0, L"TEXT", RTDXF0, L"LINE", -4, L"OR>", 8,
                                 L"WALL-A", -4, L"<NOT", 62, 1, -4, L"NOT>", -4, L"and>", RTNONE)),
            "LINE:WALL-A ");
  EXPECT_EQ(select(acutBuildList(-4, L"<not", -4, L"<or", RTDXF0, L"TEXT", RTDXF0, L"LINE", -4, L"or>", -4,
                                 L"not>", RTNONE)),
            "CIRCLE:0 INSERT:WALL-B ");
  EXPECT_EQ(select(acutBuildList(-4, L"<xor", RTDXF0, L"TEXT", 8, L"WALL-A", -4, L"xor>", RTNONE)),
            "LINE:WALL-A TEXT:WALL-B ");
  // One side is known by the signature, the other only by the entity.
  EXPECT_EQ(select(acutBuildList(-4, L"<xor", RTDXF0, L"TEXT", 40, 2.5, -4, L"xor>", RTNONE)),
            "TEXT:WALL-B ");
}

TEST_F(Selection, MalformedFiltersAreRejected) {
  EXPECT_EQ(select(acutBuildList(-4, L"<and", 8, L"0", RTNONE), RTREJ), "");
  EXPECT_EQ(select(acutBuildList(-4, L"<and", 8, L"0", -4, L"or>", RTNONE), RTREJ), "");
  EXPECT_EQ(select(acutBuildList(8, L"0", -4, L"and>", RTNONE), RTREJ), "");
  EXPECT_EQ(select(acutBuildList(-4, L"<not", 8, L"0", 62, 1, -4, L"not>", RTNONE), RTREJ), "");
  EXPECT_EQ(select(acutBuildList(-4, L"<maybe", 8, L"0", -4, L"maybe>", RTNONE), RTREJ), "");
  EXPECT_EQ(select(acutBuildList(-4, L"<", RTNONE), RTREJ), "");
  for (const int code : {RTDXF0, RTSTR}) {  // group 0 is 0 in a chain, and type codes are no groups
    resbuf* filter = acutNewRb(code);
    acutNewString(L"TEXT", filter->resval.rstring);
    EXPECT_EQ(select(filter, RTREJ), "") << code;
  }
  resbuf* type = acutNewRb(0);
  acutNewString(L"TEXT", type->resval.rstring);
  EXPECT_EQ(select(type), "TEXT:WALL-B TEXT:WALL-A ");
}

TEST_F(Selection, ModesOtherThanTheWholeDrawingSelectNothing) {
  ads_name set;
  EXPECT_EQ(acedSSGet(nullptr, nullptr, nullptr, nullptr, set), RTERROR);
  EXPECT_EQ(acedSSGet(L"I", nullptr, nullptr, nullptr, set), RTERROR);
  EXPECT_EQ(acedSSGet(L"A", nullptr, nullptr, nullptr, set), RTNORM);
  acedSSFree(set);
}

TEST_F(Selection, MembersAreAddedAndRemoved) {
  ads_name set, entity, other;
  ASSERT_EQ(acedSSGet(L"X", nullptr, nullptr, nullptr, set), RTNORM);
  Adesk::Int32 length = 0;
  ASSERT_EQ(acedSSName(set, 1, entity), RTNORM);
  EXPECT_EQ(acedSSDel(entity, set), RTNORM);
  EXPECT_EQ(acedSSDel(entity, set), RTERROR);
  EXPECT_EQ(acedSSMemb(entity, set), RTERROR);
  EXPECT_EQ(describe(set, 1), "LINE:LOCKED");
  EXPECT_EQ(acedSSAdd(entity, set, set), RTNORM);
  EXPECT_EQ(acedSSAdd(entity, set, set), RTNORM);
  acedSSLength(set, &length);
  EXPECT_EQ(length, 6);
  EXPECT_EQ(acedSSName(set, 6, other), RTERROR);
  EXPECT_EQ(acedSSName(set, -1, other), RTERROR);
  EXPECT_EQ(acedSSFree(set), RTNORM);
  EXPECT_EQ(acedSSFree(set), RTERROR);
  EXPECT_EQ(acedSSLength(set, &length), RTERROR);
}

TEST_F(Selection, AtMost128SetsAndNoneOfAClosedDrawing) {
  std::vector<std::array<Adesk::IntPtr, 2>> sets(129);
  for (int i = 0; i < 128; ++i) ASSERT_EQ(acedSSGet(L"X", nullptr, nullptr, nullptr, sets[i].data()), RTNORM);
  EXPECT_EQ(acedSSGet(L"X", nullptr, nullptr, nullptr, sets[128].data()), RTERROR);
  EXPECT_EQ(acedSSFree(sets[5].data()), RTNORM);
  EXPECT_EQ(acedSSGet(L"X", nullptr, nullptr, nullptr, sets[128].data()), RTNORM);
  ASSERT_TRUE(host().closeDocument().ok());
  Adesk::Int32 length = 0;
  EXPECT_EQ(acedSSLength(sets[0].data(), &length), RTERROR);
}

TEST_F(Selection, ErasedEntitiesAreNotSelected) {
  ads_name last;
  ASSERT_EQ(acdbEntLast(last), RTNORM);
  inCommand([&] { ASSERT_EQ(acdbEntDel(last), RTNORM); });
  EXPECT_EQ(select(acutBuildList(RTDXF0, L"CIRCLE", RTNONE), RTERROR), "");
  inCommand([&] { ASSERT_EQ(acdbEntDel(last), RTNORM); });
  EXPECT_EQ(select(acutBuildList(RTDXF0, L"CIRCLE", RTNONE)), "CIRCLE:0 ");
}

TEST_F(Selection, ManyRemovalsKeepOrderAndStayCheap) {
  constexpr cad::RecordId kCount = 200000;
  std::vector<cad::RecordId> members(kCount);
  for (cad::RecordId i = 0; i < kCount; ++i) members[i] = kCount - i;
  cad::SelectionSet set(drawing(), members);
  // As a caller does that keeps every third: look at an index, remove what stands there.
  std::size_t index = 0;
  for (cad::RecordId i = 0; i < kCount; ++i) {
    const cad::RecordId entity = set.at(index);
    ASSERT_EQ(entity, kCount - i);
    if (entity % 3 == 0)
      ++index;
    else
      ASSERT_TRUE(set.remove(entity));
  }
  EXPECT_EQ(set.size(), kCount / 3);
  EXPECT_EQ(set.at(0), kCount - kCount % 3);
  EXPECT_EQ(set.at(set.size() - 1), 3u);
}

}  // namespace
