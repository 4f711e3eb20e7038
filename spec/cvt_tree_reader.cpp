#include "spec/cvt_tree_reader.h"

#include "base/files.h"
#include "spec/cvt_parser.h"

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

}  // namespace

TreeLoad loadSpecification(const std::filesystem::path& folder, std::wstring_view fileName) {
  TreeLoad load;
  load.specification.fileName = fileName;
  std::filesystem::path file = base::findIgnoringCase(folder, fileName);
  if (file.empty()) file = folder / base::pathFromText(fileName);
  const auto parsed = parseCvtFile(file);
  if (!parsed.ok()) return load;
  load.isRead = true;
  load.isSpecification = parsed.value().hasKnownSection();
  load.specification.remark = parsed.value().remark;
  load.linesExamined = parsed.value().linesExamined();
  load.diagnostics = parsed.value().diagnostics;
  for (const SectionInfo& info : sections()) {
    fill(load.specification, info.number, parsed.value().sections[static_cast<size_t>(info.number - 1)]);
  }
  return load;
}

}  // namespace kiv
