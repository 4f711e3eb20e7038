// The three readers on their own: DXF scan, wildcard match, specification. Each checks its result before the
// first measurement.

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "base/codepage.h"
#include "base/files.h"
#include "embedded/drawing/wildcard.h"
#include "embedded/dxf/loader.h"
#include "spec/cvt_parser.h"

namespace {

constexpr int kEntities = 20000;

std::string narrow(std::wstring_view text) { return base::encode(text, base::kJapanese).bytes; }

const std::string& drawing() {
  static const std::string bytes = [] {
    std::string text = "  0\r\nSECTION\r\n  2\r\nENTITIES\r\n";
    for (int i = 0; i < kEntities; ++i) {
      text += "  0\r\nLINE\r\n  8\r\n" + narrow(L"A-壁") + std::to_string(i % 40) +
              "\r\n 62\r\n     3\r\n 10\r\n1250.5\r\n 20\r\n830.25\r\n 11\r\n1740.0\r\n 21\r\n96.125\r\n";
    }
    return text + "  0\r\nENDSEC\r\n  0\r\nEOF\r\n";
  }();
  return bytes;
}

void dxfScan(benchmark::State& state) {
  auto checked = cad::dxf::loadBytes(drawing());
  if (!checked || checked.value()->entitiesOf(checked.value()->modelSpace()).size() != kEntities) {
    state.SkipWithError("the drawing was read wrong");
    return;
  }
  for (auto _ : state) benchmark::DoNotOptimize(cad::dxf::loadBytes(drawing()));
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(drawing().size()));
  state.SetItemsProcessed(state.iterations() * kEntities);
}
BENCHMARK(dxfScan)->Unit(benchmark::kMillisecond);

void wildcardMatch(benchmark::State& state) {
  const cad::Wildcard pattern(L"A-*#[壁柱]*-?旧,~*A*B*C*", true);
  const std::vector<std::pair<std::wstring, bool>> names = {{L"a-1F1壁外-2旧", true},
                                                            {L"XAxxBxxC", false},
                                                            {L"寸法", true},
                                                            {std::wstring(200, L'A') + L"BC", false}};
  for (const auto& [name, matches] : names) {
    if (pattern.matches(name) != matches) {
      state.SkipWithError("a name was matched wrong");
      return;
    }
  }
  for (auto _ : state) {
    for (const auto& [name, matches] : names) benchmark::DoNotOptimize(pattern.matches(name));
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(names.size()));
}
BENCHMARK(wildcardMatch);

void cvtParse(benchmark::State& state) {
  constexpr std::size_t kSettings = 500;
  std::string bytes = narrow(L"[その他の図形]\r\n");
  for (std::size_t i = 0; i < kSettings; ++i) {
    bytes += narrow(L"[画層] = A-壁") + std::to_string(i) +
             narrow(L"\r\n[色] <> 7\r\n{\r\n[画層] = B\r\n[線幅値] = 0.25 mm\r\n}\r\n");
  }
  bytes += "---End---\r\n[EOF]\r\n";
  if (kiv::parseCvt(bytes).sections[3].settings.size() != kSettings) {
    state.SkipWithError("the specification was read wrong");
    return;
  }
  for (auto _ : state) benchmark::DoNotOptimize(kiv::parseCvt(bytes));
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes.size()));
}
BENCHMARK(cvtParse)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
