#pragma once
// A tree view of the system.

#include "platform/dialog_window.h"
#include "platform/win32/control.h"

// Needs what windows.h declares.
#include <commctrl.h>

namespace kiv::win32 {

class SystemTreeView final : public TreeView, public Control {
 public:
  SystemTreeView(HWND handle, int& quietDepth);
  ~SystemTreeView() override;

  TreeItem insert(TreeItem parent, int position, std::wstring_view text, int image,
                  std::uint32_t data) override;
  void remove(TreeItem item) override;
  void clear() override;
  std::wstring text(TreeItem item) const override;
  void setText(TreeItem item, std::wstring_view text) override;
  std::uint32_t data(TreeItem item) const override;
  void setData(TreeItem item, std::uint32_t data) override;
  TreeItem parent(TreeItem item) const override;
  std::vector<TreeItem> children(TreeItem item) const override;
  TreeItem caret() const override;
  void select(TreeItem item) override;
  void expand(TreeItem item) override;
  void collapse(TreeItem item) override;
  bool isExpanded(TreeItem item) const override;
  void setOpenable(TreeItem item, bool openable) override;
  void setRedraw(bool on) override;

 private:
  TreeItem heir(TreeItem item) const;
  TreeItem next(UINT relation, TreeItem item) const;

  HIMAGELIST images_;
};

}  // namespace kiv::win32
