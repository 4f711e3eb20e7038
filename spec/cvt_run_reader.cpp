#include "spec/cvt_run_reader.h"

#include "spec/color_text.h"
#include "spec/cvt_parser.h"

namespace kiv {
namespace {

std::wstring flatValue(const Item& item) {
  return item.kind == kColorKind ? std::to_wstring(colorNumber(item.value)) : item.value;
}

std::wstring flatten(const Setting& setting) {
  std::wstring line;
  for (const Item& item : setting.conditions) {
    line += L"," + item.key() + (item.inverted ? L"<>" : L"=") + flatValue(item);
  }
  if (setting.conditions.empty()) line += L",***";
  if (!setting.results.empty()) line += L",{";
  for (const Item& item : setting.results) line += L"," + item.key() + L"=" + flatValue(item);
  return line;
}

std::wstring joined(std::vector<std::wstring> fields, int section) {
  if (section == kLayerCreationSection) {
    fields[1] = std::to_wstring(colorNumber(fields[1]));
    fields.resize(9);
  }
  std::wstring line;
  for (size_t index = 0; index < fields.size(); ++index) line += (index == 0 ? L"" : L",") + fields[index];
  return line;
}

}  // namespace

bool readWorkLists(const std::filesystem::path& file, WorkLists& out,
                   std::vector<CvtDiagnostic>* diagnostics) {
  out = {};
  const auto parsed = parseCvtFile(file);
  if (!parsed.ok()) return false;
  if (diagnostics) *diagnostics = parsed.value().diagnostics;
  for (const SectionInfo& info : sections()) {
    const size_t index = static_cast<size_t>(info.number - 1);
    const CvtSection& section = parsed.value().sections[index];
    std::vector<std::wstring>& list = out.lists[index];
    for (const Setting& setting : section.settings) list.push_back(flatten(setting));
    for (const auto& fields : section.entries) list.push_back(joined(fields, info.number));
  }
  return parsed.value().hasKnownSection();
}

}  // namespace kiv
