// Changes of drawings that the tests build and, where this machine has them, of real ones: each comes out of
// the file as it was put in, and taking it back gives the file again.

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>

#include "base/files.h"
#include "base/fold.h"
#include "base/paths.h"
#include "embedded/drawing/dim_variables.h"
#include "embedded/drawing/drawing.h"
#include "embedded/dwg/application_data.h"
#include "embedded/dwg/dwg_storage.h"
#include "embedded/formats/drawing_files.h"
#include "tests/embedded/dwg/built_drawing.h"
#include "tests/support/temp_folder.h"

namespace cad::dwg {
namespace {

namespace fs = std::filesystem;
using P = Property;

constexpr std::string_view kBuilt = "Built";

// By the code of a version: the sample of it, or with kBuilt before it the built drawing.
class Changes : public testing::TestWithParam<std::string> {
 protected:
  void SetUp() override {
    const std::string code = GetParam();
    if (isBuilt()) {
      file_ = test_support::tempPath("dwg_built.dwg");
      const auto version = base::versionByCode(code.substr(kBuilt.size()));
      ASSERT_TRUE(base::writeFileAtomically(file_, builtDrawing(version)).ok());
    } else {
      file_ = fs::path(KIV_SAMPLES).parent_path() / "dwg" / ("sample_" + code + ".dwg");
    }
    if (!fs::exists(file_)) GTEST_SKIP();
    target_ = test_support::tempPath("dwg_changes.dwg");
    drawing_ = open(file_);
  }
  void TearDown() override {
    fs::remove(target_);
    if (isBuilt()) fs::remove(file_);
  }
  static bool isBuilt() { return GetParam().starts_with(kBuilt); }

  static std::unique_ptr<Drawing> open(const fs::path& file) {
    auto drawing = formats::open(file);
    EXPECT_TRUE(drawing.ok()) << base::toUtf8(drawing.failure().text());
    return std::move(drawing.value());
  }
  std::unique_ptr<Drawing> savedAndOpened() {
    const base::Status saved = drawing_->save(target_);
    EXPECT_TRUE(saved.ok()) << base::toUtf8(saved.failure().text());
    return open(target_);
  }
  bool isAsInFile() {
    EXPECT_TRUE(drawing_->save(target_).ok());
    return base::readFile(target_).value() == base::readFile(file_).value();
  }
  static RecordId firstOf(const Drawing& drawing, std::string_view type) {
    for (RecordId id = 0; id < drawing.recordCount(); ++id)
      if (drawing.record(id).kind == RecordKind::kEntity && drawing.typeName(id) == type) return id;
    return kNoRecord;
  }
  void expectOk(const base::Status& status) {
    EXPECT_TRUE(status.ok()) << base::toUtf8(status.failure().text());
  }

