#include "spec/configuration.h"

#include "spec/cvt_parser.h"
#include "spec/text_search_list.h"
#include "tests/support/temp_folder.h"

namespace kiv {
namespace {

class Configuration : public test_support::TempFolder {};

HostFileLookup answering(std::optional<std::wstring> path) {
  return [path](const std::wstring&) { return path; };
}

TEST_F(Configuration, FolderBesideTheModule) {
#if defined(_WIN32)
  EXPECT_EQ(configurationFolder(answering(L"c:\\tools\\kivgui.arx")), L"C:\\TOOLS\\CFG\\");
#else
  EXPECT_EQ(configurationFolder(answering(L"/opt/Tools/kivgui.arx")), L"/opt/Tools/CFG/");
#endif
  EXPECT_EQ(configurationFolder(answering(std::nullopt)), L"");
  EXPECT_EQ(configurationFolder(answering(L"/KIVGUI.ARX")), L"");
  EXPECT_EQ(configurationFolder(answering(L"/opt/tools/other.arx")), L"");
  EXPECT_EQ(configurationFolder(answering(L"/" + std::wstring(250, L'a') + L"/KIVGUI.ARX")), L"");
}

TEST_F(Configuration, TheSamplesOfTheProductAreUnderstood) {
  std::filesystem::copy(KIV_SHIPPED_SAMPLES, folder_ / "samples");
  const std::filesystem::path made = folder_ / "CFG";
  const FolderMade outcome = makeConfigurationFolder(base::pathText(made / ""));
  ASSERT_TRUE(outcome.status.ok());
  EXPECT_EQ(outcome.notice, L"");
  size_t specifications = 0;
  for (const auto& file : std::filesystem::directory_iterator(made)) {
    if (file.path().extension() != ".cvt") continue;
    const auto parsed = parseCvtFile(file.path());
    EXPECT_TRUE(parsed.value().diagnostics.empty()) << file.path();
    EXPECT_FALSE(parsed.value().remark.empty()) << file.path();
    ++specifications;
  }
  EXPECT_GE(specifications, 3U);
  EXPECT_FALSE(readTextSearchList(made / "ROOMS.LIST").value().empty());

  std::filesystem::remove_all(made);
  std::filesystem::remove_all(folder_ / "samples");
  const FolderMade bare = makeConfigurationFolder(base::pathText(made / ""));
  EXPECT_TRUE(bare.status.ok());
  EXPECT_NE(bare.notice.find(base::pathText(folder_ / "samples")), std::wstring::npos);
}

TEST_F(Configuration, DefaultSpecificationWrittenAndReadBack) {
  const std::wstring folder = base::pathText(folder_) + L"/";
  const auto lookup = answering(folder + kInitialFileName);
  ASSERT_TRUE(writeDefaultSpecificationName(folder, L"/some/where/標準.cvt").ok());
  EXPECT_EQ(content("KivCvtInit.dat"), base::encode(L"標準.cvt\r\n", base::kJapanese).bytes);
  EXPECT_EQ(defaultSpecificationName(folder, lookup), L"標準.cvt");
  ASSERT_TRUE(writeDefaultSpecificationName(folder, L"").ok());
  EXPECT_EQ(defaultSpecificationName(folder, lookup), L"Unnamed");
  ASSERT_TRUE(writeDefaultSpecificationName(folder, L"/some/where/한.cvt").ok());
  EXPECT_EQ(content("KivCvtInit.dat"), "Unnamed\r\n");
  makeText("KivCvtInit.dat", L" a.cvt \t\r\nsecond");
  EXPECT_EQ(defaultSpecificationName(folder, lookup), L" a.cvt");
  EXPECT_EQ(defaultSpecificationName(folder, answering(std::nullopt)), std::nullopt);
}

}  // namespace
}  // namespace kiv
