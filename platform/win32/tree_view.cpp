#include "platform/win32/tree_view.h"

#include "platform/win32/tree_images.h"

namespace kiv::win32 {
namespace {

HTREEITEM handleOf(TreeItem item) { return reinterpret_cast<HTREEITEM>(item); }

TVITEMW itemFor(TreeItem item, UINT mask) {
  TVITEMW description{};
  description.mask = TVIF_HANDLE | mask;
  description.hItem = handleOf(item);
  return description;
}

}  // namespace

SystemTreeView::SystemTreeView(HWND handle, int& quietDepth)
    : Control(handle, quietDepth), images_(makeTreeImages()) {
  send(TVM_SETIMAGELIST, TVSIL_NORMAL, reinterpret_cast<LPARAM>(images_));
}

// The control has gone, or is hidden for good.
SystemTreeView::~SystemTreeView() { ImageList_Destroy(images_); }

TreeItem SystemTreeView::next(UINT relation, TreeItem item) const {
  return static_cast<TreeItem>(send(TVM_GETNEXTITEM, relation, static_cast<LPARAM>(item)));
}

TreeItem SystemTreeView::insert(TreeItem parent, int position, std::wstring_view text, int image,
                                std::uint32_t data) {
  const auto silence = quiet();
  const std::vector<TreeItem> siblings = position < 0 ? std::vector<TreeItem>() : children(parent);
  TVINSERTSTRUCTW insertion{};
  insertion.hParent = parent ? handleOf(parent) : TVI_ROOT;
  if (position == 0) {
    insertion.hInsertAfter = TVI_FIRST;
  } else if (position < 0 || static_cast<std::size_t>(position) >= siblings.size()) {
    insertion.hInsertAfter = TVI_LAST;
  } else {
    insertion.hInsertAfter = handleOf(siblings[static_cast<std::size_t>(position) - 1]);
  }
  std::wstring caption(text);
  insertion.item.mask = TVIF_TEXT | TVIF_IMAGE | TVIF_SELECTEDIMAGE | TVIF_PARAM;
  insertion.item.pszText = caption.data();
  insertion.item.iImage = insertion.item.iSelectedImage = image;
  insertion.item.lParam = static_cast<LPARAM>(data);
  return static_cast<TreeItem>(send(TVM_INSERTITEMW, 0, &insertion));
}

// What the systems choose when the selected row goes differs among them.
TreeItem SystemTreeView::heir(TreeItem item) const {
  for (const UINT relation : {TVGN_NEXT, TVGN_PREVIOUS, TVGN_PARENT})
    if (const TreeItem found = next(relation, item)) return found;
  return 0;
}

void SystemTreeView::remove(TreeItem item) {
  if (!item) return;
  const auto silence = quiet();
  for (TreeItem above = caret(); above; above = parent(above)) {
    if (above != item) continue;
    send(TVM_SELECTITEM, TVGN_CARET, static_cast<LPARAM>(heir(item)));
    break;
  }
  send(TVM_DELETEITEM, 0, static_cast<LPARAM>(item));
}

void SystemTreeView::clear() {
  const auto silence = quiet();
  send(TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(TVI_ROOT));
}

std::wstring SystemTreeView::text(TreeItem item) const {
  std::wstring text(512, L'\0');
  for (;;) {
    TVITEMW description = itemFor(item, TVIF_TEXT);
    description.pszText = text.data();
    description.cchTextMax = static_cast<int>(text.size());
    if (!item || !send(TVM_GETITEMW, 0, &description)) return {};
    const std::size_t length = text.find(L'\0');
    if (length + 1 < text.size()) {
      text.resize(length);
      return text;
    }
    text.assign(text.size() * 2, L'\0');
  }
}

void SystemTreeView::setText(TreeItem item, std::wstring_view text) {
  const auto silence = quiet();
  std::wstring caption(text);
  TVITEMW description = itemFor(item, TVIF_TEXT);
  description.pszText = caption.data();
  if (item) send(TVM_SETITEMW, 0, &description);
}

std::uint32_t SystemTreeView::data(TreeItem item) const {
  TVITEMW description = itemFor(item, TVIF_PARAM);
  if (!item || !send(TVM_GETITEMW, 0, &description)) return 0;
  return static_cast<std::uint32_t>(description.lParam);
}

void SystemTreeView::setData(TreeItem item, std::uint32_t data) {
  TVITEMW description = itemFor(item, TVIF_PARAM);
  description.lParam = static_cast<LPARAM>(data);
  if (item) send(TVM_SETITEMW, 0, &description);
}

TreeItem SystemTreeView::parent(TreeItem item) const { return item ? next(TVGN_PARENT, item) : 0; }

std::vector<TreeItem> SystemTreeView::children(TreeItem item) const {
  std::vector<TreeItem> all;
  TreeItem child = item ? next(TVGN_CHILD, item) : next(TVGN_ROOT, 0);
  for (; child; child = next(TVGN_NEXT, child)) all.push_back(child);
  return all;
}

TreeItem SystemTreeView::caret() const { return next(TVGN_CARET, 0); }

void SystemTreeView::select(TreeItem item) {
  const auto silence = quiet();
  send(TVM_SELECTITEM, TVGN_CARET, static_cast<LPARAM>(item));
  if (item) send(TVM_ENSUREVISIBLE, 0, static_cast<LPARAM>(item));
}

void SystemTreeView::expand(TreeItem item) {
  const auto silence = quiet();
  if (item) send(TVM_EXPAND, TVE_EXPAND, static_cast<LPARAM>(item));
}

void SystemTreeView::collapse(TreeItem item) {
  const auto silence = quiet();
  if (item) send(TVM_EXPAND, TVE_COLLAPSE, static_cast<LPARAM>(item));
}

bool SystemTreeView::isExpanded(TreeItem item) const {
  TVITEMW description = itemFor(item, TVIF_STATE);
  description.stateMask = TVIS_EXPANDED;
  return item && send(TVM_GETITEMW, 0, &description) && (description.state & TVIS_EXPANDED);
}

void SystemTreeView::setOpenable(TreeItem item, bool openable) {
  const auto silence = quiet();
  TVITEMW description = itemFor(item, TVIF_CHILDREN);
  description.cChildren = openable ? 1 : 0;
  if (item && children(item).empty()) send(TVM_SETITEMW, 0, &description);
}

void SystemTreeView::setRedraw(bool on) {
  send(WM_SETREDRAW, on);
  if (on) InvalidateRect(handle(), nullptr, TRUE);
}

}  // namespace kiv::win32
