#include "cadhost/drawing_kinds.h"

#include <algorithm>
#include <optional>

#include "base/files.h"
#include "base/fold.h"

namespace cadhost {
namespace {

using cad::formats::FileKind;

struct KindRow {
  FileKind kind;
  const wchar_t *extension, *description;
  const wchar_t* word;  // for SAVEAS
};

// The usual one first.
constexpr KindRow kKinds[] = {{FileKind::kDwg, L".dwg", L"DWG 図面", L""},
                              {FileKind::kDxf, L".dxf", L"DXF 図面", L"_DXF"},
                              {FileKind::kDwt, L".dwt", L"図面テンプレート", L"_T"}};

void addRow(std::wstring& filter, const std::wstring& description, const std::wstring& patterns) {
  (filter += description + L" (" + patterns + L")") += L'\0';
  (filter += patterns) += L'\0';
}

void addRow(std::wstring& filter, const KindRow& row) {
  addRow(filter, row.description, std::wstring(L"*") + row.extension);
}

std::wstring withAllFiles(std::wstring filter) {
  (filter += L"すべてのファイル (*.*)") += L'\0';
  (filter += L"*.*") += L'\0';
  return filter += L'\0';
}

const KindRow* kindOf(const std::filesystem::path& file) {
  const std::wstring extension = base::pathText(file.extension());
  const auto* const row = std::ranges::find_if(
      kKinds, [&](const KindRow& each) { return base::equalFolded(extension, each.extension); });
  return row == std::end(kKinds) ? nullptr : row;
}

const KindRow& ownKind(const cad::Drawing& drawing) {
  return *std::ranges::find_if(kKinds,
                               [&](const KindRow& row) { return cad::formats::canSave(drawing, row.kind); });
}

}  // namespace

std::wstring openFilter() {
  std::wstring filter, all;
  for (const KindRow& row : kKinds) all += (all.empty() ? L"*" : L";*") + std::wstring(row.extension);
  addRow(filter, L"図面", all);
  for (const KindRow& row : kKinds) addRow(filter, row);
  return withAllFiles(filter);
}

std::wstring saveFilter(const cad::Drawing& drawing) {
  std::wstring filter;
  for (const KindRow& row : kKinds)
    if (cad::formats::canSave(drawing, row.kind)) addRow(filter, row);
  return withAllFiles(filter);
}

std::filesystem::path proposedFile(std::filesystem::path file, const cad::Drawing& drawing) {
  const KindRow* const named = kindOf(file);
  if (named != nullptr && cad::formats::canSave(drawing, named->kind)) return file;
  return file.replace_extension(ownKind(drawing).extension);
}

std::wstring saveLine(const std::wstring& path, const cad::Drawing& drawing) {
  const KindRow* const named = kindOf(base::pathFromText(path));
  const KindRow& row = named != nullptr ? *named : ownKind(drawing);
  return std::wstring(L"_.SAVEAS\n") + row.word + L"\n" + path + L"\nY";
}

}  // namespace cadhost
