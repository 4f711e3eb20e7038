#include "embedded/formats/drawing_files.h"

#include <gtest/gtest.h>

#include "tests/embedded/dxf/dxf_text.h"

namespace cad::formats {
namespace {

TEST(Formats, FilesOfOtherKindsAreNamedAsWhatTheyAre) {
  using namespace std::string_literals;
  std::string wide;
  for (const char c : dxf::groups("0 SECTION|2 ENTITIES|0 ENDSEC|0 EOF")) wide.append(1, c).append(1, '\0');
  const std::pair<std::string, const wchar_t*> cases[] = {
      {"", L"empty"},
      {"AC1032\0\0"s, L"cut off"},
      {"AC1009\0\0"s, L"DWG"},
      {"AC2.10"s, L"before R13"},
      {"AC1.2\0"s, L"before R13"},
      {"MC0.0\0"s, L"before R13"},
      {"\xFF\xFE" + wide, L"UTF-16"},
      {"\xFE\xFF\0 "s, L"UTF-16"},
      {wide, L"UTF-16"},
      {wide.substr(1), L"UTF-16"},
      {"\xFF\xFE\0\0 \0\0\0"s, L"UTF-32"},
      {"\x1F\x8B\x08\0"s, L"gzip"},
      {"PK\3\4\x14\0"s, L"zip"},
      {"7z\xBC\xAF\x27\x1C\0\4"s, L"7z"},
      {"BZh91AY"s, L"bzip2"},
      {"\xFD\x37zXZ\0"s, L"xz"},
      {"\x28\xB5\x2F\xFD"s, L"zstd"},
      {"\x24\x72-lh5-"s, L"LHA"},
      {std::string(257, '\0') + "ustar", L"tar"},
  };
  for (const auto& [bytes, kind] : cases) {
    const auto result = openBytes(bytes);
    ASSERT_FALSE(result.ok()) << bytes;
    EXPECT_NE(result.failure().reason.find(kind), std::wstring::npos)
        << base::toUtf8(result.failure().text());
  }
}

TEST(Formats, ATextThatBeginsAsDwgFilesDoIsNoOldDrawing) {
  const auto result = openBytes("ACME drawing list\n");
  ASSERT_FALSE(result.ok());
  EXPECT_EQ(result.failure().reason.find(L"before R13"), std::wstring::npos);
}

TEST(Formats, AnotherFormatIsAskedBeforeItsFilesCountAsForeign) {
  const std::string file = "AC1006";
  {
    const FormatForTests format(
        {file, [](std::shared_ptr<const SourceBytes>) { return create(Version::kR2004); }});
    EXPECT_TRUE(openBytes(file).ok());
  }
  EXPECT_NE(openBytes(file).failure().reason.find(L"DWG"), std::wstring::npos);
}

TEST(Formats, ADrawingKeepsItsFormat) {
  const auto made = create(Version::kR2018);
  ASSERT_TRUE(made.ok());
  EXPECT_EQ(made.value()->facts().version, Version::kR2018);
  EXPECT_TRUE(canSave(*made.value(), FileKind::kDxf));
  EXPECT_FALSE(canSave(*made.value(), FileKind::kDwt));
  EXPECT_EQ(create(Version::kR14).failure().place, L"AC1014");
}

}  // namespace
}  // namespace cad::formats
