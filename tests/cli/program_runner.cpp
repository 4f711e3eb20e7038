#include "tests/cli/program_runner.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <type_traits>

namespace kivcli::testing {
namespace {

namespace fs = std::filesystem;

std::string japanese(std::string_view utf8) {
  const base::Encoded encoded = base::encode(base::fromUtf8(utf8), base::kJapanese);
  EXPECT_TRUE(encoded.clean);
  return encoded.bytes;
}

std::string layerRecord(const std::string& name, int flags) {
  return "  0\r\nLAYER\r\n  2\r\n" + name + "\r\n 70\r\n" + std::to_string(flags) +
         "\r\n 62\r\n     7\r\n  6\r\nCONTINUOUS\r\n";
}

// Names are bytes, but UTF-8 where the system's are wide text.
fs::path pathOf(const std::string& name) {
  if constexpr (std::is_same_v<fs::path::value_type, char>) return name;
  return base::fromUtf8(name);
}

std::string nameOf(const fs::path& path) {
  if constexpr (std::is_same_v<fs::path::value_type, char>) return path.string();
  return base::toUtf8(path.wstring());
}

}  // namespace

ProgramRun ProgramTest::kivcvt(const std::vector<std::string>& words) const {
  ProgramRun run = test_support::runProgram(KIVCVT_PROGRAM, words, folder_);
  if (fs::path::preferred_separator == '\\') {
    std::replace(run.out.begin(), run.out.end(), '\\', '/');
    std::replace(run.err.begin(), run.err.end(), '\\', '/');
  }
  return run;
}

void ProgramTest::write(const std::string& name, std::string_view bytes) const {
  const fs::path path = folder_ / pathOf(name);
  fs::create_directories(path.parent_path());
  std::ofstream file(path, std::ios::binary);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  ASSERT_TRUE(file.good()) << name;
}

std::string ProgramTest::read(const std::string& name) const {
  std::ifstream file(folder_ / pathOf(name), std::ios::binary);
  EXPECT_TRUE(file.good()) << name;
  return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<std::string> ProgramTest::filesIn(const std::string& name) const {
  std::vector<std::string> names;
  for (const fs::directory_entry& entry : fs::directory_iterator(folder_ / pathOf(name))) {
    names.push_back(nameOf(entry.path().filename()));
  }
  std::sort(names.begin(), names.end());
  return names;
}

void ProgramTest::writeSpecification(const std::string& name, std::string_view text) const {
  std::string bytes;
  for (const char c : japanese(text)) bytes += c == '\n' ? std::string("\r\n") : std::string(1, c);
  write(name, bytes);
}

std::string drawing(std::string_view entities) {
  return "  0\r\nSECTION\r\n  2\r\nHEADER\r\n  9\r\n$ACADVER\r\n  1\r\nAC1009\r\n"
         "  9\r\n$DWGCODEPAGE\r\n  3\r\nANSI_932\r\n  0\r\nENDSEC\r\n"
         "  0\r\nSECTION\r\n  2\r\nTABLES\r\n  0\r\nTABLE\r\n  2\r\nLAYER\r\n 70\r\n     3\r\n" +
         layerRecord("0", 0) + layerRecord("TARGET", 0) + layerRecord("LOCKED", 4) +
         "  0\r\nENDTAB\r\n  0\r\nENDSEC\r\n  0\r\nSECTION\r\n  2\r\nENTITIES\r\n" + std::string(entities) +
         "  0\r\nENDSEC\r\n  0\r\nEOF\r\n";
}

std::string text(std::string_view layer, std::string_view content) {
  return "  0\r\nTEXT\r\n  8\r\n" + std::string(layer) + "\r\n 62\r\n     1\r\n 10\r\n0.0\r\n 20\r\n0.0\r\n" +
         " 40\r\n2.5\r\n  1\r\n" + japanese(content) + "\r\n";
}

std::string greenTexts(int changed) {
  return "changed by each setting:\n  " + std::to_string(changed) + "  texts 1: 画層=0 -> 色=3\n";
}

}  // namespace kivcli::testing
