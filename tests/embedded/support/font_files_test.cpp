#include "embedded/support/font_files.h"

#include <gtest/gtest.h>

#include <utility>

#include "base/codepage.h"

namespace cad::support {
namespace {

TEST(FontFiles, AreKnownByTheFaceHoweverItIsSpelled) {
  const std::pair<const wchar_t*, const wchar_t*> faces[] = {
      {L"ARIAL", L"arial.ttf"},
      {L"Times New Roman", L"times.ttf"},
      {L"ＭＳ ゴシック", L"msgothic.ttc"},
      {L"MS　ゴシック", L"msgothic.ttc"},
      {L"@ＭＳ Ｐ明朝", L"msmincho.ttc"},
      {L"meiryo ui", L"meiryo.ttc"},
      {L"游ゴシック", L"YuGothR.ttc"},
      {L"社内書体", L""},
  };
  for (const auto& [face, file] : faces) EXPECT_EQ(fontFileOf(face), file) << base::toUtf8(face);
}

}  // namespace
}  // namespace cad::support