  fs::path file_, target_;
  std::unique_ptr<Drawing> drawing_;
};

struct Setting {
  P property;
  StoredValue value;
};

// Angles are told in radians, or by a direction.
bool isSame(const StoredValue& a, const StoredValue& b) {
  const auto *one = std::get_if<double>(&a), *other = std::get_if<double>(&b);
  return one != nullptr && other != nullptr ? std::fabs(*one - *other) < 1e-9 : a == b;
}

TEST_P(Changes, OfAPropertyAreReadBackAndTakenBackBitForBit) {
  const auto original = open(file_);
  const RecordId layer = drawing_->tableRecords(Table::kLayer).back();
  const RecordId style = drawing_->tableRecords(Table::kTextStyle).front();
  const RecordId linetype = drawing_->find(Table::kLinetype, std::wstring_view(L"ACAD_ISO02W100"));
  const Setting settings[] = {{P::kLayer, Reference{layer}},
                              {P::kLinetype, Reference{linetype}},
                              {P::kColorIndex, std::int64_t{3}},
                              {P::kLineWeight, std::int64_t{50}},
                              {P::kLinetypeScale, 2.5},
                              {P::kInvisible, std::int64_t{1}},
                              {P::kTextStyle, Reference{style}},
                              {P::kTextHeight, 7.25},
                              {P::kRotation, 45.0},
                              {P::kWidthFactor, 0.75},
                              {P::kTextString, std::string("x")},
                              {P::kTextRotation, 30.0},
                              {P::kDimText, std::string("<> mm")},
                              {P::kLayerColor, std::int64_t{-5}},
                              {P::kLayerPlottable, std::int64_t{0}},
                              {P::kFixedHeight, 3.0},
                              {P::kStyleWidthFactor, 0.5},
                              {P::kDescription, std::string("d")},
                              {P::kStyleOblique, 15.0},
                              {P::kFontFile, std::string("y.shx")}};
  int tried = 0;
  for (RecordId id = 0; id < original->recordCount(); ++id) {
    for (const Setting& setting : settings) {
      if (original->record(id).implied() || !drawing_->canHold(id, setting.property)) continue;
      const StoredValue before = drawing_->storage().property(drawing_->record(id), setting.property);
      const base::Status set = drawing_->setStored(id, setting.property, setting.value);
      ASSERT_TRUE(set.ok()) << base::toUtf8(set.failure().text());
      const StoredValue now = drawing_->storage().property(drawing_->record(id), setting.property);
      EXPECT_TRUE(isSame(now, setting.value))
          << drawing_->typeName(id) << ' ' << propertyInfo(setting.property).name;
      ASSERT_TRUE(drawing_->undo() || before == setting.value);
      ++tried;
    }
  }
  EXPECT_GT(tried, isBuilt() ? 100 : 1000);
  EXPECT_TRUE(isAsInFile());
}

// The drawings have such layers from the first version on that knows them.
TEST_P(Changes, OfAColourNumberDropTheTrueColourThatItStandsFor) {
  int tried = 0;
  for (RecordId id = 0; id < drawing_->recordCount(); ++id) {
    const bool isLayer = drawing_->record(id).table == Table::kLayer;
    const P property = isLayer ? P::kLayerColor : P::kColorIndex;
    if (drawing_->record(id).implied() || !drawing_->canHold(id, property)) continue;
    if (!drawing_->looks(id).trueColor) continue;
    const auto number = drawing_->integer(id, property);
    ASSERT_TRUE(number);
    EXPECT_TRUE(*number > 0 && *number < 256) << *number;
    if (isLayer) {
      expectOk(drawing_->setInteger(id, property, -*number));
      EXPECT_TRUE(drawing_->looks(id).trueColor) << "turned off";
      expectOk(drawing_->setInteger(id, property, *number));
    }
    expectOk(drawing_->setInteger(id, property, *number));
    EXPECT_FALSE(drawing_->looks(id).trueColor);
    EXPECT_EQ(drawing_->integer(id, property), number);
    ++tried;
  }
  EXPECT_EQ(tried > 0, !isBuilt() && drawing_->facts().version >= base::Version::kR2004);
}

TEST_P(Changes, BackToTheOldValueGiveTheOldBits) {
  const auto original = open(file_);
  for (RecordId id = 0; id < original->recordCount(); ++id) {
    if (drawing_->record(id).kind != RecordKind::kEntity) continue;
    const Drawing& was = *original;
    const auto set = [&](P property, double value) {
      const auto before = was.real(id, property);
      if (!before || !drawing_->canHold(id, property)) return;
      expectOk(drawing_->setReal(id, property, value));
      expectOk(drawing_->setReal(id, property, *before));
    };
    set(P::kTextHeight, 11), set(P::kWidthFactor, 0.3), set(P::kLinetypeScale, 4);
    set(P::kRotation, 12), set(P::kTextRotation, 7);
    const auto name = was.text(id, P::kLayer);
    expectOk(drawing_->setText(id, P::kLayer, L"Layer_Off"));
    expectOk(drawing_->setText(id, P::kLayer, *name));
    if (drawing_->canHold(id, P::kTextString)) {
      expectOk(drawing_->setText(id, P::kTextString, L"another"));
      const StoredValue text = was.storage().property(was.record(id), P::kTextString);
      expectOk(drawing_->setStored(id, P::kTextString, text));
    }
    EXPECT_TRUE(drawing_->storage().holdsSame(drawing_->record(id), was.storage(), was.record(id)))
        << drawing_->typeName(id) << ' ' << *drawing_->handle(id);
  }
}

// Some of them are values over the bits, others make bits of all.
TEST_P(Changes, OfOneEntityAreTakenBackOneByOne) {
  const RecordId layer = drawing_->tableRecords(Table::kLayer).back();
  const Setting settings[] = {{P::kColorIndex, std::int64_t{3}},
                              {P::kLayer, Reference{layer}},
                              {P::kTextString, std::string("x")},
                              {P::kTextHeight, 7.25},
                              {P::kColorIndex, std::int64_t{5}},
                              {P::kTransparency, std::int64_t{0x02000040}},
                              {P::kColorIndex, std::int64_t{6}},
                              {P::kLinetypeScale, 2.5},
                              {P::kTextHeight, 8.5},
                              {P::kInvisible, std::int64_t{1}}};
  const auto looks = [&](RecordId id) {
    std::vector<StoredValue> values;
    for (const Setting& setting : settings)
      values.push_back(drawing_->storage().property(drawing_->record(id), setting.property));
    return values;
  };
  std::size_t most = 0;
  for (RecordId id = 0; id < drawing_->recordCount(); ++id) {
    if (drawing_->record(id).kind != RecordKind::kEntity) continue;
    std::vector<std::vector<StoredValue>> states = {looks(id)};
    for (const auto& [property, value] : settings) {
      if (!drawing_->canHold(id, property)) continue;
      const EditId before = drawing_->record(id).edits;
      expectOk(drawing_->setStored(id, property, value));
      if (drawing_->record(id).edits != before) states.push_back(looks(id));
    }
    most = std::max(most, states.size());
    for (; states.size() > 1; states.pop_back()) {
      EXPECT_TRUE(looks(id) == states.back()) << drawing_->typeName(id) << ' ' << states.size();
      ASSERT_TRUE(drawing_->undo());
    }
    EXPECT_TRUE(looks(id) == states.back()) << drawing_->typeName(id);
  }
  EXPECT_GE(most, 8U);
  EXPECT_TRUE(isAsInFile());
}

// Overrides in the lists that are there, and typefaces.
TEST_P(Changes, OfExtendedDataBackToTheOldValueGiveTheOldBits) {
  expectOk(drawing_->setDimVariable(firstOf(*drawing_, "DIMENSION"), dimRow("DIMTXT"), 4.5));
  const auto original = savedAndOpened();
  drawing_ = open(target_);
  const auto expectSame = [&](RecordId id) {
    EXPECT_TRUE(
        drawing_->storage().holdsSame(drawing_->record(id), original->storage(), original->record(id)))
        << drawing_->typeName(id) << ' ' << *drawing_->handle(id);
  };
  int tried = 0;
  for (RecordId id = 0; id < original->recordCount(); ++id) {
    const Record& record = original->record(id);
    if (record.kind == RecordKind::kEntity) {
      for (const DimValue& own : original->dimVariables(record)) {
        const auto* real = std::get_if<double>(&own.value);
        const auto* integer = std::get_if<std::int64_t>(&own.value);
        if ((real == nullptr && integer == nullptr) || !own.variable->existsIn(original->facts().version))
          continue;
        const Variable other =
            real != nullptr ? Variable(*real + 1) : Variable(*integer == 0 ? std::int64_t{1} : 0);
        expectOk(drawing_->setDimVariable(id, *own.variable, other));
        EXPECT_EQ(drawing_->dimVariable(id, *own.variable), other);
        expectOk(drawing_->setDimVariable(id, *own.variable, own.value));
        ++tried;
      }
      expectSame(id);
    }
    if (record.table != Table::kTextStyle || record.implied()) continue;
    if (!original->canHold(id, P::kTypeface)) continue;
    const StoredValue face = original->storage().property(record, P::kTypeface);
    if (std::holds_alternative<std::monostate>(face)) continue;
    expectOk(drawing_->setText(id, P::kTypeface, L"Another"));
    expectOk(drawing_->setStored(id, P::kTypeface, face));
    expectSame(id);
    ++tried;
  }
  EXPECT_GT(tried, 0);
}

// R14 writes typefaces, too: one that stayed would win over the file that takes its place.
TEST_P(Changes, ATypefaceComesAndGoesInEveryVersion) {
  const Handle style = *drawing_->handle(drawing_->tableRecords(Table::kTextStyle).front());
  const auto faceAfter = [&](const wchar_t* face) {
    expectOk(drawing_->setText(drawing_->findHandle(style), P::kTypeface, face));
    drawing_ = savedAndOpened();
    return drawing_->text(drawing_->findHandle(style), P::kTypeface);
  };
  EXPECT_EQ(faceAfter(L"Gothic"), L"Gothic");
  EXPECT_EQ(faceAfter(L""), std::nullopt);
}

TEST_P(Changes, NewTextsOfExtendedDataHaveNoClosingZero) {
  const RecordId dimension = firstOf(*drawing_, "DIMENSION");
  const RecordId style = drawing_->tableRecords(Table::kTextStyle).front();
  expectOk(drawing_->setDimVariable(dimension, dimRow("DIMTXT"), 4.5));
  expectOk(drawing_->setDimVariable(dimension, dimRow("DIMPOST"), std::wstring(L"<> mm")));
  expectOk(drawing_->setText(style, P::kTypeface, L"Gothic"));
  const auto& storage = dynamic_cast<const DwgStorage&>(drawing_->storage());
  int texts = 0;
  for (const RecordId id : {dimension, style}) {
    const auto values = readableValues(storage, drawing_->record(id), L"ACAD");
    ASSERT_TRUE(values);
    for (const ExtendedValue& value : *values) {
      if (value.code != 1000) continue;
      const bool hasZero = hasWideTexts(storage.version())
                               ? std::get<std::u16string>(value.value).find(u'\0') != std::u16string::npos
                               : std::get<std::string>(value.value).find('\0') != std::string::npos;
      EXPECT_FALSE(hasZero);
      ++texts;
    }
  }
  EXPECT_GE(texts, 3);
}

TEST_P(Changes, ExtendedDataThatCannotBeReadIsNotReplaced) {
  const RecordId dimension = firstOf(*drawing_, "DIMENSION");
  const RecordId application = drawing_->find(Table::kAppId, std::wstring_view(L"ACAD"));
  ASSERT_NE(application, kNoRecord);
  auto& storage = dynamic_cast<DwgStorage&>(drawing_->storage());
  const std::string damaged = "\x28\1";  // a number that is cut off
  FieldChanges changes;
  changes.setExtendedData({{{5, 0, *drawing_->handle(application)}, damaged}});
  expectOk(storage.change(*drawing_, dimension, changes));
  const base::Status set = drawing_->setDimVariable(dimension, dimRow("DIMTXT"), 4.5);
  ASSERT_FALSE(set.ok());
  EXPECT_EQ(set.failure().reason, L"The extended data of an object is damaged at value 1 (code 1040)");
  EXPECT_FALSE(drawing_->removeDimOverride(dimension, dimRow("DIMTXT")).ok());
  const auto data = readExtendedData(storage.frame(drawing_->record(dimension)).value());
  ASSERT_EQ(data.value().size(), 1u);
  EXPECT_EQ(data.value().front().bytes, damaged);
}

TEST_P(Changes, WhatIsAlikeButForLayerAndColourIsToldFromTheRest) {
  const RecordId dimension = firstOf(*drawing_, "DIMENSION");
  const Record before = drawing_->record(dimension);
  const auto differInCommonOnly = [&] {
    return drawing_->storage().differInCommonOnly(before, drawing_->record(dimension));
  };
  expectOk(drawing_->setText(dimension, P::kLayer, L"Layer_Off"));
  expectOk(drawing_->setInteger(dimension, P::kColorIndex, 3));
  EXPECT_TRUE(differInCommonOnly());
  expectOk(drawing_->setDimVariable(dimension, dimRow("DIMTXT"), 4.5));
  EXPECT_FALSE(differInCommonOnly());
  ASSERT_TRUE(drawing_->undo());
  expectOk(drawing_->setText(dimension, P::kDimText, L"another"));
  EXPECT_FALSE(differInCommonOnly());
}

// The same handle may be that of another layer there.
TEST_P(Changes, ExtendedDataIsTheSameOnlyWhenItNamesTheSame) {
  const RecordId text = firstOf(*drawing_, "TEXT");
  const RecordId layer = drawing_->find(Table::kLayer, std::wstring_view(L"Layer1"));
  auto& storage = dynamic_cast<DwgStorage&>(drawing_->storage());
  std::vector<ExtendedValue> values;
  append(values, 1003, HandleReference{0, 8, *drawing_->handle(layer)});
  FieldChanges changes;
  const Handle application = *drawing_->handle(drawing_->find(Table::kAppId, std::wstring_view(L"ACAD")));
  changes.setExtendedData({{{5, 0, application}, encodeExtended(values).value()}});
  expectOk(storage.change(*drawing_, text, changes));
  const auto one = savedAndOpened();
  const fs::path file = test_support::tempPath("dwg_changes_other.dwg");
  const auto isSameThere = [&] {
    expectOk(drawing_->save(file));
    const auto other = open(file);
    const Handle handle = *drawing_->handle(text);
    const RecordId here = one->findHandle(handle), there = other->findHandle(handle);
    return one->storage().holdsSame(one->record(here), other->storage(), other->record(there));
  };
  EXPECT_TRUE(isSameThere());
  expectOk(drawing_->renameLayer(layer, L"Renamed"));
  EXPECT_FALSE(isSameThere());
  fs::remove(file);
}

// What stands in it and is no entity of the block here does so behind a change, too.
TEST_P(Changes, ABlocksListKeepsWhatItHad) {
  if (drawing_->facts().version < base::Version::kR2004) GTEST_SKIP();
  auto& storage = dynamic_cast<DwgStorage&>(drawing_->storage());
  const auto entry = [](const Drawing& drawing) {
    const auto& own = dynamic_cast<const DwgStorage&>(drawing.storage());
    return own.recordOf(own.entryOf(drawing.record(drawing.modelSpace())));
  };
  const Handle other = *drawing_->handle(drawing_->find(Table::kLayer, std::wstring_view(L"Layer1")));
  const Fields fields = storage.fields(drawing_->record(entry(*drawing_)));
  const std::uint32_t count = fields.count("entity");
  const Handle first = *fields.handle("entity", 0);
  FieldChanges changes;
  changes.set("entity count", count + 1);
  changes.setHandle("entity", other, count);
  expectOk(storage.change(*drawing_, entry(*drawing_), changes));
  expectOk(drawing_->setErased(drawing_->findHandle(first), true));
  const auto saved = savedAndOpened();
  const auto& now = dynamic_cast<const DwgStorage&>(saved->storage()).fields(saved->record(entry(*saved)));
  ASSERT_EQ(now.count("entity"), count);
  EXPECT_EQ(now.handle("entity", 0), fields.handle("entity", 1));
  EXPECT_EQ(now.handle("entity", count - 1), other);
}

TEST_P(Changes, AReferenceToAnotherBlockIsListedThere) {
  if (drawing_->facts().version < base::Version::kR2000) GTEST_SKIP();
  const RecordId insert = firstOf(*drawing_, "INSERT");
  ASSERT_NE(insert, kNoRecord);
  const Handle handle = *drawing_->handle(insert);
  const Shape shapes[] = {LineShape{{0, 0}, {1, 1}}};
  const auto block = drawing_->defineBlock(L"NEWBLOCK", shapes);
  ASSERT_TRUE(block.ok());
  const auto isListed = [&](const Drawing& drawing, RecordId of) {
    const auto& storage = dynamic_cast<const DwgStorage&>(drawing.storage());
    const Fields& fields =
        storage.fields(drawing.record(storage.recordOf(storage.entryOf(drawing.record(of)))));
    for (const Field& field : fields.all()) {
      const auto* reference = std::get_if<HandleReference>(&field.value);
      if (field.name == "insert" && reference->absolute(fields.own()) == handle) return true;
    }
    return false;
  };
  const RecordId was = drawing_->reference(insert, P::kBlockName);
  const Handle old = *drawing_->handle(was);
  const auto otherData = [&](const Drawing& drawing) {
    const auto& storage = dynamic_cast<const DwgStorage&>(drawing.storage());
    const RecordId entry = storage.recordOf(storage.entryOf(drawing.record(drawing.findHandle(old))));
    return storage.otherData(drawing.record(entry), {});
  };
  const auto told = otherData(*drawing_);
  EXPECT_TRUE(isBuilt() || isListed(*drawing_, was));
  expectOk(drawing_->setReference(insert, P::kBlockName, block.value()));
  const auto saved = savedAndOpened();
  EXPECT_FALSE(isListed(*saved, saved->findHandle(old)));
  EXPECT_TRUE(isListed(*saved, saved->find(Table::kBlock, std::wstring_view(L"NEWBLOCK"))));
  EXPECT_EQ(otherData(*saved), told);  // the list is nothing of the block itself
}

TEST_P(Changes, ErasedEntitiesTakeAlongChainsOfAnyLength) {
  if (drawing_->facts().version != base::Version::kR2000) GTEST_SKIP();
  auto& storage = dynamic_cast<DwgStorage&>(drawing_->storage());
  const RecordId text = firstOf(*drawing_, "TEXT");
  std::vector<Handle> chain(50000);
  for (Handle& handle : chain) handle = storage.takeHandle();
  Handle owner = *drawing_->handle(text);
  FieldChanges first;
  first.setHandle("dictionary", chain.front());
  expectOk(storage.change(*drawing_, text, first));
  for (std::size_t i = 0; i < chain.size(); ++i) {
    NewObject object{ObjectKind::kDictionary, chain[i], {}};
    object.values.setHandle("owner", owner);
    if (i + 1 < chain.size()) object.values.setHandle("dictionary", chain[i + 1]);
    ASSERT_TRUE(storage.enter(*drawing_, object, {.kind = RecordKind::kObject}).ok());
    owner = chain[i];
  }
  const auto saved = savedAndOpened();
  ASSERT_NE(saved->findHandle(chain.back()), kNoRecord);
  expectOk(saved->setErased(saved->findHandle(*drawing_->handle(text)), true));
  const fs::path file = test_support::tempPath("dwg_changes_other.dwg");
  expectOk(saved->save(file));
  EXPECT_EQ(open(file)->findHandle(chain.back()), kNoRecord);
  EXPECT_EQ(open(file)->findHandle(chain.front()), kNoRecord);
  fs::remove(file);
}

TEST_P(Changes, WhatWasTakenBackIsNotFoundByTheHandleOfWhatCameLater) {
  const auto first = drawing_->addTableRecord(Table::kLayer, L"first");
  ASSERT_TRUE(first.ok());
  const Handle gone = *drawing_->handle(first.value());
  ASSERT_TRUE(drawing_->undo());
  const auto second = drawing_->addTableRecord(Table::kLayer, L"second");
  const auto third = drawing_->addTableRecord(Table::kLayer, L"third");
  ASSERT_TRUE(second.ok() && third.ok());
  EXPECT_EQ(drawing_->handle(first.value()), gone);
  EXPECT_EQ(drawing_->findHandle(*drawing_->handle(second.value())), second.value());
  EXPECT_EQ(drawing_->findHandle(*drawing_->handle(third.value())), third.value());
  const auto saved = savedAndOpened();
  EXPECT_EQ(saved->find(Table::kLayer, std::wstring_view(L"first")), kNoRecord);
  EXPECT_NE(saved->find(Table::kLayer, std::wstring_view(L"third")), kNoRecord);
}

TEST_P(Changes, NewRecordsAreFoundInTheSavedFile) {
  const auto layer = drawing_->addTableRecord(Table::kLayer, L"新しい");
  ASSERT_TRUE(layer.ok()) << base::toUtf8(layer.failure().text());
  expectOk(drawing_->setInteger(layer.value(), P::kLayerColor, -30));
  const auto style = drawing_->addTableRecord(Table::kTextStyle, L"S1");
  const auto linetype = drawing_->addTableRecord(Table::kLinetype, L"L1");
  const auto dimensions = drawing_->addTableRecord(Table::kDimStyle, L"D1");
  ASSERT_TRUE(style.ok() && linetype.ok() && dimensions.ok());
  const Dash dashes[] = {{2}, {-1, DashSymbol{.style = style.value(), .text = L"GAS", .scale = 0.5}}, {0}};
  expectOk(drawing_->setDashes(linetype.value(), dashes));
  expectOk(drawing_->setDimVariable(dimensions.value(), dimRow("DIMSCALE"), 3.5));
  const RecordId text = firstOf(*drawing_, "TEXT");
  expectOk(drawing_->setText(text, P::kLayer, L"新しい"));
  expectOk(drawing_->setText(text, P::kLinetype, L"L1"));
  const auto saved = savedAndOpened();
  const RecordId again = saved->find(Table::kLayer, std::wstring_view(L"新しい"));
  ASSERT_NE(again, kNoRecord);
  EXPECT_EQ(saved->integer(again, P::kLayerColor), -30);
  const RecordId pattern = saved->find(Table::kLinetype, std::wstring_view(L"L1"));
  ASSERT_EQ(saved->dashes(pattern).size(), 3u);
  EXPECT_EQ(saved->dashes(pattern)[1].symbol->text, L"GAS");
  const RecordId named = saved->find(Table::kDimStyle, std::wstring_view(L"D1"));
  EXPECT_EQ(saved->dimVariable(named, dimRow("DIMSCALE")), Variable(3.5));
  const RecordId moved = saved->findHandle(*drawing_->handle(text));
  EXPECT_EQ(saved->text(moved, P::kLayer), L"新しい");
  EXPECT_EQ(saved->text(moved, P::kLinetype), L"L1");
  while (drawing_->undo()) {
  }
  EXPECT_TRUE(isAsInFile());
}

TEST_P(Changes, ErasedAndNewEntitiesKeepTheOrderOfTheOthers) {
  const RecordId space = drawing_->modelSpace();
  std::vector<Handle> expected;
  for (const RecordId id : drawing_->entitiesOf(space)) expected.push_back(*drawing_->handle(id));
  const std::size_t count = expected.size();
  for (const std::size_t at : {count - 1, count / 2, std::size_t{0}}) {
    expectOk(drawing_->setErased(drawing_->entitiesOf(space)[at], true));
    expected.erase(expected.begin() + static_cast<std::ptrdiff_t>(at));
  }
  const Shape shapes[] = {LineShape{{0, 0}, {1, 1}}, CircleShape{{2, 2}, 3}};
  const auto block = drawing_->defineBlock(L"NEWBLOCK", shapes);
  ASSERT_TRUE(block.ok()) << base::toUtf8(block.failure().text());
  const auto insert = drawing_->addInsert(space, {.block = block.value(), .at = {5, 6, 7}, .scale = 2});
  ASSERT_TRUE(insert.ok()) << base::toUtf8(insert.failure().text());
  expected.push_back(*drawing_->handle(insert.value()));
  const auto saved = savedAndOpened();
  std::vector<Handle> order;
  for (const RecordId id : saved->entitiesOf(saved->modelSpace())) order.push_back(*saved->handle(id));
  EXPECT_EQ(order, expected);
  const RecordId made = saved->find(Table::kBlock, std::wstring_view(L"NEWBLOCK"));
  ASSERT_NE(made, kNoRecord);
  EXPECT_EQ(saved->entitiesOf(made).size(), 2u);
  const Geometry geometry = saved->geometry(saved->findHandle(expected.back()));
  EXPECT_EQ(std::get<InsertGeometry>(geometry.shape).block, made);
  while (drawing_->undo()) {
  }
  EXPECT_TRUE(isAsInFile());
}

// Of the objects that belong to them, extension dictionaries above all.
TEST_P(Changes, ErasedEntitiesTakeAlongWhatNothingElseRefersTo) {
  const auto& storage = dynamic_cast<const DwgStorage&>(drawing_->storage());
  std::size_t owners = 0;
  for (RecordId id = 0; id < drawing_->recordCount(); ++id) {
    const Record& record = drawing_->record(id);
    if (record.kind != RecordKind::kEntity || record.implied()) continue;
    if (storage.commonFields(record).handle("dictionary").value_or(0) == 0) continue;
    expectOk(drawing_->setErased(id, true));
    ++owners;
  }
  const auto saved = savedAndOpened();
  const auto& now = dynamic_cast<const DwgStorage&>(saved->storage());
  std::size_t gone = 0;
  for (RecordId id = 0; id < drawing_->recordCount(); ++id) {
    const Record& record = drawing_->record(id);
    if (record.kind == RecordKind::kObject && now.recordOf(*drawing_->handle(id)) == kNoRecord) ++gone;
  }
  EXPECT_EQ(gone > 0, owners > 0);
  for (RecordId id = 0; id < saved->recordCount(); ++id) {
    const Record& record = saved->record(id);
    if (record.kind == RecordKind::kFrame || record.implied()) continue;
    for (const Handle handle : now.references(record)) {
      const RecordId was = storage.recordOf(handle);
      if (was == kNoRecord || drawing_->record(was).kind != RecordKind::kObject) continue;
      EXPECT_NE(now.recordOf(handle), kNoRecord) << *saved->handle(id) << " refers to " << handle;
    }
  }
}

TEST_P(Changes, OfVariablesAndOverridesAreTakenBackToo) {
  const RecordId dimension = firstOf(*drawing_, "DIMENSION");
  expectOk(drawing_->setHeaderVariable("LTSCALE", 2.5));
  expectOk(drawing_->setHeaderVariable("CLAYER", std::wstring(L"Layer1")));
  expectOk(drawing_->setDimVariable(dimension, dimRow("DIMTXT"), 4.5));
  expectOk(drawing_->setDimVariable(dimension, dimRow("DIMTXSTY"), std::wstring(L"Standard")));
  expectOk(drawing_->renameLayer(drawing_->find(Table::kLayer, std::wstring_view(L"Layer1")), L"Renamed"));
  const auto saved = savedAndOpened();
  EXPECT_EQ(saved->headerVariable("LTSCALE"), Variable(2.5));
  EXPECT_EQ(saved->headerVariable("CLAYER"), Variable(std::wstring(L"Renamed")));
  const RecordId again = saved->findHandle(*drawing_->handle(dimension));
  EXPECT_EQ(saved->dimVariable(again, dimRow("DIMTXT")), Variable(4.5));
  const auto style = saved->dimVariable(again, dimRow("DIMTXSTY"));
  ASSERT_TRUE(style);
  EXPECT_TRUE(base::equalFolded(std::get<std::wstring>(*style), L"STANDARD"));
  expectOk(drawing_->removeDimOverride(dimension, dimRow("DIMTXT")));
  EXPECT_FALSE(drawing_->dimVariable(dimension, dimRow("DIMTXT")));
  while (drawing_->undo()) {
  }
  EXPECT_TRUE(isAsInFile());
}

INSTANTIATE_TEST_SUITE_P(Versions, Changes,
                         testing::Values("AC1014", "AC1015", "AC1018", "AC1021", "AC1024", "AC1027",
                                         "AC1032"));
INSTANTIATE_TEST_SUITE_P(EveryVersion, Changes,
                         testing::Values("BuiltAC1012", "BuiltAC1014", "BuiltAC1015", "BuiltAC1018",
                                         "BuiltAC1021", "BuiltAC1024", "BuiltAC1027", "BuiltAC1032"));

}  // namespace
}  // namespace cad::dwg
