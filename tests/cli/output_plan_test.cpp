#include "cli/output_plan.h"

#include <gtest/gtest.h>

namespace kivcli {
namespace {

std::vector<PlannedDrawing> plan(const std::vector<std::wstring>& drawings,
                                 std::optional<SaveFormat> format = std::nullopt) {
  return planOutputs(drawings, "out", format);
}

TEST(OutputPlan, TargetHasTheFormatsExtensionInCapitals) {
  EXPECT_EQ(plan({L"in/a.dxf"})[0].target, "out/a.DXF");
  EXPECT_EQ(plan({L"in/a.dwg"})[0].target, "out/a.DWG");
  EXPECT_EQ(plan({L"in/a.dwg"}, SaveFormat::kDxf)[0].target, "out/a.DXF");
  EXPECT_EQ(plan({L"in/a.dxf"}, SaveFormat::kDwt)[0].target, "out/a.DWT");
}

TEST(OutputPlan, OnlyAnExtensionOfThreeCharactersIsCut) {
  EXPECT_EQ(plan({L"plan.v2.dxf"})[0].target, "out/plan.v2.DXF");
  EXPECT_EQ(plan({L"plan"})[0].target, "out/plan.DXF");
  EXPECT_EQ(plan({L"plan.dx"})[0].target, "out/plan.dx.DXF");
}

TEST(OutputPlan, TheSecondDrawingOfOneTargetIsRefused) {
  const auto planned = plan({L"x/a.dxf", L"y/A.DXF", L"y/b.dxf"});
  EXPECT_EQ(planned[0].refusal, L"");
  EXPECT_NE(planned[1].refusal.find(L"x/a.dxf"), std::wstring::npos);
  EXPECT_EQ(planned[2].refusal, L"");
}

TEST(OutputPlan, ATargetThatIsADrawingGivenIsRefused) {
  const auto planned =
      planOutputs({L"./in/../in/a.dxf", L"elsewhere/b.dxf", L"in/B.dxf"}, "in", std::nullopt);
  EXPECT_NE(planned[0].refusal, L"");
  EXPECT_NE(planned[1].refusal, L"") << "would overwrite the third one before it is read";
  EXPECT_EQ(planOutputs({L"in/a.dxf"}, "in", SaveFormat::kDwg)[0].refusal, L"");
}

}  // namespace
}  // namespace kivcli
