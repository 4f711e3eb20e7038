#include "base/paths.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "base/files.h"
#include "tests/support/temp_path.h"

namespace base {
namespace {

TEST(Paths, JoinedAndTakenApart) {
  EXPECT_EQ(ensureTrailingSeparator(L"/a"), std::wstring(L"/a") + kSeparator);
  EXPECT_EQ(ensureTrailingSeparator(L"/a/"), L"/a/");
  EXPECT_EQ(joinPath(L"", L"b"), L"b");
  const PathParts parts = splitPath(L"/a.b/plan.v2.DXF");
  EXPECT_EQ(parts.folder, L"/a.b/");
  EXPECT_EQ(parts.name, L"plan.v2");
  EXPECT_EQ(parts.extension, L".DXF");
  EXPECT_EQ(splitPath(L"/a.b/plan").name, L"plan");
  EXPECT_EQ(splitPath(L"/a.b/plan").extension, L"");
}

TEST(Paths, FoldersAndFiles) {
  namespace fs = std::filesystem;
  const fs::path root = test_support::tempPath("kiv_paths");
  const std::wstring deep = pathText(root / "new" / "deep");
  EXPECT_FALSE(folderExists(deep));
  EXPECT_TRUE(createFolders(deep + L"/"));
  EXPECT_TRUE(folderExists(deep));
  ASSERT_TRUE(writeFileAtomically(root / "Plan.CVT", "x").ok());
  EXPECT_TRUE(fileExists(pathText(root / "Plan.CVT")));
  EXPECT_FALSE(fileExists(deep));
  EXPECT_FALSE(createFolders(pathText(root / "Plan.CVT")));
  EXPECT_FALSE(createFolders(L""));
  EXPECT_TRUE(fs::equivalent(findInFolder(pathText(root), L"plan.cvt"), root / "Plan.CVT"));
  EXPECT_EQ(findInFolder(pathText(root), L"none"), L"");
  fs::remove_all(root);
}

}  // namespace
}  // namespace base
