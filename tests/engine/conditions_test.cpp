// What conditions are made of. What every kind reaches on every sort of entity is shown by the cases
// conditions-on-*.

#include "engine/conditions.h"

#include <set>

#include "adscodes.h"
#include "base/files.h"
#include "spec/item_kinds.h"
#include "spec/text_search_list.h"
#include "tests/engine/run_fixture.h"

namespace {

using namespace engine_test;
using Handles = std::set<std::uint64_t>;

const Handles kEverything = {kText, kMText, kAttdef, kDimension, kLeader, kHatch, kInsert, kLine};
class ConditionRules : public RunTest {};

// A kind that the engine does not test would let its setting reach everything. A property that an object does
// not have matches no value: equal drops it, inverted keeps it.
TEST_F(ConditionRules, NoKindIsPassedOver) {
  open(sampleDrawing());
  for (const kiv::ItemKind& kind : kiv::itemKinds()) {
    if (kind.kind == kiv::kVariableKind || !kiv::hasEffect(kind.kind, kiv::kTextSection, false)) continue;
    const std::wstring key = L"[" + std::wstring(kind.key) + L"]";
    runOnAll(key + L" = 99\n{\n[色] = 42\n}");
    for (const std::uint64_t handle : kEverything) EXPECT_EQ(color(handle), 2) << kind.kind;
    if (kind.kind == kiv::kTextListKind) continue;  // there is no such list
    runOnAll(key + L" <> 99\n{\n[色] = 42\n}");
    for (const std::uint64_t handle : kEverything) EXPECT_EQ(color(handle), 42) << kind.kind;
    undo();
  }
}

// A condition reads a dimension variable's value as a result does, and an arrow's name in either spelling.
TEST_F(ConditionRules, DimensionVariablesInTheFormsOfResults) {
  open(sampleDrawing());
  run({{L"寸法",
        L"[***]\n{\n[DIMCLRD] = 256\n[DIMLWD] = 25 mm\n[DIMLWE] = -1\n[DIMASZ] = 2.5\n"
        L"[DIMBLK] = ﾃｨｯｸ(太) (_ARCHTIC)\n[DIMPOST] = mm\n[DIMDSEP] = ;\n[DIMTOFL] = 1\n}"}});
  ASSERT_TRUE(sink_.notes.empty());
  run({{L"寸法",
        L"[DIMCLRD] <> 256\n{\n[色] = 5\n}\n[DIMLWD] = 0.25\n{\n[色] = 5\n}\n[DIMTIH] = 2\n{\n[色] = "
        L"5\n}\n[DIMTXSTY] <> KANJI\n{\n[色] = 5\n}\n"
        L"[DIMBLK] = 黒丸 (_DOT)\n{\n[色] = 5\n}"}});
  EXPECT_EQ(color(kDimension), 2);
  run({{L"寸法",
        L"[DIMCLRD] = 256\n[DIMLWD] = 25\n[DIMLWE] = -1\n[DIMASZ] = 2.50\n[DIMALTF] = 25.4\n[DIMTAD] = 1\n"
        L"[DIMTIH] = 1\n[DIMTOFL] = 1\n[DIMPOST] = mm\n[DIMDSEP] = ;\n[DIMTXSTY] = KANJI\n[DIMTSZ] = "
        L"なし\n[DIMBLK] = ﾃｨｯｸ(太) (_archtic)\n[DIMBLK] = ﾕｰｻﾞ指定 (_ARCHTICK)\n"
        L"{\n[色] = 6\n}"}});
  EXPECT_EQ(color(kDimension), 6);
}

TEST_F(ConditionRules, ColoursThatDoNotFitSelectNothing) {
  open(sampleDrawing());
  runOnAll(L"[色] = 65538\n{\n[色] = 42\n}\n[色] = -65534\n{\n[色] = 42\n}");
  for (const std::uint64_t handle : kEverything) EXPECT_EQ(color(handle), 2) << handle;
  runOnAll(L"[色] <> 65538\n{\n[色] = 42\n}");
  for (const std::uint64_t handle : kEverything) EXPECT_EQ(color(handle), 42) << handle;
}

TEST_F(ConditionRules, LeadersAreTakenByTwoPasses) {
  open(sampleDrawing());
  run({{L"寸法", L"[***]\n{\n[色] = 5\n}"}, {L"その他の図形", L"[色] = 5\n{\n[線種尺度] = 3\n}"}});
  EXPECT_EQ(color(kLeader), 5);
  EXPECT_DOUBLE_EQ(real(kLeader, cad::Property::kLinetypeScale), 3);
  EXPECT_DOUBLE_EQ(real(kDimension, cad::Property::kLinetypeScale), 2);
}

// Neither the list alone nor beside one that is there.
TEST_F(ConditionRules, SettingWhoseTextListCannotBeLoadedAppliesToNothing) {
  open(sampleDrawing());
  make("ROOMS.LIST", "*** MOJILIST ***\r\nROOM 10#\r\n");
  make("PLAIN.LIST", "ROOM 10#\r\n");
  const std::wstring results = L"{\n[色] = 42\n}\n", key = L"[文字一致のリスト]";
  runOnAll(key + L" = NONE.LIST\n" + results + key + L" <> NONE.LIST\n" + results + key + L" = ROOMS.LIST\n" +
           key + L" <> PLAIN.LIST\n" + results);
  for (const std::uint64_t handle : kEverything) EXPECT_EQ(color(handle), 2) << handle;
  const auto place = [&](const char* name) { return L"[" + base::pathText(folder_ / name) + L"]"; };
  EXPECT_EQ(sink_.problems, (std::vector<std::wstring>{place("NONE.LIST") + kiv::kTextListCannotOpen,
                                                       place("PLAIN.LIST") + kiv::kTextListNotUsable}));
  for (const std::wstring& problem : sink_.problems) EXPECT_NE(printed_.find(problem), std::wstring::npos);
}

TEST_F(ConditionRules, LongTextListKeepsItsFirstTextsAndSaysSo) {
  open(sampleDrawing());
  std::string list = "*** MOJILIST ***\r\nROOM 101\r\n";
  for (int i = 0; i < 199; ++i) list += "HALL\r\n";
  make("LONG.LIST", list + "ROOM 102\r\n");
  run({{L"文字", L"[文字一致のリスト] = LONG.LIST\n{\n[色] = 42\n}"},
       {L"寸法", L"[文字一致のリスト] = LONG.LIST\n{\n[色] = 42\n}"}});
  EXPECT_EQ(color(kText), 42);
  EXPECT_EQ(color(kDimension), 2);
  ASSERT_EQ(sink_.problems.size(), 1U);
  EXPECT_NE(sink_.problems[0].find(L"200件を超えている"), std::wstring::npos);
  EXPECT_NE(printed_.find(sink_.problems[0]), std::wstring::npos);
}

struct Value {
  int number;
  bool equal;
};

bool passes(std::initializer_list<Value> values, int property) {
  return kiv::passesValues(std::span<const Value>(values.begin(), values.size()),
                           [&](const Value& value) { return value.number == property; });
}

TEST(RecordFilter, FirstMatchDecidesAndTheLastSenseDecidesTheRest) {
  EXPECT_TRUE(passes({}, 1));
  EXPECT_TRUE(passes({{1, true}, {2, true}}, 2));
  EXPECT_FALSE(passes({{1, true}, {2, true}}, 3));
  EXPECT_FALSE(passes({{1, false}, {2, false}}, 2));
  EXPECT_TRUE(passes({{1, false}, {2, false}}, 3));
  // The first match wins over a later one of the other sense.
  EXPECT_TRUE(passes({{1, true}, {1, false}}, 1));
  EXPECT_FALSE(passes({{1, false}, {1, true}}, 1));
  // Mixed senses: what matches nothing goes by the last value alone.
  EXPECT_FALSE(passes({{1, false}, {2, true}}, 3));
  EXPECT_TRUE(passes({{2, true}, {1, false}}, 3));
}

TEST(NumericCompare, SixDecimalsDecide) {
  EXPECT_TRUE(kiv::equalNumbers(2.5, 2.5000004));
  EXPECT_FALSE(kiv::equalNumbers(2.5, 2.500002));
  EXPECT_TRUE(kiv::equalNumbers(0.1 + 0.2, 0.3));
  EXPECT_FALSE(kiv::equalNumbers(1e15, 1e15 + 2));
}

TEST(NumericCompare, AnglesPointTheSameWay) {
  EXPECT_TRUE(kiv::equalAngles(360, 0));
  EXPECT_TRUE(kiv::equalAngles(-90, 270));
  EXPECT_TRUE(kiv::equalAngles(359.99999999, 0));
  EXPECT_TRUE(kiv::equalAngles(-1e-9, 0));
  EXPECT_FALSE(kiv::equalAngles(90, 270));
  EXPECT_TRUE(kiv::equalAngles(725, 5));
}

TEST(SelectionFilter, AChainWithARefusedPieceSelectsNothing) {
  kiv::BufferChain chain;
  chain.text(RTDXF0, L"LINE").text(-12345, L"x");
  EXPECT_NE(chain.get(), nullptr);
  EXPECT_TRUE(kiv::SelectionSet(chain).isRefused());
}

}  // namespace
