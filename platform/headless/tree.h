#pragma once
// A tree view in memory.

#include <memory>
#include <unordered_map>

#include "platform/dialog_window.h"

namespace kiv::headless {

class MemoryTree : public TreeView {
 public:
  TreeItem insert(TreeItem parent, int position, std::wstring_view text, int, std::uint32_t data) override;
  void remove(TreeItem item) override;
  void clear() override;
  std::wstring text(TreeItem item) const override;
  void setText(TreeItem item, std::wstring_view text) override;
  std::uint32_t data(TreeItem item) const override;
  void setData(TreeItem item, std::uint32_t data) override;
  TreeItem parent(TreeItem item) const override;
  std::vector<TreeItem> children(TreeItem item) const override;
  TreeItem caret() const override { return caret_; }
  void select(TreeItem item) override;
  void expand(TreeItem item) override;
  void collapse(TreeItem item) override;
  bool isExpanded(TreeItem item) const override;
  void setOpenable(TreeItem item, bool openable) override;
  void setRedraw(bool) override {}

  bool has(TreeItem item) const { return items_.count(item) != 0; }
  bool canOpen(TreeItem item) const;
  // The row above (-1) or below (1) among those that are not folded away; 0: none.
  TreeItem neighbourRow(TreeItem item, int direction) const;

 private:
  struct Item {
    TreeItem parent = 0;
    std::vector<TreeItem> children;
    std::wstring text;
    std::uint32_t data = 0;
    bool expanded = false;
    bool openable = false;
  };

  Item* find(TreeItem item);
  const Item* find(TreeItem item) const;
  std::vector<TreeItem>& siblings(const Item& item);
  TreeItem heir(TreeItem item);
  bool isUnder(TreeItem item, TreeItem ancestor) const;
  void forget(TreeItem item);
  void addRows(const std::vector<TreeItem>& items, std::vector<TreeItem>& rows) const;

  std::unordered_map<TreeItem, Item> items_;
  std::vector<TreeItem> top_;
  TreeItem lastItem_ = 0;  // a removed item's number is not used again
  TreeItem caret_ = 0;
};

}  // namespace kiv::headless
