#include "ui/arrow_loader.h"

#include <utility>

#include "base/files.h"
#include "base/paths.h"
#include "platform/paths.h"
#include "platform/questions.h"
#include "spec/arrow_catalogue.h"
#include "spec/configuration.h"
#include "ui/resource.h"

namespace kiv {
namespace {

constexpr const wchar_t* kBrowseTitle = L"矢印ﾌﾞﾛｯｸ図形のﾌｫﾙﾀﾞを選択してください";
constexpr size_t kDriveAndRoot = 3;

// A name alone is that of an arrow, as far as it is not that of a file.
bool namesNoFile(const std::wstring& arrow, const base::PathParts& parts) {
  return isBuiltInArrow(arrow) ||
         (parts.drive.empty() && parts.folder.empty() && !parts.name.empty() && parts.extension.empty());
}

}  // namespace

std::wstring& lastArrowFolder() {
  static std::wstring folder;
  return folder;
}

CSelArw::CSelArw(PickerOwner& owner, PickHandOver& pick, PickerRequest request)
    : CSelBase(IDD_ARROW, PickerSlot::kArrow, owner, pick), content_(std::move(request.present)) {}

void CSelArw::onInit() {
  window().list(IDC_ARROW_LIST).setColumns({{L"", columnsWidth(window(), IDC_ARROW_LIST)}});
  window().setPicture(IDC_ARROW_BROWSE, IDI_FOLDER);
  showPresent();
  CSelBase::onInit();
}

void CSelArw::showPresent() {
  const std::wstring arrow = content_.fields.empty() ? std::wstring() : content_.fields.front();
  const base::PathParts parts = base::splitPath(arrow);
  if (!arrow.empty() && namesNoFile(arrow, parts)) return window().setText(IDC_ARROW_FOLDER, arrow);
  std::wstring folder = parts.drive + parts.folder;
  if (folder.empty()) folder = lastArrowFolder();
  if (folder.empty()) folder = configurationFolder(findHostFile);
  showFolder(folder);
  selectFile(parts.name + parts.extension);
}

void CSelArw::showFolder(const std::wstring& folder) {
  folder_ = base::ensureTrailingSeparator(folder);
  window().setText(IDC_ARROW_FOLDER, folder_);
  listFiles();
}

void CSelArw::listFiles() {
  listed_ = folder_;
  ListView& list = window().list(IDC_ARROW_LIST);
  list.clear();
  if (folder_.empty()) return;
  for (const std::wstring& name : base::filesWithExtension(folder_, L".DWG")) list.addRow({name});
}

void CSelArw::selectFile(const std::wstring& name) {
  ListView& list = window().list(IDC_ARROW_LIST);
  for (int row = 0; row < list.rowCount(); ++row) {
    if (list.cell(row, 0) == name) return list.select(row);
  }
}

void CSelArw::onCommand(int command) {
  if (command == IDC_ARROW_BROWSE) return browse();
  CSelBase::onCommand(command);
}

void CSelArw::browse() {
  std::wstring start = base::ensureTrailingSeparator(window().text(IDC_ARROW_FOLDER));
  if (start.size() > kDriveAndRoot) start.pop_back();
  const auto chosen = chooseFolder(window().native(), {kBrowseTitle, start});
  if (chosen && hasWindow()) showFolder(*chosen);
}

void CSelArw::onSelected(int id) {
  if (id == IDC_ARROW_LIST && base::fileExists(selectedFile())) window().setText(IDC_ARROW_FOLDER, folder_);
}

void CSelArw::onDoubleClicked(int id) {
  if (id != IDC_ARROW_LIST) return;
  onSelected(id);
  onCommand(IDOK);
}

// Empty where nothing is selected.
std::wstring CSelArw::selectedFile() {
  const ListView& list = window().list(IDC_ARROW_LIST);
  const int row = list.selected();
  return folder_.empty() || row < 0 ? std::wstring() : folder_ + list.cell(row, 0);
}

void CSelArw::confirm() {
  const std::wstring typed = window().text(IDC_ARROW_FOLDER);
  if (isBuiltInArrow(typed)) {
    handOver(typed);
    return;
  }
  folder_ = typed.empty() ? typed : base::ensureTrailingSeparator(base::fullPath(typed));
  const std::wstring file = selectedFile();
  if (file.empty()) return refuse(L"ﾌｧｲﾙを指定してください.");
  if (!base::fileExists(file)) return refuse(L"[" + file + L"]\nﾌｧｲﾙが存在しません.");
  const std::wstring folder = folder_;
  if (handOver(file)) lastArrowFolder() = folder;
}

// A folder that was typed shows its files now, to choose from.
void CSelArw::refuse(const std::wstring& message) {
  window().focus(IDC_ARROW_LIST);
  static_cast<void>(showMessage(window().native(), {message, {}}));
  if (hasWindow() && folder_ != listed_) listFiles();
}

// This object is gone when it is true.
bool CSelArw::handOver(const std::wstring& arrow) {
  content_.fields = {arrow};
  if (!owner().take(content_)) return false;
  close();
  return true;
}

}  // namespace kiv
