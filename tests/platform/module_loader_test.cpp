// Siblings that are missing, and one that lacks what is asked of it.

#include "platform/module_loader.h"

#include <gtest/gtest.h>

#include "embedded/editor/host.h"
#include "platform/drawing_files.h"

namespace kiv {
namespace {

TEST(Siblings, TheCommandLineSaysWhatIsMissing) {
  std::wstring printed;
  cad::Host::instance().setOutput([&](std::wstring_view text) { printed += text; });
  EXPECT_FALSE(Sibling(L"KivNone.arx"));
  EXPECT_EQ(printed, L"\n cannot found KivNone.arx.");
  printed.clear();
  EXPECT_EQ(chooseDrawings(L"title"), std::nullopt);
  EXPECT_EQ(printed, L"\n cannot found dll_kiv_openmulti() in KivFile.arx.");
  printed.clear();
  const DrawingVersions versions;
  EXPECT_EQ(versions.of(L"a.dwg"), -1);
  EXPECT_EQ(versions.of(L"b.dwg"), -1);
  EXPECT_EQ(printed, L"\n cannot found dll_kiv_GetAcadFileVer() in KivFile.arx.");
  cad::Host::instance().setOutput({});
}

}  // namespace
}  // namespace kiv
