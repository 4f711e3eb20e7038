// Objects made by the descriptions, in every version: classes and versions of which no sample exists, too.

#include <gtest/gtest.h>

#include <random>

#include "embedded/dwg/bits/bit_writer.h"
#include "embedded/dwg/entity_head.h"
#include "embedded/dwg/fields/extended_data.h"
#include "embedded/dwg/fields/header_fields.h"
#include "embedded/dwg/fields/object_fields.h"

namespace cad::dwg {
namespace {

using enum base::Version;

constexpr Version kVersions[] = {kR13, kR14, kR2000, kR2004, kR2007, kR2010, kR2013, kR2018};
constexpr Handle kOwn = 0x1A2;

const std::vector<FileClass> kClasses = {{500, "LWPOLYLINE", true},
                                         {501, "HATCH", true},
                                         {502, "LAYOUT", false},
                                         {503, "ARC_DIMENSION", true},
                                         {504, "LARGE_RADIAL_DIMENSION", true},
                                         {505, "UNKNOWN_THING", true},
                                         {506, "DBCOLOR", false}};

Value text(Version version, std::u16string_view ascii) {
  if (hasWideTexts(version)) return std::u16string(ascii);
  return std::string(ascii.begin(), ascii.end());
}

// An object with what it was made of, so that views into it last.
struct Made {
  std::unique_ptr<WrittenObject> object;
  ObjectFrame frame;
  Fields fields{{}, kR13, 0};
};

Made opened(Version version, WrittenObject object) {
  Made made{std::make_unique<WrittenObject>(std::move(object)), {}};
  auto frame = readFrame(made.object->data, made.object->handleBits, version, kClasses);
  EXPECT_TRUE(frame.ok());
  if (frame.ok()) made.frame = frame.value();
  made.fields = readFields(made.frame);
  return made;
}

Made make(ObjectKind kind, Version version, const FieldChanges& values = {}) {
  auto object = build(kind, version, kOwn, values, kClasses);
  EXPECT_TRUE(object.ok());
  return opened(version, object.ok() ? object.value() : WrittenObject());
}

Made changed(const Made& from, const FieldChanges& changes) {
  auto object = rewrite(from.frame, changes);
  EXPECT_TRUE(object.ok());
  return opened(from.frame.version, object.ok() ? object.value() : WrittenObject());
}

class BuiltObjects : public testing::TestWithParam<Version> {};

TEST_P(BuiltObjects, OfEveryKindAreReadToTheirEnd) {
  for (int kind = 1; kind <= static_cast<int>(kLastWhole); ++kind) {
    const Made made = make(static_cast<ObjectKind>(kind), GetParam());
    EXPECT_EQ(made.frame.type.kind, static_cast<ObjectKind>(kind));
    EXPECT_EQ(made.frame.handle, kOwn);
    EXPECT_TRUE(made.fields.complete()) << kind;
    const FieldRest rest = fieldRest(made.frame);
    EXPECT_EQ(rest.data + rest.texts + rest.handles, 0U) << kind;
    const Made same = changed(made, {});
    EXPECT_TRUE(same.object->data == made.object->data) << kind;
  }
}

TEST_P(BuiltObjects, FieldsThatFlagsLeaveOutComeAndGo) {
  const Version version = GetParam();
  FieldChanges values;
  values.set("text", text(version, u"one line"));
  values.set("insertion point", Point{10, 20, 0});
  values.set("height", 2.5);
  values.setHandle("style", 0x11);
  const Made plain = make(ObjectKind::kText, version, values);
  FieldChanges there, back;
  there.set("rotation", 0.5), back.set("rotation", 0.0);
  there.set("width factor", 0.8), back.set("width factor", 1.0);
  there.set("alignment point", Point{10.25, 21, 0}), back.set("alignment point", Point{});
  there.set("vertical alignment", 2), back.set("vertical alignment", 0);
  there.set("text", text(version, u"another line")), back.set("text", text(version, u"one line"));
  const Made turned = changed(plain, there);
  EXPECT_EQ(turned.fields.real("rotation"), 0.5);
  EXPECT_EQ(turned.fields.real("width factor"), 0.8);
  EXPECT_EQ(turned.fields.point("alignment point").y, 21);
  EXPECT_EQ(turned.fields.integer("vertical alignment"), 2);
  EXPECT_EQ(turned.fields.handle("style"), 0x11U);
  EXPECT_TRUE(same(turned.fields.find("text")->value, text(version, u"another line")));
  EXPECT_TRUE(changed(turned, back).object->data == plain.object->data);
}

TEST_P(BuiltObjects, ValuesThatWouldBeReadAsOthersAreRefused) {
  const Version version = GetParam();
  const auto isRefused = [&](ObjectKind kind, std::string_view field, const Value& value) {
    FieldChanges values;
    values.set(field, value);
    return !build(kind, version, kOwn, values, kClasses).ok();
  };
  EXPECT_TRUE(isRefused(ObjectKind::kAttdef, "flags", std::int64_t{300}));
  EXPECT_TRUE(isRefused(ObjectKind::kVertex2d, "flags", std::int64_t{-1}));
  EXPECT_TRUE(isRefused(ObjectKind::kPolyline2d, "flags", std::int64_t{40000}));
  EXPECT_TRUE(isRefused(ObjectKind::kStyle, "vertical", std::int64_t{2}));
  EXPECT_TRUE(isRefused(ObjectKind::kText, "text", text(version, std::u16string(kLongestText + 1, u'x'))));
  EXPECT_FALSE(isRefused(ObjectKind::kText, "text", text(version, std::u16string(kLongestText, u'x'))));
  EXPECT_TRUE(isRefused(ObjectKind::kLwpolyline, "vertex count", std::int64_t{-1}));
}

TEST_P(BuiltObjects, TheStyleOfAnAttributeIsNotThatOfItsTextOfSeveralLines) {
  for (const ObjectKind kind : {ObjectKind::kAttrib, ObjectKind::kAttdef, ObjectKind::kText}) {
    FieldChanges values;
    values.setHandle("style", 0x11);
    if (kind != ObjectKind::kText && GetParam() >= kR2018) {
      values.set("attribute type", 2);
      values.setHandle("style", 0x22, kWithin);
    }
    EXPECT_EQ(readEntityHead(make(kind, GetParam(), values).frame).style, 0x11U);
  }
}

TEST_P(BuiltObjects, AColourLeavesATransparencyOfZeroThere) {
  if (GetParam() < kR2004) GTEST_SKIP();
  FieldChanges values, there, back;
  constexpr int kHasTransparency = 0x2000;
  values.set("color", kHasTransparency | 5);
  Color color;
  color.number = 3, there.setColor("color", color);
  color.number = 5, back.setColor("color", color);
  const Made line = make(ObjectKind::kLine, GetParam(), values);
  ASSERT_NE(line.fields.find("color", 0, Part::kTransparency), nullptr);
  const Made other = changed(line, there);
  EXPECT_EQ(other.fields.color("color").number, 3);
  EXPECT_TRUE(changed(other, back).object->data == line.object->data);
}

TEST_P(BuiltObjects, FormsFollowTheirValues) {
  const Version version = GetParam();
  for (const Point& scale : {Point{1, 1, 1}, Point{2, 2, 2}, Point{1, 2, 3}, Point{2, 3, -2}}) {
    FieldChanges values;
    values.set("scale", scale);
    const Made reference = make(ObjectKind::kInsert, version, values);
    EXPECT_TRUE(same(reference.fields.point("scale"), scale));
    FieldChanges there, back;
    there.set("scale", Point{5, 6, 7}), back.set("scale", scale);
    const Made scaled = changed(reference, there);
    EXPECT_TRUE(same(scaled.fields.point("scale"), Point{5, 6, 7}));
    EXPECT_TRUE(changed(scaled, back).object->data == reference.object->data);
  }
  FieldChanges values;
  values.set("start", Point{1, 2, 0}), values.set("end", Point{1, 5, 0});
  const Made line = make(ObjectKind::kLine, version, values);
  FieldChanges up;
  up.set("end", Point{1, 5, 9});
  const Made raised = changed(line, up);
  EXPECT_TRUE(same(raised.fields.point("end"), Point{1, 5, 9}));
  EXPECT_TRUE(same(raised.fields.point("start"), Point{1, 2, 0}));
}

TEST_P(BuiltObjects, ListsHaveAsManyItemsAsTheirCount) {
  const Version version = GetParam();
  FieldChanges values;
  values.set("vertex count", 3);
  for (std::uint32_t i = 0; i < 3; ++i) values.set("vertex", Point{i * 1.5, i * 0.25, 0}, i);
  values.set("bulge count", 3);
  values.set("bulge", 0.5, 1);
  values.set("constant width", 0.3);
  const Made polyline = make(ObjectKind::kLwpolyline, version, values);
  EXPECT_EQ(polyline.fields.count("vertex"), 3U);
  EXPECT_TRUE(same(polyline.fields.point("vertex", {}, 2), Point{3, 0.5, 0}));
  EXPECT_EQ(polyline.fields.real("bulge", 0, 1), 0.5);
  EXPECT_EQ(polyline.fields.real("constant width"), 0.3);

  FieldChanges pattern;
  pattern.set("name", text(version, u"GAS"));
  pattern.set("dash count", 2);
  pattern.set("dash length", 5.0, 0), pattern.set("dash length", -1.0, 1);
  pattern.set("dash flags", 2, 1);
  pattern.set("dash style", Value(HandleReference{5, 0, 0x11}), 1);
  pattern.set("texts", Value(std::string(version < kR2007 ? 256 : 512, 'g')));
  const Made linetype = make(ObjectKind::kLinetype, version, pattern);
  EXPECT_EQ(linetype.fields.real("dash length", 0, 1), -1);
  EXPECT_EQ(linetype.fields.handle("dash style", 1), 0x11U);
  EXPECT_EQ(linetype.fields.bytes(*linetype.fields.find("texts")).substr(0, 3), "ggg");
  FieldChanges fewer;
  fewer.set("dash count", 1);
  const Made dash = changed(linetype, fewer);
  EXPECT_EQ(dash.fields.count("dash length"), 1U);

  FieldChanges reactors;
  reactors.set("reactor count", 2);
  reactors.setHandle("reactor", 0x77, 0), reactors.setHandle("reactor", 0x78, 1);
  const Made watched = changed(polyline, reactors);
  EXPECT_EQ(watched.fields.handle("reactor", 1), 0x78U);
  EXPECT_TRUE(same(watched.fields.point("vertex", {}, 2), Point{3, 0.5, 0}));
}

TEST_P(BuiltObjects, BoxesOfTextsAreToldAlikeTwice) {
  FieldChanges values, there, back;
  values.set("reference width", 40.0), values.set("text", text(GetParam(), u"lines"));
  const Made plain = make(ObjectKind::kMtext, GetParam(), values);
  there.set("x axis", Point{0, 1, 0}), back.set("x axis", Point{1, 0, 0});
  const Made turned = changed(plain, there);
  if (GetParam() >= kR2018) {
    EXPECT_EQ(turned.fields.real("columns reference width"), 40);
    EXPECT_EQ(turned.fields.point("columns x axis").y, 1);
  }
  EXPECT_TRUE(changed(turned, back).object->data == plain.object->data);
}

TEST_P(BuiltObjects, ColorsAreThoseOfTheVersion) {
  const Version version = GetParam();
  const Made byLayer = make(ObjectKind::kCircle, version);
  EXPECT_EQ(byLayer.fields.color("color").number, 256);
  Color red{.number = 1, .rgb = {}, .reference = {}, .name = {}, .book = {}};
  Color orange{.number = 30, .rgb = 0xFF8000, .reference = {}, .name = {}, .book = {}};
  FieldChanges toRed, toOrange, back;
  toRed.setColor("color", red), toOrange.setColor("color", orange);
  back.setColor("color", Color());
  EXPECT_TRUE(changed(byLayer, toRed).fields.color("color") == red);
  const Made colored = changed(byLayer, toOrange);
  EXPECT_EQ(colored.fields.color("color").number, 30);
  EXPECT_EQ(colored.fields.color("color").rgb.has_value(), version >= kR2004);
  EXPECT_TRUE(changed(colored, back).object->data == byLayer.object->data);
  if (version >= kR2004) {
    FieldChanges veiled, named;
    veiled.set("color", 0x02000080, 0, Part::kTransparency);
    orange.reference = 0x996;
    named.setColor("color", orange);
    const Made both = changed(changed(byLayer, veiled), named);
    EXPECT_EQ(std::get<std::int64_t>(both.fields.find("color", 0, Part::kTransparency)->value), 0x02000080);
    EXPECT_EQ(both.fields.color("color").reference, 0x996U);
  }
  FieldChanges named;
  orange.reference.reset();
  orange.name = text(version, u"orange"), orange.book = text(version, u"book");
  named.setColor("color", orange);
  const Made layer = changed(make(ObjectKind::kLayer, version), named);
  const Color stored = layer.fields.color("color");
  if (version >= kR2004) {
    EXPECT_EQ(stored.rgb, 0xFF8000);
    EXPECT_TRUE(same(stored.book, orange.book));
  } else {
    EXPECT_EQ(stored.number, 30);
  }
}

TEST_P(BuiltObjects, ReferencesOfNeighboursAreTold) {
  const Made line = make(ObjectKind::kLine, GetParam());
  for (const Handle owner : {Handle{0x1A1}, Handle{0x1A3}, Handle{0x1F}, Handle{0x150}, Handle{0x5000}}) {
    FieldChanges owned;
    owned.setHandle("owner", owner);
    EXPECT_EQ(changed(line, owned).fields.handle("owner"), owner);
  }
}

TEST_P(BuiltObjects, ExtendedDataIsReplaced) {
  const Version version = GetParam();
  std::vector<ExtendedValue> values = {{1000, text(version, u"DSTYLE"), 30},
                                       {1002, std::int64_t{0}},
                                       {1070, std::int64_t{-3}},
                                       {1071, std::int64_t{-70000}},
                                       {1040, 0.125},
                                       {1010, Point{1, 2, 3}},
                                       {1005, HandleReference{0, 8, 0x123456}},
                                       {1004, std::string("\1\2\3")},
                                       {1002, std::int64_t{1}}};
  const Made plain = make(ObjectKind::kDimensionLinear, version);
  FieldChanges changes;
  const auto encoded = encodeExtended(values);
  ASSERT_TRUE(encoded.ok());
  changes.setExtendedData({{{5, 1, 0x12}, encoded.value()}});
  const Made extended = changed(plain, changes);
  const auto list = readExtendedData(extended.frame);
  ASSERT_TRUE(list.ok());
  ASSERT_EQ(list.value().size(), 1U);
  EXPECT_EQ(list.value()[0].application.value, 0x12U);
  const auto decoded = decodeExtended(list.value()[0].bytes, version);
  ASSERT_TRUE(decoded.ok());
  ASSERT_EQ(decoded.value().size(), values.size());
  for (std::size_t i = 0; i < values.size(); ++i)
    EXPECT_TRUE(same(decoded.value()[i].value, values[i].value)) << i;
  EXPECT_TRUE(extended.fields.complete());
  EXPECT_FALSE(encodeExtended({{1000, std::string(256, 'x')}}).ok());
  FieldChanges none;
  none.setExtendedData({});
  EXPECT_TRUE(changed(extended, none).object->data == plain.object->data);
}

// A class that is not described, made of one that is.
Made unknownThing(Version version) {
  const Made line = make(ObjectKind::kCircle, version);
  BitWriter type;
  type.ot(505, version);
  BitWriter whole;
  whole.copy(type);
  if (version >= kR2000 && version < kR2010)
    whole.rl(static_cast<std::uint32_t>(line.frame.handleBegin + type.size() - line.frame.typeEnd));
  const std::uint32_t handles = line.frame.handleBegin;
  if (version < kR2000) {  // the size stands behind the bit for the preview
    whole.copy(line.object->data, line.frame.handleFieldBegin, line.frame.extendedEnd + 1);
    whole.rl(static_cast<std::uint32_t>(handles + type.size() - line.frame.typeEnd));
    whole.copy(line.object->data, line.frame.extendedEnd + 33, handles);
  } else {
    whole.copy(line.object->data, line.frame.handleFieldBegin, handles);
  }
  const std::uint64_t end = whole.size();
  whole.copy(line.object->data, handles, line.frame.handleEnd);
  whole.alignToByte();
  WrittenObject object;
  if (version >= kR2010) object.handleBits = whole.size() - end;
  object.data = whole.take();
  return opened(version, object);
}

TEST_P(BuiltObjects, WhatIsNotDescribedGoesAlong) {
  const Made thing = unknownThing(GetParam());
  EXPECT_EQ(thing.frame.type.name, "UNKNOWN_THING");
  EXPECT_TRUE(thing.fields.intact());
  EXPECT_FALSE(thing.fields.complete());
  FieldChanges there, back;
  there.setHandle("layer", 0x123456), back.setHandle("layer", 0);
  there.set("linetype scale", 0.7), back.set("linetype scale", 1.0);
  const Made moved = changed(thing, there);
  EXPECT_EQ(moved.fields.handle("layer"), 0x123456U);
  EXPECT_EQ(fieldRest(moved.frame).data, fieldRest(thing.frame).data);
  EXPECT_TRUE(changed(moved, back).object->data == thing.object->data);
  FieldChanges foreign;
  foreign.set("radius", 3.0);
  EXPECT_FALSE(rewrite(thing.frame, foreign).ok());
}

TEST_P(BuiltObjects, DamageIsToldAndNeverEndless) {
  const Version version = GetParam();
  std::mt19937 random(7);
  for (int kind = 1; kind <= static_cast<int>(kLastWhole); ++kind) {
    const Made made = make(static_cast<ObjectKind>(kind), version);
    for (int round = 0; round < 60; ++round) {
      std::string data = made.object->data;
      if (round < 20) data.resize(data.size() * static_cast<std::size_t>(round) / 20);
      for (int i = 0; i < 3 && !data.empty(); ++i) data[random() % data.size()] = static_cast<char>(random());
      const auto frame = readFrame(data, made.object->handleBits, version, kClasses);
      if (!frame.ok()) continue;
      const Fields fields = readFields(frame.value());
      EXPECT_LT(fields.all().size(), data.size() * 16 + 400) << frame.value().type.name;
      const auto written = rewrite(frame.value(), {});
      const auto extended = readExtendedData(frame.value());
      if (extended.ok())
        for (const ExtendedData& one : extended.value()) (void)decodeExtended(one.bytes, version);
      EXPECT_TRUE(!fields.intact() || written.ok());
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Versions, BuiltObjects, testing::ValuesIn(kVersions),
                         [](const auto& tested) { return std::string(base::versionCode(tested.param)); });

TEST(FieldChanges, RefusesWhatDoesNotFit) {
  const Made line = make(ObjectKind::kLine, kR2000);
  FieldChanges unknown, wrong;
  unknown.set("radius", 1.0);
  wrong.set("thickness", 1);
  EXPECT_FALSE(rewrite(line.frame, unknown).ok());
  EXPECT_FALSE(rewrite(line.frame, wrong).ok());
  EXPECT_FALSE(build(ObjectKind::kHatch, kR14, kOwn, {}, {}).ok());
}

TEST(HeaderFields, OfAnyBytesAreReadAndWrittenAgain) {
  std::mt19937 random(11);
  for (const Version version : kVersions) {
    for (int round = 0; round < 300; ++round) {
      std::string section(random() % 1200, '\0');
      for (char& byte : section) byte = static_cast<char>(random() % 4 == 0 ? random() : 0xA5);
      if (hasWideTexts(version) && section.size() > 600) {
        const std::uint32_t bits = 4000 + round;
        for (unsigned i = 0; i < 4; ++i) section[i] = static_cast<char>(bits >> (8 * i));
      }
      const Fields fields = readHeader(section, version);
      const auto written = rewriteHeader(section, version, {});
      EXPECT_EQ(written.ok(), fields.intact());
      const auto classes = readClasses(section, version);
      EXPECT_TRUE(!classes.ok() || classes.value().size() <= section.size());
    }
  }
}

TEST(LineWeights, AreToldByTheFilesNumbers) {
  EXPECT_EQ(lineWeightOf(29), -1);
  EXPECT_EQ(lineWeightOf(7), 25);
  EXPECT_EQ(storedLineWeight(-3), 31);
  for (std::int64_t stored = 0; stored < 24; ++stored)
    EXPECT_EQ(storedLineWeight(lineWeightOf(stored)), stored);
  EXPECT_EQ(storedLineWeight(26), std::nullopt);
}

}  // namespace
}  // namespace cad::dwg
