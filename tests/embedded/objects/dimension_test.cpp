// Dimensions, leaders and the variables that they take from their style or override.

#include "dbdim.h"
#include "dblead.h"
#include "tests/embedded/objects/fixture.h"

namespace cad::test {
namespace {

constexpr double kPi = 3.14159265358979323846;

class DimensionTest : public ObjectTest {
 protected:
  bool overrides(Handle handle, const DimVariableInfo& variable) const {
    return drawing_->dimVariable(recordOf(id(handle)), variable).has_value();
  }
};

TEST_F(DimensionTest, AnOverrideEqualToTheStyleGoes) {
  Writing<AcDbDimension> dimension(id(0x53), AcDb::kForWrite);
  ASSERT_EQ(dimension->setDimtxt(5.0), Acad::eOk);
  ASSERT_EQ(dimension->setDimasz(1.0), Acad::eOk);
  EXPECT_EQ(dimension->setDimtxt(3.5), Acad::eOk);
  EXPECT_FALSE(overrides(0x53, dimRow("DIMTXT")));
  EXPECT_DOUBLE_EQ(dimension->dimasz(), 1.0);  // the other one stays
  EXPECT_EQ(dimension->setDimasz(0.18), Acad::eOk);
  EXPECT_FALSE(overrides(0x53, dimRow("DIMASZ")));
}

TEST_F(DimensionTest, BadValuesAreRefused) {
  {
    Writing<AcDbDimension> dimension(id(0x53), AcDb::kForWrite);
    EXPECT_EQ(dimension->setDimtxt(0), Acad::eInvalidInput);
    EXPECT_EQ(dimension->setDimtad(99), Acad::eInvalidInput);
    EXPECT_EQ(dimension->setDimzin(77), Acad::eInvalidInput);
    EXPECT_EQ(dimension->setDimtfac(-3), Acad::eInvalidInput);
    EXPECT_EQ(dimension->setDimdsep(0), Acad::eInvalidInput);
    for (const wchar_t* name : {L"NO_SUCH", L"DOT", L"_ARCHTICK"})  // a setter makes no block
      EXPECT_EQ(dimension->setDimblk(name), Acad::eKeyNotFound);
    EXPECT_EQ(dimension->setDimtxsty(layerId(L"0")), Acad::eWrongObjectType);
    EXPECT_EQ(dimension->setDimlwe(static_cast<AcDb::LineWeight>(7)), Acad::eInvalidInput);
  }
  EXPECT_EQ(AcDbObjectPointer<AcDbDimension>(id(0x53))->setDimtxt(2), Acad::eNotOpenForWrite);
  EXPECT_FALSE(drawing_->isModified());
  load(officeDrawing("AC1014"));
  Writing<AcDbDimension> old(id(0x53), AcDb::kForWrite);
  EXPECT_EQ(old->setDimatfit(1), Acad::eNotApplicable);
  EXPECT_EQ(old->setDimldrblk(L"NO_SUCH"), Acad::eNotApplicable);  // whatever the name
}

TEST_F(DimensionTest, TheHostMakesTheBlocksOfItsArrows) {
  AcDbObjectId tick, again, unknown;
  ASSERT_EQ(AcDmUtil::getArrowId(L"ARCHTICK", tick, database_.get()), Acad::eOk);
  EXPECT_EQ(tick, recordId<AcDbBlockTable>(L"_ArchTick"));
  EXPECT_EQ(AcDmUtil::getArrowId(L"ArchTick", again, database_.get()), Acad::eOk);
  EXPECT_EQ(again, tick);
  Writing<AcDbDimension> dimension(id(0x53), AcDb::kForWrite);
  EXPECT_EQ(dimension->setDimblk(tick), Acad::eOk);
  EXPECT_EQ(dimension->dimblk(), tick);
  EXPECT_EQ(AcDmUtil::getArrowId(L".", again, database_.get()), Acad::eOk);
  EXPECT_TRUE(again.isNull());
  EXPECT_EQ(AcDmUtil::getArrowId(nullptr, unknown, database_.get()), Acad::eInvalidInput);
  for (const wchar_t* name : {L"ARCHTIC", L"DOOR", L"CLOSEDFILLED"})
    EXPECT_EQ(AcDmUtil::getArrowId(name, unknown, database_.get()), Acad::eInvalidKey);
}

TEST_F(DimensionTest, LeadersHaveVariablesToo) {
  Writing<AcDbLeader> leader(id(0x54), AcDb::kForWrite);
  EXPECT_EQ(leader->dimensionStyle(), recordId<AcDbDimStyleTable>(L"Office"));
  EXPECT_DOUBLE_EQ(leader->dimtxt(), 3.5);
  EXPECT_EQ(leader->setDimasz(4), Acad::eOk);
  EXPECT_DOUBLE_EQ(leader->dimasz(), 4);
  EXPECT_EQ(leader->setDimldrblk(L"_Dot"), Acad::eOk);
  EXPECT_EQ(leader->dimldrblk(), recordId<AcDbBlockTable>(L"_DOT"));
}

TEST_F(DimensionTest, AStyleHoldsItsOwnValues) {
  AcDbDimStyleTableRecordPointer style(L"Office", database_.get(), AcDb::kForWrite);
  ASSERT_EQ(style.openStatus(), Acad::eOk);
  EXPECT_EQ(style->setDimtxt(0.18), Acad::eOk);  // the default is a value like any other here
  EXPECT_EQ(style->setDimzin(8), Acad::eOk);
  AcDbObjectPointer<AcDbDimension> dimension(id(0x53));
  EXPECT_DOUBLE_EQ(dimension->dimtxt(), 0.18);
  EXPECT_EQ(dimension->dimzin(), 8);
}

}  // namespace
}  // namespace cad::test
