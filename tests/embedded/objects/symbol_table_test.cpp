// Symbol tables: finding, walking, adding and renaming records; layers and text styles.

#include "tests/embedded/objects/fixture.h"

namespace cad::test {
namespace {

class SymbolTableTest : public ObjectTest {
 protected:
  std::vector<std::wstring> layerNames() {
    std::vector<std::wstring> names;
    AcDbLayerTablePointer table(database_.get());
    AcDbLayerTableIterator* iterator = nullptr;
    table->newIterator(iterator);
    for (; !iterator->done(); iterator->step()) {
      AcDbLayerTableRecord* record = nullptr;
      if (iterator->getRecord(record, AcDb::kForRead) != Acad::eOk) continue;
      const ACHAR* name = nullptr;
      record->getName(name);
      names.emplace_back(name);
      record->close();
    }
    delete iterator;
    return names;
  }
};

TEST_F(SymbolTableTest, RecordsAreFoundAndWalked) {
  AcDbLayerTablePointer table(database_.get());
  EXPECT_TRUE(table->has(L"WALLS"));
  EXPECT_TRUE(table->has(layerId(L"walls")));
  EXPECT_FALSE(table->has(recordId<AcDbLinetypeTable>(L"DASHED")));
  AcDbObjectId missing;
  EXPECT_EQ(table->getIdAt(L"Roof", missing), Acad::eKeyNotFound);
  EXPECT_TRUE(missing.isNull());
  EXPECT_EQ(layerNames(), (std::vector<std::wstring>{L"0", L"Walls", L"Locked", L"Furniture"}));
}

TEST_F(SymbolTableTest, ANewLayerTakesWhatWasSetBeforeItWasAdded) {
  auto* layer = new AcDbLayerTableRecord;
  AcCmColor color;
  color.setColorIndex(4);
  EXPECT_EQ(layer->setName(L"\x901A\x308A\x82AF"), Acad::eOk);
  layer->setColor(color);
  EXPECT_EQ(layer->setLinetypeObjectId(recordId<AcDbLinetypeTable>(L"DASHED")), Acad::eOk);
  EXPECT_EQ(layer->setIsPlottable(false), Acad::eOk);
  {
    AcDbLayerTablePointer table(database_.get(), AcDb::kForWrite);
    ASSERT_EQ(table->add(layer), Acad::eOk);
    EXPECT_EQ(table->add(layer), Acad::eAlreadyInDb);
  }
  EXPECT_EQ(layer->setLineWeight(AcDb::kLnWt035), Acad::eOk);
  layer->close();

  AcDbLayerTableRecordPointer added(L"\x901A\x308A\x82AF", database_.get());
  ASSERT_EQ(added.openStatus(), Acad::eOk);
  EXPECT_EQ(added->color().colorIndex(), 4);
  EXPECT_EQ(added->linetypeObjectId(), recordId<AcDbLinetypeTable>(L"DASHED"));
  EXPECT_FALSE(added->isPlottable());
  EXPECT_EQ(added->lineWeight(), AcDb::kLnWt035);
  EXPECT_EQ(Writing<AcDbEntity>(id(0x50), AcDb::kForWrite)->setLayer(added->objectId()), Acad::eOk);
  EXPECT_EQ(openObjectCount(*database_), 1u);
}

TEST_F(SymbolTableTest, RefusedRecordsStayTheCallers) {
  AcDbLayerTablePointer table(database_.get(), AcDb::kForWrite);
  AcDbLayerTableRecordPointer layer;
  layer.create();
  EXPECT_EQ(table->add(layer), Acad::eInvalidInput);  // no name
  EXPECT_EQ(layer->setName(L"a*b"), Acad::eInvalidInput);
  EXPECT_EQ(layer->setName(L"WALLS"), Acad::eOk);
  EXPECT_EQ(table->add(layer), Acad::eDuplicateRecordName);
  AcDbTextStyleTableRecordPointer style;
  style.create();
  style->setName(L"New");
  EXPECT_EQ(table->add(style.object()), Acad::eWrongObjectType);
  layer->setName(L"New");
  table.close();
  EXPECT_EQ(AcDbLayerTablePointer(database_.get())->add(layer), Acad::eNotOpenForWrite);
}

TEST_F(SymbolTableTest, ALayerIsRenamedWithItsReferences) {
  AcDbLayerTableRecordPointer walls(L"Walls", database_.get(), AcDb::kForWrite);
  EXPECT_EQ(walls->setName(L"furniture"), Acad::eDuplicateRecordName);
  for (const wchar_t* bad : {L"<bad>", L"SITE|WALLS", L" A", L"A ", L"A\tB", L""})
    EXPECT_EQ(walls->setName(bad), Acad::eInvalidInput) << bad;
  EXPECT_EQ(walls->setName(L"A-WALL"), Acad::eOk);
  EXPECT_EQ(layerOf(0x50), L"A-WALL");
  EXPECT_EQ(layerOf(0x57), L"A-WALL");
  EXPECT_EQ(database_->clayer(), walls->objectId());
  EXPECT_EQ(AcDbLayerTableRecordPointer(L"0", database_.get(), AcDb::kForWrite)->setName(L"Zero"),
            Acad::eNotApplicable);
}

TEST_F(SymbolTableTest, LayerStates) {
  AcDbLayerTableRecordPointer locked(L"Locked", database_.get(), AcDb::kForWrite);
  EXPECT_TRUE(locked->isLocked());
  EXPECT_TRUE(locked->isOff());
  EXPECT_EQ(locked->color().colorIndex(), 5);
  AcCmColor color;
  color.setColorIndex(2);
  locked->setColor(color);
  EXPECT_TRUE(locked->isOff());
  locked->setIsOff(false);
  EXPECT_EQ(locked->color().colorIndex(), 2);
  EXPECT_EQ(locked->setIsFrozen(true), Acad::eOk);
  EXPECT_TRUE(locked->isFrozen());
  EXPECT_TRUE(locked->isLocked());
  color.setColorIndex(256);
  locked->setColor(color);
  EXPECT_EQ(locked->color().colorIndex(), 2);
  EXPECT_EQ(locked->setLineWeight(AcDb::kLnWtByLayer), Acad::eInvalidInput);
  EXPECT_EQ(locked->lineWeight(), AcDb::kLnWtByLwDefault);
  EXPECT_EQ(locked->setLinetypeObjectId(recordId<AcDbLinetypeTable>(L"ByLayer")), Acad::eInvalidInput);
  EXPECT_EQ(locked->setTransparency(AcCmTransparency(Adesk::UInt8{127})), Acad::eOk);
  EXPECT_EQ(locked->transparency().alpha(), 127);
  AcDbLayerTableRecordPointer walls(L"Walls", database_.get(), AcDb::kForWrite);
  EXPECT_EQ(walls->setIsFrozen(true), Acad::eInvalidLayer);  // the current layer
  EXPECT_TRUE(walls->transparency().isSolid());
}

TEST_F(SymbolTableTest, OldDrawingsAcceptWhatEveryLayerHasAnyway) {
  load(officeDrawing("AC1012"));
  AcDbLayerTableRecordPointer walls(L"Walls", database_.get(), AcDb::kForWrite);
  EXPECT_EQ(walls->setLineWeight(AcDb::kLnWtByLwDefault), Acad::eOk);
  EXPECT_EQ(walls->setTransparency(AcCmTransparency(Adesk::UInt8{255})), Acad::eOk);
  EXPECT_EQ(walls->setIsPlottable(true), Acad::eOk);
  EXPECT_FALSE(drawing_->isModified());
  EXPECT_EQ(walls->setLineWeight(AcDb::kLnWt025), Acad::eNotApplicable);
  EXPECT_EQ(walls->setTransparency(AcCmTransparency(Adesk::UInt8{100})), Acad::eNotApplicable);
  EXPECT_EQ(walls->setIsPlottable(false), Acad::eNotApplicable);
}

TEST_F(SymbolTableTest, TextStyleFonts) {
  AcDbTextStyleTableRecordPointer style(L"Notes", database_.get(), AcDb::kForWrite);
  AcString text;
  bool bold = true, italic = true;
  int charset = 1, family = 1;
  EXPECT_EQ(style->setFont(L"MS Gothic", false, true, 128, 49), Acad::eOk);
  style->font(text, bold, italic, charset, family);
  EXPECT_STREQ(text, L"MS Gothic");
  EXPECT_EQ((std::vector<int>{bold, italic, charset, family}), (std::vector<int>{0, 1, 128, 49}));
  style->fileName(text);
  EXPECT_STREQ(text, L"msgothic.ttc");
  EXPECT_EQ(style->setFont(L"Office", false, false, 256, 0), Acad::eInvalidInput);
  EXPECT_EQ(style->setFont(L"Office", false, false, 1, 0), Acad::eOk);
  style->fileName(text);
  EXPECT_STREQ(text, L"Office");
  EXPECT_EQ(style->setFileName(L"simplex.shx"), Acad::eOk);
  EXPECT_EQ(style->setBigFontFileName(L"extfont2.shx"), Acad::eOk);
  style->font(text, bold, italic, charset, family);
  EXPECT_TRUE(text.isEmpty());
  style->fileName(text);
  EXPECT_STREQ(text, L"simplex.shx");
  style->bigFontFileName(text);
  EXPECT_STREQ(text, L"extfont2.shx");
  EXPECT_DOUBLE_EQ(style->textSize(), 2.5);
  EXPECT_DOUBLE_EQ(style->xScale(), 0.8);
}

TEST_F(SymbolTableTest, BlocksAreWalkedInBothDirections) {
  AcDbBlockTableRecordPointer space(ACDB_MODEL_SPACE, database_.get());
  ASSERT_EQ(space.openStatus(), Acad::eOk);
  EXPECT_TRUE(space->isLayout());
  Writing<AcDbEntity>(id(0x50), AcDb::kForWrite)->erase();
  const auto walk = [&](bool forward) {
    std::vector<Handle> handles;
    AcDbBlockTableRecordIterator* iterator = nullptr;
    space->newIterator(iterator, forward);
    for (; !iterator->done(); iterator->step(forward)) {
      AcDbEntity* entity = nullptr;
      if (iterator->getEntity(entity, AcDb::kForRead) != Acad::eOk) continue;
      AcDbHandle handle;
      entity->getAcDbHandle(handle);
      handles.push_back(handle);
      entity->close();
    }
    delete iterator;
    return handles;
  };
  const std::vector<Handle> expected{0x51, 0x52, 0x53, 0x54, 0x55, 0x56, 0x59, 0x5D, 0x5E, 0x5F};
  EXPECT_EQ(walk(true), expected);
  EXPECT_EQ(walk(false), std::vector<Handle>(expected.rbegin(), expected.rend()));

  AcDbBlockTableRecordPointer anonymous(L"*d1", database_.get());
  EXPECT_TRUE(anonymous->isAnonymous());
  EXPECT_FALSE(AcDbBlockTableRecordPointer(L"DOOR", database_.get())->isAnonymous());
}

TEST_F(SymbolTableTest, MissingRecordsAreReportedByThePointer) {
  AcDbLayerTableRecordPointer missing(L"Roof", database_.get());
  EXPECT_EQ(missing.openStatus(), Acad::eKeyNotFound);
  EXPECT_EQ(missing.object(), nullptr);
  EXPECT_EQ(openObjectCount(*database_), 0u);
}

}  // namespace
}  // namespace cad::test
