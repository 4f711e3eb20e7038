// What an observer is told of a run, against a count by hand.

#include "engine/setting_observation.h"

#include "embedded/objects/database_access.h"
#include "tests/engine/run_fixture.h"

namespace {

using namespace engine_test;

class SettingObservation : public RunTest {
 protected:
  struct Tested {
    std::vector<int> passes;
    int failed;
    bool operator==(const Tested&) const = default;
  };
  struct Told {
    int section, number;
    std::vector<std::wstring> conditions, results;
    std::map<std::uint64_t, Tested> tested;
    std::map<std::uint64_t, int> hits;
    std::vector<std::pair<int, bool>> written;  // a result's number, whether it was refused
    bool isOver = false;
  };

  void SetUp() override {
    RunTest::SetUp();
    observer_ = {this, begins, tested, hit, resultBegins, resultEnds, ends};
    parameters_.observer = &observer_;
  }

  KivRunObserver observer_{};
  std::vector<Told> told_;

 private:
  static Told& current(void* self) { return static_cast<SettingObservation*>(self)->told_.back(); }
  static std::uint64_t handleOf(void* self, const KivObservedObject& object) {
    cad::Drawing& drawing = static_cast<SettingObservation*>(self)->drawing();
    for (const std::uint64_t handle : {0xA1, 0xA2, 0xA3, 0xA4, 0xB1, 0xC2}) {
      const cad::RecordId id = drawing.findHandle(handle);
      if (id != cad::kNoRecord && cad::idOf(*cad::databaseOf(drawing), id).asOldId() == object.id)
        return handle;
    }
    ADD_FAILURE() << "an object that does not stand in the drawing: " << object.id;
    return 0;
  }
  static void begins(void* self, const KivObservedSetting* setting) {
    Told told{setting->section, setting->number, {}, {}, {}, {}, {}};
    told.conditions.assign(setting->conditions, setting->conditions + setting->conditionCount);
    told.results.assign(setting->results, setting->results + setting->resultCount);
    static_cast<SettingObservation*>(self)->told_.push_back(std::move(told));
  }
  static void tested(void* self, const KivObservedObject* object, const unsigned char* passes, int failed) {
    Told& told = current(self);
    EXPECT_TRUE(told.hits.empty()) << "every object is tested before the first is written to";
    const bool isNew =
        told.tested.insert({handleOf(self, *object), {{passes, passes + told.conditions.size()}, failed}})
            .second;
    EXPECT_TRUE(isNew) << "an object is tested once";
  }
  static void hit(void* self, const KivObservedObject* object, int hit) {
    current(self).hits[handleOf(self, *object)] = hit;
  }
  static void resultBegins(void* self, int result) { current(self).written.push_back({result, false}); }
  static void resultEnds(void* self, int result, int isRefused) {
    EXPECT_EQ(current(self).written.back().first, result);
    current(self).written.back().second = isRefused != 0;
  }
  static void ends(void* self) { current(self).isOver = true; }
};

std::string text(const char* handle, const char* layer, const char* color, const char* height) {
  return std::string("0 TEXT\n5 ") + handle + "\n100 AcDbEntity\n8 " + layer + "\n62 " + color +
         "\n100 AcDbText\n10 0.0\n20 0.0\n40 " + height + "\n1 X\n100 AcDbText\n";
}

std::string texts() {
  return drawing(text("A1", "ALL", "1", "3.0") + text("A2", "ALL", "2", "3.0") +
                 text("A3", "LOCKED", "1", "3.0") + text("A4", "NEW", "1", "7.0"));
}

const wchar_t* const kSetting =
    L"[色] = 1\n[文字高さ] = 5\n[文字高さ] = 3\n{\n[色] = 5\n[線種] = NONE\n}\n[画層] = NEW\n{\n[色] = 6\n}";

TEST_F(SettingObservation, TellsTestsHitsLocksAndRefusals) {
  open(texts());
  run({{L"文字", kSetting}});
  ASSERT_EQ(told_.size(), 2U);
  const Told& first = told_[0];
  EXPECT_EQ(std::pair(first.section, first.number), std::pair(1, 1));
  EXPECT_EQ(first.conditions.size(), 3U);
  EXPECT_EQ(first.results.size(), 2U);
  // Heights are alternatives, held against an object at the last of them; colours are the selection's.
  EXPECT_EQ(
      first.tested,
      (std::map<std::uint64_t, Tested>{
          {0xA1, {{1, 0, 1}, -1}}, {0xA2, {{0, 0, 1}, 0}}, {0xA3, {{1, 0, 1}, -1}}, {0xA4, {{1, 0, 0}, 2}}}));
  EXPECT_EQ(first.hits, (std::map<std::uint64_t, int>{{0xA1, kKivHit}, {0xA3, kKivHitLocked}}));
  EXPECT_EQ(first.written, (std::vector<std::pair<int, bool>>{{0, false}, {1, true}}));
  EXPECT_EQ(told_[1].number, 2);
  EXPECT_EQ(told_[1].hits, (std::map<std::uint64_t, int>{{0xA4, kKivHit}}));
  EXPECT_TRUE(first.isOver && told_[1].isOver);
}

// What is selected must meet every layer; what stands in a definition, and a reference, one of them.
TEST_F(SettingObservation, SeveralLayersAreAlternativesInDefinitionsOnly) {
  const char* line = "\n100 AcDbEntity\n8 ALL\n100 AcDbLine\n10 0.0\n20 0.0\n11 1.0\n21 1.0\n";
  open(engine_test::drawing(
      std::string("0 INSERT\n5 C2\n100 AcDbEntity\n8 ALL\n100 AcDbBlockReference\n2 INNER\n"
                  "10 0.0\n20 0.0\n0 LINE\n5 A1") +
          line,
      std::string("0 BLOCK\n5 70\n100 AcDbEntity\n8 0\n100 AcDbBlockBegin\n2 INNER\n70 0\n10 0.0\n"
                  "20 0.0\n0 LINE\n5 B1") +
          line + "0 ENDBLK\n5 71\n100 AcDbEntity\n8 0\n100 AcDbBlockEnd\n"));
  set(L"KivBlock", 2);
  run({{L"その他の図形", L"[画層] = NEW\n[画層] = ALL\n{\n[色] = 42\n}"}});
  ASSERT_EQ(told_.size(), 1U);
  EXPECT_EQ(told_[0].tested, (std::map<std::uint64_t, Tested>{
                                 {0xA1, {{0, 1}, 0}}, {0xB1, {{0, 1}, -1}}, {0xC2, {{0, 1}, -1}}}));
  EXPECT_EQ(told_[0].hits, (std::map<std::uint64_t, int>{{0xB1, kKivHit}, {0xC2, kKivHit}}));
}

TEST_F(SettingObservation, EntriesAreOneResultThatMayBeRefused) {
  open(texts());
  run({{L"矢印のﾛｰﾄﾞ", L"_DOT\nMISSING.dxf"}});
  ASSERT_EQ(told_.size(), 2U);
  EXPECT_EQ(told_[0].results, std::vector<std::wstring>{L"_DOT"});
  EXPECT_EQ(told_[0].written, (std::vector<std::pair<int, bool>>{{0, false}}));
  EXPECT_EQ(told_[1].number, 2);
  EXPECT_EQ(told_[1].written, (std::vector<std::pair<int, bool>>{{0, true}}));
}

TEST_F(SettingObservation, ARunIsTheSameWhetherSomebodyLooksOnOrNot) {
  std::vector<std::string> saved;
  for (const bool tests : {true, false}) {
    open(texts());
    if (!tests) observer_.objectTested = nullptr;
    run({{L"文字", kSetting}});
    saved.push_back(savedBytes());
    EXPECT_TRUE(cad::Host::instance().closeDocument().ok());
  }
  ASSERT_EQ(told_.size(), 4U);
  EXPECT_TRUE(told_[2].tested.empty());
  EXPECT_EQ(told_[2].hits, told_[0].hits);
  EXPECT_EQ(told_[2].written, told_[0].written);
  parameters_.observer = nullptr;
  open(texts());
  run({{L"文字", kSetting}});
  saved.push_back(savedBytes());
  EXPECT_TRUE(saved[0] == saved[1] && saved[1] == saved[2]);
  EXPECT_EQ(told_.size(), 4U);
}

}  // namespace
