// What is read and changed of entities without their fields is what the fields tell and rewrite() makes.

#include <gtest/gtest.h>

#include <filesystem>

#include "base/files.h"
#include "embedded/dwg/entity_changes.h"
#include "embedded/dwg/entity_head.h"
#include "embedded/dwg/fields/field_finder.h"
#include "embedded/dwg/state_store.h"
#include "tests/embedded/dwg/small_files.h"

namespace cad::dwg {
namespace {

using enum base::Version;

bool isAt(const Fields& fields, std::string_view name, const BitSpan& at) {
  const Field* field = fields.find(name);
  return field == nullptr ? at.begin == at.end : field->begin == at.begin && field->end == at.end;
}

void expectHead(const ObjectFrame& frame, const Fields& fields) {
  const EntityHead head = readEntityHead(frame);
  ASSERT_EQ(head.intact, readCommonFields(frame).intact());
  EXPECT_EQ(static_cast<std::int64_t>(head.mode), std::min<std::int64_t>(fields.integer("entity mode"), 2));
  EXPECT_EQ(head.linetypeKind, linetypeKindOf(fields));
  EXPECT_EQ(head.color, fields.color("color").number);
  EXPECT_EQ(head.owner, fields.handle("owner").value_or(0));
  const bool linked = fields.integer("no links") == 0;
  EXPECT_EQ(head.next, linked ? fields.handle("next").value_or(0) : frame.handle + 1);
  EXPECT_EQ(head.layer, fields.handle("layer").value_or(0));
  EXPECT_EQ(head.linetype, fields.handle("linetype").value_or(0));
  if (hasTextStyle(frame.type.kind) && fields.complete()) {
    EXPECT_EQ(head.style, fields.handle("style"));
  }
  if (!head.intact) return;
  EXPECT_EQ(head.linetypeScale, fields.real("linetype scale"));
  EXPECT_EQ(head.invisible, fields.integer("invisible"));
  if (frame.version >= kR2000) {
    EXPECT_EQ(head.lineWeight, fields.integer("lineweight"));
  }
  EXPECT_TRUE(isAt(fields, "color", head.colorAt));
  EXPECT_TRUE(isAt(fields, "linetype scale", head.scaleAt));
  EXPECT_TRUE(isAt(fields, "linetype flags", head.linetypeFlagsAt));
  EXPECT_TRUE(isAt(fields, "invisible", head.invisibleAt));
  EXPECT_TRUE(isAt(fields, "lineweight", head.lineWeightAt));
  EXPECT_TRUE(isAt(fields, "layer", head.layerAt));
  EXPECT_TRUE(isAt(fields, "linetype", head.linetypeAt));
}

void expectOwnFields(const ObjectFrame& frame, const Fields& fields) {
  const EntityHead head = readEntityHead(frame);
  const std::size_t common = readCommonFields(frame).all().size();
  for (std::size_t i = common; i < std::min(fields.all().size(), common + 60); ++i) {
    const Field& field = fields.all()[i];
    if (field.index != 0 || field.part != Part::kWhole || field.type == BitType::kImplied) continue;
    const auto found = findOwnField(frame, head.dataEnd, head.handlesEnd, field.name);
    ASSERT_TRUE(found) << field.name;
    EXPECT_TRUE(found->begin == field.begin && found->end == field.end && found->type == field.type)
        << field.name;
    EXPECT_TRUE(same(found->value, field.value)) << field.name;
  }
  for (const std::string_view name : {"block", "dimension style"}) {
    const auto reference = ownReference(frame, head, name);
    if (reference) {
      EXPECT_EQ(reference->absolute(frame.handle), fields.handle(name)) << name;
    }
    const bool isMuchAsked = frame.type.name == "INSERT" || frame.type.name == "DIMENSION";
    EXPECT_EQ(reference.has_value(), isMuchAsked && fields.handle(name)) << name;
  }
  const auto none = findOwnField(frame, head.dataEnd, head.handlesEnd, "no such field");
  EXPECT_TRUE(none && std::holds_alternative<std::monostate>(none->value));
}

std::optional<TextHeight> heightOf(const Fields& fields, double value) {
  const Field* field = fields.find("height");
  const bool isReal = field != nullptr && (field->type == BitType::kRD || field->type == BitType::kBD);
  if (!isReal) return std::nullopt;
  return TextHeight{value, {field->begin, field->end}, field->type == BitType::kRD};
}

std::vector<EntityValues> valuesOf(const ObjectFrame& frame, const Fields& fields) {
  std::vector<EntityValues> all(6);
  for (const int number : {0, 7, 252, 256}) {
    all.emplace_back().color = static_cast<std::int16_t>(number);
    all[0].color = static_cast<std::int16_t>(number);
  }
  for (const Handle layer : {0x1U, 0x12345U, 0x98765432U}) all.emplace_back().layer = layer;
  all[0].layer = 0xABC;
  for (const double scale : {0.0, 1.0, 0.25}) all.emplace_back().linetypeScale = scale;
  all[0].linetypeScale = 2.5, all[0].invisible = std::int16_t{1};
  all[1].invisible = std::int16_t{1}, all[2].invisible = std::int16_t{0};
  if (frame.version >= kR2000) {
    all[0].lineWeight = std::uint8_t{5};
    all[3].linetypeKind = LinetypeKind::kNamed, all[3].linetype = 0x77;
    all[4].linetypeKind = LinetypeKind::kByBlock;
    all[5].linetypeKind = LinetypeKind::kNamed, all[5].linetype = 0x123456;
    all[5].layer = 0x5, all[5].lineWeight = std::uint8_t{29};
  }
  if (hasTextStyle(frame.type.kind))
    for (const double height : {1.0, 350.5}) all.emplace_back().height = heightOf(fields, height);
  return all;
}

void expectChanges(const ObjectFrame& frame, const Fields& fields, std::vector<int>& quick) {
  const EntityHead head = readEntityHead(frame);
  const std::vector<EntityValues> all = valuesOf(frame, fields);
  for (std::size_t i = 0; i < all.size(); ++i) {
    if (!fit(all[i], frame.version, head)) continue;
    quick.resize(std::max(quick.size(), i + 1));
    ++quick[i];
    const WrittenObject now = changeEntity(frame, head, all[i], "memory that is used again");
    const auto expected = rewrite(frame, asFields(all[i], frame.version));
    ASSERT_TRUE(expected.ok());
    ASSERT_TRUE(now.data == expected.value().data) << i;
    ASSERT_EQ(now.handleBits, expected.value().handleBits) << i;
  }
}

void expectAll(const ObjectFrame& frame, std::vector<int>& quick) {
  SCOPED_TRACE(std::to_string(frame.handle) + ' ' + std::string(frame.type.name));
  const Fields fields = readFields(frame);
  expectHead(frame, fields);
  if (!fields.intact()) return;
  expectOwnFields(frame, fields);
  expectChanges(frame, fields, quick);
}

class EntityHeads : public testing::TestWithParam<Version> {};

TEST_P(EntityHeads, OfMadeEntitiesAreTheirFields) {
  const std::vector<FileClass> classes = {{500, "LWPOLYLINE", true},
                                          {501, "HATCH", true},
                                          {502, "LAYOUT", false},
                                          {503, "ARC_DIMENSION", true},
                                          {504, "LARGE_RADIAL_DIMENSION", true}};
  std::vector<FieldChanges> looks(5);
  looks[1].set("no links", false), looks[1].setHandle("next", 0x1A3), looks[1].setHandle("previous", 0x90);
  looks[1].set("entity mode", 2);
  if (GetParam() >= kR2000) {
    looks[2].set("linetype flags", 3), looks[2].setHandle("linetype", 0x1234);
    looks[2].set("plot style flags", 3);
  }
  looks[3].set("reactor count", 2), looks[3].setHandle("reactor", 0x99, 1);
  looks[3].set("linetype scale", 0.1);
  Color color;
  color.number = 3;
  if (GetParam() >= kR2004) color.rgb = 0x102030;
  looks[4].setColor("color", color);
  std::vector<int> quick;
  for (int kind = 1; kind <= static_cast<int>(ObjectKind::kDimensionJogged); ++kind) {
    for (const FieldChanges& values : looks) {
      auto made = build(static_cast<ObjectKind>(kind), GetParam(), 0x1A2, values, classes);
      if (!made.ok() && GetParam() >= kR2004) continue;  // "no links" is older
      ASSERT_TRUE(made.ok()) << kind;
      const auto frame = readFrame(made.value().data, made.value().handleBits, GetParam(), classes);
      ASSERT_TRUE(frame.ok());
      expectAll(frame.value(), quick);
      // Cut anywhere the head is still that of its fields.
      for (std::size_t size = 4; size < made.value().data.size(); size += 3) {
        const std::string cut = made.value().data.substr(0, size);
        const auto less =
            readFrame(cut, std::min<std::uint64_t>(made.value().handleBits, size * 8), GetParam(), classes);
        if (less.ok()) expectHead(less.value(), readFields(less.value()));
      }
    }
  }
  for (const int count : quick) EXPECT_GT(count, 10);
}

INSTANTIATE_TEST_SUITE_P(Versions, EntityHeads,
                         testing::Values(kR13, kR14, kR2000, kR2004, kR2007, kR2010, kR2013, kR2018),
                         [](const auto& tested) { return std::string(base::versionCode(tested.param)); });

TEST(EntityHeads, OfSamplesAreTheirFields) {
  const std::filesystem::path folder = std::filesystem::path(KIV_SAMPLES).parent_path() / "dwg";
  if (std::string_view(KIV_SAMPLES).empty() || !std::filesystem::is_directory(folder))
    GTEST_SKIP() << "no samples";
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    SCOPED_TRACE(entry.path().filename().string());
    auto bytes = base::readFile(entry.path());
    ASSERT_TRUE(bytes.ok());
    const auto file = readBytes(std::move(bytes.value()));
    ASSERT_TRUE(file.ok());
    const auto classes = readClasses(file.value()->classes(), file.value()->version());
    ASSERT_TRUE(classes.ok());
    std::vector<int> quick;
    for (const ObjectPlace& place : file.value()->places()) {
      const auto object = file.value()->objectAt(place.offset);
      ASSERT_TRUE(object.ok());
      const auto frame =
          readFrame(object.value().data, object.value().handleBits, file.value()->version(), classes.value());
      if (frame.ok() && frame.value().type.isEntity) expectAll(frame.value(), quick);
      if (HasFatalFailure()) return;
    }
    EXPECT_FALSE(quick.empty());
  }
}

TEST(StateStore, GivesBackEveryStateOfAChain) {
  StateStore states;
  const std::string original = "the object as it was first";
  std::vector<std::string> expected = {original};
  std::vector<EditId> made = {kNoEdit};
  for (int i = 0; i < 30; ++i) {
    std::string now = expected.back();
    now.replace(static_cast<std::size_t>(i % 11), static_cast<std::size_t>(i % 4),
                std::string(static_cast<std::size_t>(i % 5), static_cast<char>('A' + i)));
    const bool isLast = states.isLast(made.back());
    made.push_back(states.add(isLast ? kNoEdit : made.back(), isLast ? original : expected.back(), now,
                              static_cast<std::uint64_t>(i)));
    expected.push_back(now);
  }
  made.push_back(states.add(kNoEdit, original, {}, 0));
  expected.emplace_back();
  made.push_back(states.add(kNoEdit, {}, std::string(200000, 'x'), 7));
  std::string buffer;
  EXPECT_EQ(states.object(made.back(), {}, buffer).data, std::string(200000, 'x'));
  for (std::size_t i = 1; i < expected.size(); ++i) {
    EXPECT_EQ(states.object(made[i], original, buffer).data, expected[i]) << i;
    EXPECT_EQ(states.object(made[i], original, buffer).handleBits, i <= 30 ? i - 1 : 0);
  }
}

TEST(StateStore, ValuesStandOverTheBytesThatTheyAreToBePutInto) {
  StateStore states;
  const EditId bytes = states.add(kNoEdit, "one", "two", 5);
  EntityValues values;
  values.layer = 0x123456789ABU, values.linetypeKind = LinetypeKind::kByBlock;
  values.linetypeScale = -0.5, values.height = TextHeight{2.5, {100, 166}, false};
  const EditId first = states.add({bytes, values});
  EntityValues newer;
  newer.linetypeKind = LinetypeKind::kNamed, newer.linetype = 0x77, newer.color = std::int16_t{256};
  newer.invisible = std::int16_t{1}, newer.lineWeight = std::uint8_t{0xFF};
  EntityValues both = values;
  both.take(newer);
  const EditId second = states.add({bytes, both});
  for (const EditId state : {kNoEdit, bytes}) {
    EXPECT_EQ(states.base(state), state);
    EXPECT_EQ(states.values(state).base, state);
    EXPECT_TRUE(states.values(state).values == EntityValues());
  }
  const EntityValues all = states.values(second).values;
  EXPECT_EQ(states.base(first), bytes);
  EXPECT_EQ(states.values(first).base, bytes);
  EXPECT_TRUE(states.values(first).values == values);
  EXPECT_EQ(states.base(second), bytes);
  EXPECT_TRUE(all == both);
  EXPECT_EQ(all.layer, values.layer);
  EXPECT_EQ(all.linetypeKind, LinetypeKind::kNamed);
  EXPECT_EQ(all.linetype, 0x77U);
  EXPECT_EQ(all.color, 256);
  EXPECT_EQ(all.lineWeight, 0xFF);
  std::string buffer;
  EXPECT_EQ(states.object(bytes, "one", buffer).data, "two");
}

}  // namespace
}  // namespace cad::dwg
