#include "host/conversion_log.h"

#include <ctime>

#include "base/clock.h"
#include "platform/settings.h"
#include "tests/support/temp_folder.h"

namespace {

class ConversionLog : public test_support::TempFolder {
 protected:
  void SetUp() override {
    test_support::setTimeZone("UTC");
    base::setClock([] { return std::time_t{1794692250}; });  // 14 November 2026, 21:37:30
    want(1, base::pathText(file_));
  }
  void TearDown() override {
    base::setClock({});
    kiv::clearSettingOverrides();
  }
  void want(int create, const std::wstring& file) {
    kiv::overrideCommonSetting(L"MorluxCreateLog", std::to_wstring(create).c_str());
    kiv::overrideCommonSetting(L"MorluxLogOutFile", file.c_str());
  }
  // False when the entry could not be written.
  bool writeEntry(const std::vector<std::wstring>& messages) {
    kiv::ConversionLog log(L"図面.dxf");
    for (const std::wstring& message : messages) log.addMessage(message);
    return log.writeEntry().ok();
  }
  std::string content() { return TempFolder::content(file_); }

  const std::filesystem::path file_ = folder_ / "run.log";
};

// 日時,ファイル名,結果 and the time's 年 月 日 in code page 932.
constexpr std::string_view kHeader =
    "\x93\xfa\x8e\x9e,\x83\x74\x83\x40\x83\x43\x83\x8b\x96\xbc,\x8c\x8b\x89\xca\r\n";
constexpr std::string_view kDrawing = ",\x90\x7d\x96\xca.dxf";
constexpr std::string_view kTime =
    "2026\x94\x4e"
    "11\x8c\x8e"
    "14\x93\xfa 21:37:30";

std::string concat(std::initializer_list<std::string_view> parts) {
  std::string text;
  for (const std::string_view part : parts) text += part;
  return text;
}

TEST_F(ConversionLog, BytesOfCleanAndTroubledEntries) {
  writeEntry({});
  writeEntry({L"線種[X]", L"b,c", L"d"});
  EXPECT_EQ(content(), concat({kHeader, kTime, kDrawing, ", OK\r\n", kTime, kDrawing,
                               ",\x90\xfc\x8e\xed[X]\r\n", ",,b,c\r\n", ",,d\r\n"}));
}

TEST_F(ConversionLog, RepeatedMessagesAreHeldOnceWhateverTheirCase) {
  writeEntry({L"Layer a", L"LAYER A", L"layer b", L"ｌａｙｅｒ a", L"ＬＡＹＥＲ A"});
  EXPECT_EQ(content(), concat({kHeader, kTime, kDrawing, ",Layer a\r\n,,layer b\r\n,,",
                               base::encode(L"ｌａｙｅｒ a", base::kJapanese).bytes, "\r\n"}));
}

TEST_F(ConversionLog, NothingIsWrittenUnlessWanted) {
  want(0, base::pathText(file_));
  writeEntry({L"a"});
  want(1, L"");
  writeEntry({L"a"});
  want(1, L"/no/such/folder/run.log");
  EXPECT_FALSE(writeEntry({L"a"}));
  EXPECT_FALSE(std::filesystem::exists(file_));
}

}  // namespace
