#include "ui/specification_files.h"

#include "base/paths.h"
#include "tests/support/temp_folder.h"

namespace kiv {
namespace {

class SpecificationFiles : public test_support::TempFolder {
 protected:
  std::wstring folderText() const { return base::ensureTrailingSeparator(base::pathText(folder_)); }
};

TEST_F(SpecificationFiles, AreListedWithTheirSecondLineWhateverTheirNamesCase) {
  makeText("a.cvt", L"[備考]\r\n  平面図用 \r\n[文字]\r\n");
  make("B.CVT", "only one line");
  make("c.Cvt", "");
  make("d.cvtx", "x\r\ny\r\n");
  std::filesystem::create_directory(folder_ / "folder.cvt");
  std::vector<SpecificationFile> files = specificationFiles(folderText());
  sortByName(files, false);
  ASSERT_EQ(files.size(), 3U);
  EXPECT_EQ(files[0].name, L"a.cvt");
  EXPECT_EQ(files[0].remark, L"平面図用");
  EXPECT_EQ(files[1].name, L"B.CVT");
  EXPECT_EQ(files[1].remark, L"");
  EXPECT_EQ(files[2].remark, L"");
  EXPECT_TRUE(specificationFiles(folderText() + L"none").empty());
}

TEST_F(SpecificationFiles, TwoSpellingsOfTheExtensionSuffice) {
  EXPECT_EQ(withSpecificationExtension(L"plan"), L"plan.cvt");
  EXPECT_EQ(withSpecificationExtension(L"plan.CVT"), L"plan.CVT");
  EXPECT_EQ(withSpecificationExtension(L"plan.Cvt"), L"plan.Cvt.cvt");
  EXPECT_EQ(withSpecificationExtension(L"cvt"), L"cvt.cvt");
}

}  // namespace
}  // namespace kiv
