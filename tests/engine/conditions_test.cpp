// Every kind of condition, equal and inverted, on every sort of entity; and what they are made of.

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
constexpr int kMark = 42;

struct Case {
  const char* label;
  const wchar_t* key;
  const wchar_t* matching;
  const wchar_t* other;  // a value that no entity has
  Handles having;        // the entities that have the property
};

void PrintTo(const Case& c, std::ostream* out) { *out << c.label; }

class Conditions : public RunTest, public testing::WithParamInterface<Case> {
 protected:
  // The entities that a setting with this condition reaches.
  Handles reached(const std::wstring& condition) {
    open(sampleDrawing());
    make("ROOMS.LIST", "*** MOJILIST ***\r\nROOM 10#\r\n");
    make("OTHER.LIST", "*** MOJILIST ***\r\nHALL *\r\n");
    runOnAll(condition + L"\n{\n[色] = " + std::to_wstring(kMark) + L"\n}");
    Handles found;
    for (const std::uint64_t handle : kEverything) {
      if (color(handle) == kMark) found.insert(handle);
    }
    EXPECT_TRUE(cad::Host::instance().closeDocument().ok());
    return found;
  }
};

Handles without(const Handles& some) {
  Handles rest = kEverything;
  for (const std::uint64_t handle : some) rest.erase(handle);
  return rest;
}

// A property that an entity does not have matches no value: equal drops it, inverted keeps it.
TEST_P(Conditions, EqualAndInverted) {
  const Case& c = GetParam();
  const std::wstring key = L"[" + std::wstring(c.key) + L"]";
  EXPECT_EQ(reached(key + L" = " + c.matching), c.having);
  EXPECT_EQ(reached(key + L" <> " + c.matching), without(c.having));
  EXPECT_EQ(reached(key + L" = " + c.other), Handles{});
  EXPECT_EQ(reached(key + L" <> " + c.other), kEverything);
  EXPECT_TRUE(sink_.problems.empty());
}

const Handles kStyled = {kText, kMText, kAttdef, kDimension, kLeader};
const Handles kTurned = {kText, kMText, kAttdef, kDimension};

INSTANTIATE_TEST_SUITE_P(
    Kinds, Conditions,
    testing::Values(Case{"layer", L"画層", L"AL*", L"B*", kEverything},
                    Case{"linetype", L"線種", L"dash?d", L"CONTINUOUS", kEverything},
                    Case{"colour", L"色", L"2", L"BYLAYER", kEverything},
                    Case{"style", L"字体", L"kan*", L"STANDARD", kStyled},
                    Case{"height", L"文字高さ", L"3.5", L"3.6", kStyled},
                    Case{"angle", L"文字角度", L"450", L"270", kTurned},
                    Case{"width", L"文字幅高比", L"0.80", L"1", {kText, kAttdef}},
                    Case{"variable", L"DIMTAD", L"1", L"0", {kDimension, kLeader}},
                    Case{"styleVariable", L"DIMTXSTY", L"KANJI", L"STANDARD", {kDimension, kLeader}},
                    Case{"dimensionOnly", L"DIMTIH", L"1", L"0", {kDimension}},
                    Case{"list", L"文字一致のリスト", L"rooms.list", L"OTHER.LIST", kTurned},
                    Case{"lineweight", L"線幅値", L"0.25 mm", L"0.33 mm", kEverything},
                    Case{"transparency", L"透過性", L"30", L"ByLayer", kEverything},
                    Case{"scale", L"線種尺度", L"2.0000001", L"1", kEverything}));

class ConditionRules : public RunTest {};

// A kind that the engine does not test would let its setting reach everything.
TEST_F(ConditionRules, NoKindIsPassedOver) {
  open(sampleDrawing());
  for (const kiv::ItemKind& kind : kiv::itemKinds()) {
    if (kind.kind == kiv::kVariableKind || !kiv::hasEffect(kind.kind, kiv::kTextSection, false)) continue;
    runOnAll(L"[" + std::wstring(kind.key) + L"] = 99\n{\n[色] = 42\n}");
    EXPECT_EQ(color(kText), 2) << kind.kind;
  }
}

