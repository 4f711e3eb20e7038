#include "ui/linetype_loader.h"

#include <utility>

#include "base/fold.h"
#include "ui/linetype_files.h"
#include "ui/resource.h"

namespace kiv {

CSelLine::CSelLine(PickerOwner& owner, PickHandOver& pick, PickerRequest request)
    : CSelBase(IDD_LINETYPE, PickerSlot::kLinetype, owner, pick), content_(std::move(request.present)) {}

void CSelLine::onInit() {
  const int width = columnsWidth(window(), IDC_LINETYPE_LIST);
  window().list(IDC_LINETYPE_LIST).setColumns({{L"線種名", width / 3}, {L"説明", width * 2 / 3}});
  addEntries(window().combo(IDC_LINETYPE_FILE), linetypeFiles());
  if (content_.fields.size() >= 2) {
    showFile(content_.fields[1]);
    selectLinetype(content_.fields[0]);
  }
  CSelBase::onInit();
}

int CSelLine::pickItem() const { return kLinetypeKind; }

void CSelLine::onEdited(int id) {
  if (id == IDC_LINETYPE_FILE) listLinetypes();
}

void CSelLine::onSelected(int id) {
  if (id == IDC_LINETYPE_FILE) listLinetypes();
}

void CSelLine::onDoubleClicked(int id) {
  if (id == IDC_LINETYPE_LIST && window().list(id).selected() >= 0) onCommand(IDOK);
}

void CSelLine::showFile(const std::wstring& path) {
  chooseOrType(window(), IDC_LINETYPE_FILE, path);
  listLinetypes();
}

// The same file again keeps the list and what is selected in it.
void CSelLine::listLinetypes() {
  const std::wstring path = window().text(IDC_LINETYPE_FILE);
  if (path == listed_) return;
  listed_ = path;
  ListView& list = window().list(IDC_LINETYPE_LIST);
  list.clear();
  for (const LinetypeHeader& header : readLinetypeHeaders(path))
    list.addRow({header.name, header.description});
}

bool CSelLine::selectLinetype(const std::wstring& name) {
  ListView& list = window().list(IDC_LINETYPE_LIST);
  for (int row = 0; row < list.rowCount(); ++row) {
    if (!base::equalFolded(list.cell(row, 0), name)) continue;
    list.select(row);
    return true;
  }
  return false;
}

void CSelLine::findLinetype(const std::wstring& name) {
  if (selectLinetype(name)) return;
  for (const std::wstring& path : window().combo(IDC_LINETYPE_FILE).entries()) {
    for (const LinetypeHeader& header : readLinetypeHeaders(path)) {
      if (!base::equalFolded(header.name, name)) continue;
      showFile(path);
      selectLinetype(name);
      return;
    }
  }
}

void CSelLine::confirm() {
  listLinetypes();  // a list that was left without a choice may have put an older path back
  const std::wstring path = window().text(IDC_LINETYPE_FILE);
  if (path.empty()) return window().focus(IDC_LINETYPE_FILE);
  const ListView& list = window().list(IDC_LINETYPE_LIST);
  const int row = list.selected();
  if (row < 0) return window().focus(IDC_LINETYPE_LIST);
  content_.fields = {list.cell(row, 0), path};
  if (owner().take(content_)) close();
}

void CSelLine::pickCompleted() {
  if (!pick().values.empty() && hasWindow()) findLinetype(pick().values.front());
  CSelBase::pickCompleted();
}

}  // namespace kiv
