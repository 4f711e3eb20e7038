#include "cli/convert/output_plan.h"

#include <gtest/gtest.h>

namespace kivcli {
namespace {

std::vector<PlannedDrawing> plan(const std::vector<std::wstring>& drawings,
                                 std::optional<SaveFormat> format = std::nullopt,
                                 const char* folder = "out") {
  std::vector<ListedDrawing> listed;
  for (const std::wstring& drawing : drawings) listed.push_back({drawing, {}, {}});
  return planOutputs(listed, folder, format);
}

TEST(OutputPlan, EachDrawingKeepsItsFormatUnlessOneIsNamed) {
  EXPECT_EQ(plan({L"in/a.dxf"})[0].target, "out/a.DXF");
  EXPECT_EQ(plan({L"in/a.Dwg"})[0].target, "out/a.DWG");
  EXPECT_EQ(plan({L"in/a"})[0].target, "out/a.DXF");
  EXPECT_EQ(plan({L"in/a.dxf"}, SaveFormat::kDwt)[0].target, "out/a.DWT");
}

TEST(OutputPlan, TheSecondDrawingOfOneTargetIsRefused) {
  const auto planned = plan({L"x/a.dxf", L"y/A.DXF", L"y/b.dxf"});
  EXPECT_EQ(planned[0].refusal, L"");
  EXPECT_NE(planned[1].refusal.find(L"x/a.dxf"), std::wstring::npos);
  EXPECT_EQ(planned[2].refusal, L"");
}

TEST(OutputPlan, ATargetThatIsADrawingGivenIsRefused) {
  const auto planned = plan({L"./in/../in/a.dxf", L"elsewhere/b.dxf", L"in/B.dxf"}, std::nullopt, "in");
  EXPECT_NE(planned[0].refusal, L"");
  EXPECT_NE(planned[1].refusal, L"") << "would overwrite the third one before it is read";
  EXPECT_EQ(plan({L"in/a.dxf"}, SaveFormat::kDwg, "in")[0].refusal, L"");
}

}  // namespace
}  // namespace kivcli
