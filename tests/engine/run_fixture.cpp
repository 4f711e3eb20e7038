#include "tests/engine/run_fixture.h"

#include "adsdef.h"
#include "platform/settings.h"
#include "tests/support/in_command.h"
#include "tests/support/test_file.h"

namespace engine_test {
namespace {

std::string group(std::string_view line) {
  const std::size_t blank = std::min(line.find(' '), line.size());
  std::string code(line.substr(0, blank));
  if (code.size() < 3) code.insert(0, 3 - code.size(), ' ');
  return code + "\r\n" + std::string(line.substr(std::min(blank + 1, line.size()))) + "\r\n";
}

}  // namespace

std::string dxf(std::string_view groups) {
  std::string out;
  while (!groups.empty()) {
    const std::size_t end = std::min(groups.find('\n'), groups.size() - 1);
    out += group(groups.substr(0, end));
    groups.remove_prefix(end + 1);
  }
  return out;
}

std::string sampleDrawing() { return test_support::testFile("engine/sample.dxf"); }

std::string drawing(std::string_view entities, std::string_view blocks) {
  constexpr std::string_view kSection = "ENTITIES\r\n", kEnd = "  0\r\nENDSEC";
  std::string text = sampleDrawing();
  const std::size_t from = text.find(kSection) + kSection.size();
  text.replace(from, text.rfind(kEnd) - from, dxf(entities));
  return text.insert(text.rfind(kEnd, from), dxf(blocks));
}

void RunTest::SetUp() {
  std::filesystem::create_directories(folder_ / "out");
  cad::Host::instance().setOutput([this](std::wstring_view text) { printed_ += text; });
  cad::Host::instance().start();
  set(L"KivBlock", 0);
  set(L"MorluxIgnoreLocks", 0);
}

void RunTest::TearDown() {
  cad::Host::instance().stop();
  cad::Host::instance().setOutput({});
  kiv::clearSettingOverrides();
}

void RunTest::open(const std::string& bytes) {
  const base::Status opened = cad::Host::instance().openDocument(make("plan.dxf", cad::testedFile(bytes)));
  ASSERT_TRUE(opened.ok()) << base::toUtf8(opened.failure().text());
}

kiv::RunOutcome RunTest::run(const std::map<std::wstring, std::wstring>& sections) {
  std::wstring text;
  for (const auto& [header, body] : sections) text += L"[" + header + L"]\n" + body + L"\n---End---\n\n";
  text += L"[EOF]\n";
  parameters_.specification = base::pathText(makeText("rules.cvt", text));
  kiv::RunOutcome outcome;
  test_support::inCommand([&] { outcome = kiv::runConversion(parameters_, sink_); });
  return outcome;
}

kiv::RunOutcome RunTest::runOnAll(const std::wstring& setting) {
  return run({{L"文字", setting}, {L"寸法", setting}, {L"ﾊｯﾁﾝｸﾞ", setting}, {L"その他の図形", setting}});
}

void RunTest::set(const wchar_t* setting, int value) {
  kiv::overrideCommonSetting(setting, std::to_wstring(value).c_str());
}

std::int64_t RunTest::integer(std::uint64_t handle, cad::Property property) {
  return drawing().integer(entity(handle), property).value_or(-999);
}

double RunTest::real(std::uint64_t handle, cad::Property property) {
  return drawing().real(entity(handle), property).value_or(-999);
}

std::wstring RunTest::name(std::uint64_t handle, cad::Property property) {
  const cad::NameId id = drawing().name(entity(handle), property);
  return id == cad::kNoName ? L"" : drawing().names().text(id);
}

std::string RunTest::savedBytes() {
  const std::filesystem::path path = folder_ / "saved_for_comparison.dxf";
  EXPECT_TRUE(drawing().save(path).ok());
  return content(path);
}

void RunTest::undo() { EXPECT_TRUE(cad::Host::instance().execute(L"U").ok()); }

void UndoneRunTest::SetUp() {
  RunTest::SetUp();
  open(sampleDrawing());
  before_ = savedBytes();
}

void UndoneRunTest::TearDown() {
  undo();
  EXPECT_EQ(savedBytes(), before_);
  RunTest::TearDown();
}

}  // namespace engine_test
