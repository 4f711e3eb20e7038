#include "spec/cvt_format.h"

#include <gtest/gtest.h>

#include "spec/cvt_writer.h"
#include "tests/support/temp_folder.h"

namespace kiv {
namespace {

class CvtFormat : public test_support::TempFolder {
 protected:
  FormattedCvt formatted(const wchar_t* text, bool drop = false) {
    makeText("a.CVT", text);
    auto result = formatCvtFile(folder_ / "a.CVT", drop);
    EXPECT_TRUE(result.ok()) << (result.ok() ? "" : base::toUtf8(result.failure().text()));
    return result.ok() ? std::move(result.value()) : FormattedCvt{};
  }
};

TEST_F(CvtFormat, WhatIsSavedOnceIsInItsForm) {
  FormattedCvt first = formatted(L"[文字]\n[画層]=a-*\n{\n[色]=3\n}\n---End---\n[備考]\n室名\n[EOF]\n");
  EXPECT_FALSE(first.isInForm);
  EXPECT_TRUE(first.lost.empty());
  ASSERT_TRUE(writeSpecification(first.specification, folder_ / "a.CVT").ok());
  const auto again = formatCvtFile(folder_ / "a.CVT", false);
  ASSERT_TRUE(again.ok());
  EXPECT_TRUE(again.value().isInForm);
  EXPECT_EQ(again.value().specification.settings(1).size(), 1U);
}

TEST_F(CvtFormat, NamesEachLineThatSavingLoses) {
  const wchar_t* text =
      L"[文字]\n[重さ]=5\n[画層]=A\n{\n}\n[画層]=B\n{\n[色]=3\n}\n---End---\n[画層の作成]\nA, "
      L"1\n---End---\n[EOF]\n";
  const FormattedCvt kept = formatted(text), dropped = formatted(text, true);
  std::vector<int> lines;
  for (const CvtDiagnostic& each : kept.lost) lines.push_back(each.line);
  EXPECT_EQ(lines, (std::vector<int>{2, 3, 12}));
  EXPECT_EQ(dropped.specification.settings(1).size(), 1U) << "its conditions would be the next setting's";
}

TEST_F(CvtFormat, RefusesWhatIsNoSpecification) {
  makeText("a.CVT", L"メモ\n");
  EXPECT_FALSE(formatCvtFile(folder_ / "a.CVT", true).ok());
  EXPECT_FALSE(formatCvtFile(folder_ / "none.CVT", true).ok());
}

}  // namespace
}  // namespace kiv
