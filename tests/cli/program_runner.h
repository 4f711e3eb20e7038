#pragma once
// Runs the real kivcvt in a folder of its own, on files that the test makes.

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/program.h"
#include "tests/support/temp_folder.h"

namespace kivcli::testing {

using test_support::ProgramRun;

class ProgramTest : public test_support::TempFolder {
 protected:
  void SetUp() override { speak("C"); }
  void TearDown() override { test_support::removeFolder(folder_); }

  // The programs that follow run under this locale.
  static void speak(const char* locale) { test_support::setEnvironment("LC_ALL", locale); }

  // Names are relative to the test's folder. In what is printed "/" separates paths on every system.
  ProgramRun kivcvt(const std::vector<std::string>& words) const;

  std::filesystem::path folder() const { return folder_; }
  void write(const std::string& name, std::string_view bytes) const;
  std::string read(const std::string& name) const;
  std::vector<std::string> filesIn(const std::string& name) const;  // sorted

  // A specification in code page 932 with CR LF; `text` is UTF-8 with bare line feeds.
  void writeSpecification(const std::string& name, std::string_view text) const;
};

// A drawing of release R12, code page 932, with layers 0, TARGET and the locked LOCKED, and the given
// entities ("" for an empty drawing).
std::string drawing(std::string_view entities);
// One TEXT entity; the content in UTF-8 is stored in code page 932.
std::string text(std::string_view layer, std::string_view content);
inline constexpr char kLine[] =
    "  0\r\nLINE\r\n  8\r\n0\r\n 10\r\n0.0\r\n 20\r\n0.0\r\n 11\r\n1.0\r\n 21\r\n1.0\r\n";

// Sets the colour of texts on layer 0 to 3.
inline constexpr char kTextsGreen[] =
    "[備考]\nsample\n\n[文字]\n[画層] = 0\n{\n[色] = 3\n}\n---End---\n\n[EOF]\n";
// What a conversion by it says of its setting, which changed so many texts.
std::string greenTexts(int changed);

}  // namespace kivcli::testing
