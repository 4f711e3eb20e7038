// explain, diff, dry runs and reports: what they tell is what a conversion does.

#include <cstdlib>
#include <map>
#include <nlohmann/json.hpp>
#include <set>

#include "tests/cli/program_runner.h"

namespace kivcli::testing {
namespace {

namespace fs = std::filesystem;
using nlohmann::json;

class TrustTest : public ProgramTest {
 protected:
  json run(const std::vector<std::string>& words, int status) const {
    const ProgramRun run = kivcvt(words);
    EXPECT_EQ(run.status, status) << run.err;
    const json parsed = json::parse(run.out, nullptr, false);
    EXPECT_FALSE(parsed.is_discarded()) << run.out;
    return parsed;
  }
  // The drawing is converted, and everything that is told of it beforehand and afterwards is held together.
  // False: it was refused.
  bool expectAgreement(const std::string& specification, const std::string& drawing) const;
};

std::size_t sum(const json& list, const char* what) {
  std::size_t all = 0;
  for (const json& item : list) all += item.at(what).get<std::size_t>();
  return all;
}

// Of the one drawing of the page.
json countsOfPage(const std::string& page) {
  const std::string mark = "id=\"data\">";
  const std::size_t begin = page.find(mark) + mark.size();
  return json::parse(page.substr(begin, page.find("</script>", begin) - begin)).at("rows").at(0).at("e");
}

bool TrustTest::expectAgreement(const std::string& specification, const std::string& drawing) const {
  SCOPED_TRACE(drawing);
  const std::string before = read(drawing);
  const ProgramRun dry = kivcvt({"convert", "--spec", specification, "--dry-run", "--changes", "--report",
                                 "dry.json", "--block-scope", "2", drawing});
  EXPECT_LE(dry.status, 1) << dry.err;
  EXPECT_FALSE(fs::exists(folder() / "out"));
  const ProgramRun real = kivcvt({"convert", "--spec", specification, "--out", "out", "--changes", "--report",
                                  "real.json", "--report", "real.html", "--block-scope", "2", drawing});
  const json first = json::parse(read("dry.json")), second = json::parse(read("real.json"));
  EXPECT_EQ(first.at("settings"), second.at("settings"));
  const json &told = first.at("drawings").at(0), &done = second.at("drawings").at(0);
  // Objects that belong to the erased entities of a picture go when the drawing is saved.
  for (const char* kind : {"entities", "records", "variables"}) {
    EXPECT_EQ(told.value("differences", json::object()).value(kind, json()),
              done.value("differences", json::object()).value(kind, json()));
  }
  const json explained =
      json::parse(kivcvt({"explain", "--spec", specification, "--json", "--block-scope", "2", drawing}).out)
          .at(0);
  EXPECT_EQ(explained.at("settings"), done.at("settings"));
  for (const json& setting : explained.at("settings")) {
    if (setting.at("isEntry").get<bool>()) continue;
    const json& conditions = setting.at("conditions");
    // What is left after the last condition is what the selection of the run has hit.
    if (setting.at("results").empty()) continue;
    EXPECT_EQ(conditions.empty() ? setting.at("looked") : conditions.back().at("left"), setting.at("hits"))
        << setting;
  }
  if (!done.at("saved").get<std::string>().empty()) {
    const bool differs = done.contains("differences");
    const json diff = run({"diff", "--json", drawing, done.at("saved")}, differs ? 1 : 0);
    if (differs) {
      EXPECT_EQ(diff, done.at("differences"));
    }
  }
  // Nothing but settings changes entities.
  std::size_t changes = 0, differing = 0;
  for (const json& setting : done.at("settings")) changes += sum(setting.at("results"), "changed");
  for (const json& entity : done.value("differences", json::object()).value("entities", json::array()))
    differing += entity.at("fate") == "changed" ? 1 : 0;
  EXPECT_LE(differing, changes);
  EXPECT_EQ(countsOfPage(read("real.html")), done.at("changed").at("entities")) << "the page";
  EXPECT_EQ(read(drawing), before);
  fs::remove_all(folder() / "out");
  return done.at("outcome") != "not converted";
}

TEST_F(TrustTest, DryRunExplanationAndReportAgreeWithTheConversion) {
  std::map<fs::path, fs::path> drawings;  // and their specifications
  const fs::path source = KIV_SOURCE;
  for (const fs::directory_entry& entry : fs::directory_iterator(source / "tests/cases"))
    if (fs::exists(entry.path() / "rules.cvt"))
      drawings[entry.path() / "drawing.dxf"] = entry.path() / "rules.cvt";
  for (const fs::directory_entry& entry : fs::directory_iterator(source / "examples"))
    if (entry.path().extension() == ".dxf") drawings[entry.path()] = source / "examples/office.cvt";
  if (const fs::path samples = KIV_SAMPLES; !samples.empty()) {
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(samples))
      if (entry.path().extension() == ".dxf" && entry.file_size() < 3'000'000)
        drawings[entry.path()] = source / "examples/office.cvt";
  }
  ASSERT_GT(drawings.size(), 20U);
  std::size_t converted = 0;
  for (const auto& [drawing, specification] : drawings)
    converted += expectAgreement(specification.string(), drawing.string()) ? 1 : 0;
  ASSERT_GT(converted, 20U);
}

TEST_F(TrustTest, ADryRunIsRefusedAsTheConversionIs) {
  write("a.dxf", drawing(text("0", "A")));
  writeSpecification("rules.cvt", kTextsGreen);
  const ProgramRun real =
      kivcvt({"convert", "--spec", "rules.cvt", "--out", "out", "--format", "dwt", "a.dxf"});
  for (const bool hasFolder : {true, false}) {
    std::vector<std::string> words = {"convert",  "--spec", "rules.cvt", "--dry-run",
                                      "--format", "dwt",    "a.dxf"};
    if (hasFolder) words.insert(words.end(), {"--out", "out"});
    const ProgramRun dry = kivcvt(words);
    EXPECT_EQ(dry.status, real.status);
    EXPECT_EQ(dry.err, "a.dxf: not converted: a DXF drawing cannot be saved as DWT\n");
    EXPECT_EQ(dry.err, real.err);
  }
}

TEST_F(TrustTest, ExplainsOneEntity) {
  writeSpecification(
      "rules.cvt",
      "[文字]\n[画層] = 0\n[色] = 5\n{\n[色] = 3\n}\n[画層] = 0\n{\n[色] = 3\n[線種] = NONE\n}\n"
      "---End---\n[EOF]\n");
  const auto withHandle = [](std::string entity) {
    return entity.insert(entity.find("  8\r\n"), "  5\r\n2F\r\n");
  };
  write("a.dxf", drawing(withHandle(text("0", "A"))));
  write("locked.dxf", drawing(withHandle(text("LOCKED", "A"))));
  write("line.dxf", drawing(withHandle(kLine)));
  const auto explained = [&](const char* file) {
    return kivcvt({"explain", "--spec", "rules.cvt", "--entity", "2f", file}).out;
  };
  EXPECT_NE(explained("a.dxf").find("texts 1: does not meet 色=5: it has 1\n"), std::string::npos)
      << explained("a.dxf");
  EXPECT_NE(explained("a.dxf").find("texts 2: met, and changes 色=3; refused: 線種=NONE\n"),
            std::string::npos);
  EXPECT_NE(explained("locked.dxf").find("does not meet 画層=0: it has LOCKED"), std::string::npos);
  EXPECT_NE(explained("line.dxf").find("no setting of the file is for entities of its kind"),
            std::string::npos);
  // The conditions are met on a locked layer, and in a definition that the scope leaves out.
  writeSpecification("reach.cvt", "[文字]\n[色] = 1\n{\n[色] = 3\n}\n---End---\n[EOF]\n");
  const auto told = [&](const char* file, const char* scope) {
    return kivcvt({"explain", "--spec", "reach.cvt", "--entity", "2F", "--block-scope", scope, file}).out;
  };
  EXPECT_NE(told("locked.dxf", "0").find("texts 1: met, but it is on a locked layer"), std::string::npos);
  std::string inBlock =
      drawing("  0\r\nINSERT\r\n  5\r\n3F\r\n  8\r\n0\r\n  2\r\nB\r\n 10\r\n0.0\r\n 20\r\n0.0\r\n");
  inBlock.insert(
      inBlock.find("  0\r\nSECTION\r\n  2\r\nENTITIES"),
      "  0\r\nSECTION\r\n  2\r\nBLOCKS\r\n  0\r\nBLOCK\r\n  8\r\n0\r\n  2\r\nB\r\n 70\r\n     0\r\n"
      " 10\r\n0.0\r\n 20\r\n0.0\r\n" +
          withHandle(text("0", "A")) + "  0\r\nENDBLK\r\n  0\r\nENDSEC\r\n");
  inBlock.insert(inBlock.find("  2\r\nTARGET"), "  5\r\n1F\r\n");
  write("block.dxf", inBlock);
  EXPECT_NE(told("block.dxf", "0").find("it is in a block definition; --block-scope 1 or 2"),
            std::string::npos)
      << told("block.dxf", "0");
  EXPECT_NE(told("block.dxf", "1").find("texts 1: met, and changes 色=3"), std::string::npos)
      << told("block.dxf", "1");
  EXPECT_NE(kivcvt({"explain", "--spec", "reach.cvt", "--entity", "1f", "block.dxf"})
                .err.find("block.dxf: 1f is the handle of LAYER TARGET, which is no entity"),
            std::string::npos);

  // What becomes of its layer becomes of the entity.
  writeSpecification(
      "layers.cvt",
      "[文字]\n[画層] = B\n{\n[色] = 3\n}\n---End---\n[画層の色･線種]\n[画層] = 0\n{\n[色] = 5\n}\n"
      "[画層] = TARGET\n{\n[画層] = A\n}\n---End---\n[EOF]\n");
  write("target.dxf", drawing(withHandle(text("TARGET", "A"))));
  const ProgramRun renamed = kivcvt({"explain", "--spec", "layers.cvt", "--entity", "2F", "target.dxf"});
  EXPECT_NE(renamed.out.find("layer settings 2: its layer TARGET: met, and changes 画層=A\n"),
            std::string::npos)
      << renamed.out;
  EXPECT_EQ(renamed.out.find("layer settings 1"), std::string::npos);
  EXPECT_EQ(kivcvt({"explain", "--spec", "rules.cvt", "a.dxf"}).status, 1) << "NONE is refused";
  const ProgramRun none = kivcvt({"explain", "--spec", "rules.cvt", "--entity", "999", "a.dxf"});
  EXPECT_EQ(none.status, 1);
  EXPECT_NE(none.err.find("there is no entity with the handle 999"), std::string::npos);
}

TEST_F(TrustTest, AReportTellsWhatTheSpecificationLeavesUndoneAndPicturesDoNotShow) {
  write("a.dxf", drawing(text("0", "A") + "  0\r\nMULTILEADER\r\n  8\r\n0\r\n"));
  writeSpecification("rules.cvt", "[文字]\n[画層] = 0\n{\n[色] = 3\n[夢] = 1\n}\n---End---\n[EOF]\n");
  kivcvt({"convert", "--spec", "rules.cvt", "--out", "out", "--ignore-locks", "--report", "r.json",
          "--report", "r.html", "a.dxf"});
  const json report = json::parse(read("r.json"));
  EXPECT_EQ(report.at("options"), json({"--out out", "--block-scope 0", "--ignore-locks"}));
  const json& problems = report.at("specificationProblems");
  ASSERT_EQ(problems.size(), 2u) << problems;
  EXPECT_EQ(problems.at(0), "rules.cvt: 1 line is dropped; what it says was not done");
  EXPECT_TRUE(problems.at(1).get<std::string>().starts_with("rules.cvt:5: dropped: "));
  const std::string page = read("r.html");
  for (const char* told :
       {"1 line is dropped; what", "rules.cvt:5: dropped: ", "--ignore-locks", "MULTILEADER"})
    EXPECT_NE(page.find(told), std::string::npos) << told;
}

TEST_F(TrustTest, AReportWithoutAPlaceIsToldBeforeTheFirstDrawing) {
  write("a.dxf", drawing(text("0", "A")));
  writeSpecification("rules.cvt", kTextsGreen);
  const ProgramRun run =
      kivcvt({"convert", "--spec", "rules.cvt", "--out", "out", "--report", "missing/report.json", "a.dxf"});
  EXPECT_EQ(run.status, 2);
  EXPECT_NE(run.err.find("--report missing/report.json"), std::string::npos) << run.err;
  EXPECT_TRUE(filesIn("out").empty());
}

TEST_F(TrustTest, DiffTellsWhatIsDifferent) {
  std::string changed = text("0", "B");
  changed.replace(changed.find("0.0"), 3, "7.5");
  write("a.dxf", drawing(text("0", "A") + kLine));
  write("b.dxf", drawing(changed + kLine + kLine));
  const ProgramRun same = kivcvt({"diff", "a.dxf", "a.dxf"}), other = kivcvt({"diff", "a.dxf", "b.dxf"});
  EXPECT_EQ(same.status, 0);
  EXPECT_EQ(same.out, "no differences\n");
  EXPECT_EQ(other.status, 1);
  for (const char* line :
       {"text: A -> B\n", "geometry: at (0, 0) -> at (7.5, 0)\n", "LINE, layer 0: added\n"})
    EXPECT_NE(other.out.find(line), std::string::npos) << line << " in\n" << other.out;
  EXPECT_EQ(kivcvt({"diff", "a.dxf", "none.dxf"}).status, 2);
}

}  // namespace
}  // namespace kivcli::testing
