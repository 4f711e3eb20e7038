#include "spec/cvt_reader.h"

#include <utility>

#include "base/files.h"
#include "spec/cvt_lines.h"
#include "spec/value_forms.h"

namespace kiv {
namespace {

// The editor has the linetype first, a file has its linetype file first; a variable always has a value.
Entry entryOf(std::vector<std::wstring> fields, int section) {
  if (section == kDimensionSettingSection) fields.resize(2);
  if (section == kLinetypeSection) std::swap(fields[0], fields[1]);
  return {std::move(fields), Wording::kFile};
}

void fill(Specification& specification, int number, const CvtSection& section) {
  for (const Setting& setting : section.settings) {
    const int index = specification.addSetting(number).node.index;
    for (const Item& item : setting.conditions)
      static_cast<void>(specification.addCondition(number, index, item));
    for (const Item& item : setting.results) static_cast<void>(specification.addResult(number, index, item));
  }
  for (const auto& fields : section.entries) {
    static_cast<void>(specification.addEntry(number, entryOf(fields, number)));
  }
}

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

Specification specificationOf(const ParsedCvt& parsed) {
  Specification specification;
  specification.remark = parsed.remark;
  for (const SectionInfo& info : sections()) {
    fill(specification, info.number, parsed.sections[static_cast<size_t>(info.number - 1)]);
  }
  return specification;
}

TreeLoad loadSpecification(const std::filesystem::path& folder, std::wstring_view fileName) {
  TreeLoad load;
  load.specification.fileName = fileName;
  std::filesystem::path file = base::findIgnoringCase(folder, fileName);
  if (file.empty()) file = folder / base::pathFromText(fileName);
  const auto parsed = parseCvtFile(file);
  if (!parsed.ok()) return load;
  load.isRead = true;
  load.isSpecification = parsed.value().hasKnownSection();
  load.specification = specificationOf(parsed.value());
  load.specification.fileName = fileName;
  load.linesExamined = parsed.value().linesExamined();
  load.diagnostics = parsed.value().diagnostics;
  return load;
}

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