// A condition reads a dimension variable's value as a result does, and an arrow's name in either spelling.
TEST_F(ConditionRules, DimensionVariablesInTheFormsOfResults) {
  open(sampleDrawing());
  run({{L"寸法",
        L"[***]\n{\n[DIMCLRD] = 256\n[DIMLWD] = 25 mm\n[DIMLWE] = -1\n[DIMASZ] = 2.5\n[DIMALTF] = 2.54\n"
        L"[DIMBLK] = ﾃｨｯｸ(太) (_ARCHTIC)\n}"}});
  ASSERT_TRUE(sink_.notes.empty());
  run({{L"寸法",
        L"[DIMCLRD] <> 256\n{\n[色] = 5\n}\n[DIMLWD] = 0.25\n{\n[色] = 5\n}\n[DIMTIH] = 2\n{\n[色] = 5\n}\n"
        L"[DIMBLK] = 黒丸 (_DOT)\n{\n[色] = 5\n}"}});
  EXPECT_EQ(color(kDimension), 2);
  run({{L"寸法",
        L"[DIMCLRD] = 256\n[DIMLWD] = 25\n[DIMLWE] = -1\n[DIMASZ] = 2.50\n[DIMALTF] = 2.54\n[DIMTAD] = 1\n"
        L"[DIMTIH] = 1\n[DIMTSZ] = なし\n[DIMBLK] = ﾃｨｯｸ(太) (_archtic)\n[DIMBLK] = ﾕｰｻﾞ指定 (_ARCHTICK)\n"
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

using kiv::Pass;

// The chain as "group=value" texts, as the host finds it.
std::wstring filterOf(Pass pass, std::wstring_view setting) {
  const auto noLists = [](const std::wstring&) { return std::nullopt; };
  const kiv::CompiledSetting compiled = kiv::compileSetting(setting, pass, noLists);
  kiv::BufferChain chain;
  kiv::buildSelectionFilter(pass, compiled.conditions.filter, chain);
  std::wstring text;
  for (const resbuf* rb = chain.get(); rb != nullptr; rb = rb->rbnext) {
    const int group = rb->restype;
    const std::wstring value = group == 62 ? std::to_wstring(rb->resval.rint) : rb->resval.rstring;
    text += (group == -4 ? value : std::to_wstring(group) + L"=" + value) + L" ";
  }
  return text;
}

constexpr wchar_t kTexts[] = L"<or 0=TEXT 0=MTEXT 0=ATTDEF or> ";
constexpr wchar_t kDimensions[] = L"<or 0=DIMENSION 0=LEADER or> ";
constexpr wchar_t kOthers[] = L"<not <or 0=TEXT 0=MTEXT 0=ATTDEF 0=DIMENSION 0=HATCH or> not> ";

TEST(SelectionFilter, WithoutConditionsOnlyTheEntityTypes) {
  EXPECT_EQ(filterOf(Pass::kText, L",***,{,色=1"), kTexts);
  EXPECT_EQ(filterOf(Pass::kDimension, L",***"), kDimensions);
  EXPECT_EQ(filterOf(Pass::kHatch, L",***"), L"0=HATCH ");
  EXPECT_EQ(filterOf(Pass::kOther, L",***"), kOthers);
  // A condition that a selection cannot express adds nothing to the filter.
  EXPECT_EQ(filterOf(Pass::kText, L",文字高さ=2.5,透過性=30,DIMTAD=1,{,色=1"), kTexts);
}

TEST(SelectionFilter, AChainWithARefusedPieceSelectsNothing) {
  kiv::BufferChain chain;
  chain.text(RTDXF0, L"LINE").text(-12345, L"x");
  EXPECT_NE(chain.get(), nullptr);
  EXPECT_TRUE(kiv::SelectionSet(chain).isRefused());
}

TEST(SelectionFilter, ItemsInOrderAndInvertedOnesWrapped) {
  EXPECT_EQ(filterOf(Pass::kText, L",画層=A-*,色<>256,線種=DASHED,字体<>KANJI"),
            std::wstring(L"<and ") + kTexts + L"8=A-* <NOT 62=256 NOT> 6=DASHED <NOT 7=KANJI NOT> and> ");
}

TEST(SelectionFilter, TextStylesAreLeftToTheTestsOfDimensionsAndHatches) {
  EXPECT_EQ(filterOf(Pass::kDimension, L",字体=KANJI"), kDimensions);
  EXPECT_EQ(filterOf(Pass::kHatch, L",字体=KANJI,色=1"), L"<and 0=HATCH 62=1 and> ");
  EXPECT_EQ(filterOf(Pass::kOther, L",字体=KANJI"), std::wstring(L"<and ") + kOthers + L"7=KANJI and> ");
}

}  // namespace
