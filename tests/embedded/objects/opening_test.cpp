// Opening and closing objects, ids, classes and smart pointers.

#include "dbapserv.h"
#include "dbdim.h"
#include "dbents.h"
#include "dbhatch.h"
#include "dblead.h"
#include "dbmtext.h"
#include "dbtable.h"
#include "tests/embedded/objects/fixture.h"

namespace cad::test {
namespace {

class OpeningTest : public ObjectTest {};

TEST_F(OpeningTest, EachTypeOpensAsItsClass) {
  const struct {
    Handle handle;
    AcRxClass* type;
  } kExpected[] = {{0x50, AcDbText::desc()},
                   {0x51, AcDbMText::desc()},
                   {0x52, AcDbAttributeDefinition::desc()},
                   {0x53, AcDbDimension::desc()},
                   {0x54, AcDbLeader::desc()},
                   {0x55, AcDbHatch::desc()},
                   {0x56, AcDbBlockReference::desc()},
                   {0x57, AcDbAttribute::desc()},
                   {0x59, AcDb2dPolyline::desc()},
                   {0x5A, AcDbVertex::desc()},
                   {0x5D, AcDbLine::desc()},
                   {0x5F, AcDbTable::desc()},
                   {0x11, AcDbLayerTableRecord::desc()},
                   {0x19, AcDbDimStyleTableRecord::desc()}};
  for (const auto& expected : kExpected) {
    AcDbObjectPointer<AcDbObject> object(id(expected.handle));
    ASSERT_EQ(object.openStatus(), Acad::eOk) << std::hex << expected.handle;
    EXPECT_EQ(object->isA(), expected.type) << std::hex << expected.handle;
  }
  AcDbObjectPointer<AcDbBlockReference> table(id(0x5F));  // is one, and has another name in files
  ASSERT_EQ(table.openStatus(), Acad::eOk);
  EXPECT_FALSE(table->blockTableRecord().isNull());
  EXPECT_STREQ(table->isA()->dxfName(), L"ACAD_TABLE");
  AcDbEntityPointer unknown(id(0x5E));
  ASSERT_EQ(unknown.openStatus(), Acad::eOk);
  EXPECT_STREQ(unknown->isA()->dxfName(), L"SPECIAL_THING");
  EXPECT_TRUE(unknown->isKindOf(AcDbEntity::desc()));
  EXPECT_EQ(AcDbText::cast(unknown.object()), nullptr);
}

TEST_F(OpeningTest, AnAttributeDefinitionIsAText) {
  EXPECT_EQ(AcDbObjectPointer<AcDbText>(id(0x52)).openStatus(), Acad::eOk);
  EXPECT_EQ(AcDbObjectPointer<AcDbText>(id(0x51)).openStatus(), Acad::eNotThatKindOfClass);
  EXPECT_EQ(openObjectCount(*database_), 0u);
}

TEST_F(OpeningTest, ManyReadersOrOneWriter) {
  AcDbText *first = nullptr, *second = nullptr, *writer = nullptr;
  ASSERT_EQ(acdbOpenObject(first, id(0x50)), Acad::eOk);
  ASSERT_EQ(acdbOpenObject(second, id(0x50)), Acad::eOk);
  EXPECT_EQ(first, second);
  EXPECT_EQ(acdbOpenObject(writer, id(0x50), AcDb::kForWrite), Acad::eWasOpenForRead);
  EXPECT_EQ(first->upgradeOpen(), Acad::eHadMultipleReaders);
  EXPECT_EQ(first->setHeight(9), Acad::eNotOpenForWrite);
  second->close();
  EXPECT_EQ(first->upgradeOpen(), Acad::eOk);
  EXPECT_EQ(first->setHeight(9), Acad::eOk);
  EXPECT_EQ(acdbOpenObject(second, id(0x50)), Acad::eWasOpenForWrite);
  EXPECT_EQ(second, nullptr);
  first->close();
  EXPECT_EQ(openObjectCount(*database_), 0u);
}

TEST_F(OpeningTest, ATableStaysOpenUntilItsIteratorsAreDeleted) {
  AcDbLayerTable* table = nullptr;
  AcDbLayerTableIterator* iterator = nullptr;
  ASSERT_EQ(database_->getSymbolTable(table, AcDb::kForRead), Acad::eOk);
  ASSERT_EQ(table->newIterator(iterator), Acad::eOk);
  EXPECT_EQ(table->close(), Acad::eInvalidOpenState);
  delete iterator;
  EXPECT_EQ(table->close(), Acad::eOk);

  AcDbBlockTableRecordPointer space(ACDB_MODEL_SPACE, database_.get());
  AcDbBlockTableRecordIterator* entities = nullptr;
  ASSERT_EQ(space->newIterator(entities), Acad::eOk);
  EXPECT_EQ(space->close(), Acad::eInvalidOpenState);
  delete entities;
  EXPECT_EQ(space.close(), Acad::eOk);
  EXPECT_EQ(openObjectCount(*database_), 0u);
}

TEST_F(OpeningTest, ReadersAreCounted) {
  std::vector<AcDbText*> readers(256);
  for (AcDbText*& reader : readers) ASSERT_EQ(acdbOpenObject(reader, id(0x50)), Acad::eOk);
  EXPECT_EQ(AcDbEntityPointer(id(0x50)).openStatus(), Acad::eAtMaxReaders);
  for (AcDbText* reader : readers) reader->close();
}

TEST_F(OpeningTest, LockedLayersRefuseWriters) {
  EXPECT_EQ(AcDbEntityPointer(id(0x5D), AcDb::kForWrite).openStatus(), Acad::eOnLockedLayer);
  EXPECT_EQ(static_cast<int>(Acad::eOnLockedLayer), 87);
  AcDbEntityPointer reader(id(0x5D));
  EXPECT_EQ(reader.openStatus(), Acad::eOk);
  EXPECT_EQ(reader->upgradeOpen(), Acad::eOnLockedLayer);
  reader.close();
  AcDbLayerTableRecordPointer(L"locked", database_.get(), AcDb::kForWrite)->setIsLocked(false);
  EXPECT_EQ(AcDbEntityPointer(id(0x5D), AcDb::kForWrite).openStatus(), Acad::eOk);
}

TEST_F(OpeningTest, ErasedObjectsOpenOnlyWhenAskedFor) {
  EXPECT_EQ(Writing<AcDbEntity>(id(0x50), AcDb::kForWrite)->erase(), Acad::eOk);
  EXPECT_TRUE(id(0x50).isErased());
  EXPECT_EQ(AcDbEntityPointer(id(0x50)).openStatus(), Acad::eWasErased);
  EXPECT_EQ(Writing<AcDbEntity>(id(0x50), AcDb::kForWrite, true)->erase(false), Acad::eOk);
  EXPECT_EQ(AcDbEntityPointer(id(0x50)).openStatus(), Acad::eOk);
  EXPECT_EQ(AcDbLayerTableRecordPointer(L"0", database_.get(), AcDb::kForWrite)->erase(),
            Acad::eCannotBeErasedByCaller);
}

TEST_F(OpeningTest, IdsNameObjectsOfOneDatabase) {
  const AcDbObjectId text = id(0x50);
  EXPECT_EQ(text.database(), database_.get());
  EXPECT_EQ(text.handle(), Handle{0x50});
  EXPECT_NE(text, id(0x51));
  ACHAR buffer[17];
  ASSERT_TRUE(AcDbHandle(0x1ABCDEF01ULL).getIntoAsciiBuffer(buffer, 17));
  EXPECT_STREQ(buffer, L"1ABCDEF01");
  EXPECT_EQ(AcDbEntityPointer(AcDbObjectId()).openStatus(), Acad::eNullObjectId);

  auto other = dxf::loadBytes(officeDrawing());
  ASSERT_TRUE(other);
  const auto otherDatabase = makeDatabase(*other.value());
  AcDbObjectId foreign;
  otherDatabase->getAcDbObjectId(foreign, false, AcDbHandle(0x11));
  EXPECT_EQ(Writing<AcDbEntity>(id(0x50), AcDb::kForWrite)->setLayer(foreign), Acad::eWrongDatabase);
}

TEST_F(OpeningTest, AClosedDrawingLeavesNoDanglingObjects) {
  AcDbText* text = nullptr;
  const AcDbObjectId textId = id(0x50);
  ASSERT_EQ(acdbOpenObject(text, textId, AcDb::kForWrite), Acad::eOk);
  database_.reset();
  EXPECT_FALSE(textId.isValid());
  EXPECT_EQ(text->setHeight(2), Acad::eOk);  // a detached object: nothing is written anywhere
  EXPECT_EQ(text->database(), nullptr);
  EXPECT_EQ(text->close(), Acad::eOk);
  EXPECT_EQ(AcDbEntityPointer(textId).openStatus(), Acad::eInvalidKey);
}

TEST_F(OpeningTest, OwnersAndBlocks) {
  AcDbEntityPointer attribute(id(0x57));
  EXPECT_EQ(attribute->ownerId(), id(0x56));
  AcDbEntityPointer text(id(0x50));
  EXPECT_EQ(text->blockId(), database_->currentSpaceId());
  AcDbObjectPointer<AcDbBlockReference> door(id(0x56));
  AcDbBlockTableRecordPointer definition(door->blockTableRecord());
  ASSERT_EQ(definition.openStatus(), Acad::eOk);
  AcString name;
  definition->getName(name);
  EXPECT_STREQ(name, L"DOOR");
}

}  // namespace
}  // namespace cad::test
