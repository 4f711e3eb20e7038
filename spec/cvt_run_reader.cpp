#include "spec/cvt_run_reader.h"

#include "spec/color_text.h"
#include "spec/cvt_lines.h"
#include "spec/cvt_parser.h"

namespace kiv {
namespace {

std::wstring flatValue(const Item& item) {
  if (item.kind == kColorKind) return std::to_wstring(colorNumber(item.value));
  std::wstring value;
  for (const wchar_t character : item.value) value.append(character == L',' ? 2 : 1, character);
  return value;
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
    if (!fields[1].empty()) fields[1] = std::to_wstring(colorNumber(fields[1]));
    fields.resize(9);
  }
  if (section == kArrowSection) fields = {splitFields(fields[0]).front()};
  return joinFields(fields);
}

}  // namespace

bool readWorkLists(const std::filesystem::path& file, WorkLists& out) {
  out = {};
  const auto parsed = parseCvtFile(file);
  if (!parsed.ok()) return false;
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
