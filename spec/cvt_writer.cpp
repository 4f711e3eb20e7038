#include "spec/cvt_writer.h"

#include <algorithm>
#include <fstream>

#include "base/files.h"
#include "base/fold.h"
#include "base/text_files.h"
#include "spec/cvt_lines.h"
#include "spec/value_forms.h"

namespace kiv {
namespace {

constexpr const wchar_t* kNoBigFont = L"----------";
constexpr size_t kBraceIndent = 16;
constexpr size_t kResultIndent = 24;

// A line end inside a text would make two lines of one.
std::wstring withoutLineEnds(std::wstring_view text) {
  std::wstring line(text);
  std::replace_if(
      line.begin(), line.end(), [](wchar_t c) { return c == L'\n' || c == L'\r'; }, L' ');
  return line;
}

std::wstring oneLine(std::wstring_view text) { return withoutLineEnds(base::trim(text)); }

std::wstring itemLine(const Item& item) {
  const std::wstring value =
      item.kind == kColorKind ? colorFileText(colorNumber(item.value)) : oneLine(item.value);
  return L"[" + item.key() + (item.inverted ? L"] <> " : L"] = ") + value + L"\n";
}

std::wstring settingLines(const Setting& setting) {
  std::wstring lines;
  for (const Item& condition : setting.conditions) lines += itemLine(condition);
  if (setting.results.empty()) return lines;
  if (setting.conditions.empty()) lines += std::wstring(kNoConditions) + L"\n";
  lines += std::wstring(kBraceIndent, L' ') + L"{\n";
  for (const Item& result : setting.results) lines += std::wstring(kResultIndent, L' ') + itemLine(result);
  return lines + std::wstring(kBraceIndent, L' ') + L"}\n";
}

std::wstring entryLine(const Entry& entry, int section) {
  std::vector<std::wstring> fields;
  for (const std::wstring& field : entry.fields) fields.push_back(oneLine(field));
  // "variable = value" in one field stays the line that it was.
  if (section == kDimensionSettingSection && fields[1].empty() && fields[0].find(L'=') != std::wstring::npos)
    fields.pop_back();
  if (section == kLinetypeSection) std::swap(fields[0], fields[1]);
  if (section == kLayerCreationSection && !fields[1].empty())
    fields[1] = colorFileText(colorNumber(fields[1]));
  if (section == kFontSection && (fields.size() < 3 || fields[2].empty())) {
    fields.resize(2);
    fields.push_back(kNoBigFont);
  }
  std::wstring line;
  for (size_t index = 0; index < fields.size(); ++index) {
    // Readers in use know the layers' lines with a bare comma behind the third field.
    line += (index == 0 ? L"" : index < 3 ? L", " : L",") + fields[index];
  }
  return line + L"\n";
}

CvtWriteResult notCreated(const std::filesystem::path& file, CvtWriteOutcome outcome, base::Failure failure) {
  const std::wstring message = L"\n " + base::pathText(file) + L"ファイルの作成に失敗しました";
  return {outcome, -1, message, std::move(failure)};
}

bool canBeOpenedAgain(const std::filesystem::path& file) {
  return std::fstream(file, std::ios::in | std::ios::out | std::ios::binary).is_open();
}

}  // namespace

std::wstring cvtText(const Specification& specification) {
  std::wstring text = std::wstring(kRemarkHeader) + L"\n" + withoutLineEnds(specification.remark) + L"\n\n";
  for (const SectionInfo& info : sections()) {
    text += std::wstring(info.header) + L"\n";
    for (const Setting& setting : specification.settings(info.number)) text += settingLines(setting);
    for (const Entry& entry : specification.entries(info.number)) text += entryLine(entry, info.number);
    text += std::wstring(kEndOfSection) + L"\n\n";
  }
  return text + kEndOfFile + L"\n";
}

CvtWriteResult writeSpecification(const Specification& specification, const std::filesystem::path& file) {
  const int setting = specification.settingWithoutLayer();
  if (setting >= 0) return {CvtWriteOutcome::kLayerMissing, setting, kLayerMissingMessage, {}};
  const std::wstring text = cvtText(specification);
  const base::Encoded encoded = base::encodeText(text);
  if (!encoded.clean) {
    return notCreated(file, CvtWriteOutcome::kUnwritable, base::notInCodePage(file, text));
  }
  const base::Status status = base::writeFileAtomically(file, encoded.bytes);
  if (!status.ok()) return notCreated(file, CvtWriteOutcome::kNotCreated, status.failure());
  CvtWriteResult result;
  if (!canBeOpenedAgain(file)) result.message = notCreated(file, CvtWriteOutcome::kWritten, {}).message;
  return result;
}

}  // namespace kiv
