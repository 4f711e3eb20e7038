#include "platform/headless/tree.h"

#include <algorithm>

namespace kiv::headless {

MemoryTree::Item* MemoryTree::find(TreeItem item) {
  const auto found = items_.find(item);
  return found == items_.end() ? nullptr : &found->second;
}

const MemoryTree::Item* MemoryTree::find(TreeItem item) const {
  const auto found = items_.find(item);
  return found == items_.end() ? nullptr : &found->second;
}

std::vector<TreeItem>& MemoryTree::siblings(const Item& item) {
  Item* parent = find(item.parent);
  return parent ? parent->children : top_;
}

TreeItem MemoryTree::insert(TreeItem parent, int position, std::wstring_view text, int, std::uint32_t data) {
  if (parent != 0 && !has(parent)) return 0;
  const TreeItem made = ++lastItem_;
  Item& item = items_[made];
  item.parent = parent;
  item.text = text;
  item.data = data;
  auto& among = siblings(item);
  const auto count = static_cast<std::ptrdiff_t>(among.size());
  const std::ptrdiff_t place = position < 0 || position > count ? count : position;
  among.insert(among.begin() + place, made);
  return made;
}

// What gets the selection when the item goes: the next one of its parent, else the one before, else the
// parent.
TreeItem MemoryTree::heir(TreeItem item) {
  const Item& going = items_.at(item);
  const auto& among = siblings(going);
  const auto place = std::find(among.begin(), among.end(), item);
  if (place + 1 != among.end()) return *(place + 1);
  return place != among.begin() ? *(place - 1) : going.parent;
}

bool MemoryTree::isUnder(TreeItem item, TreeItem ancestor) const {
  for (; item != 0; item = parent(item)) {
    if (item == ancestor) return true;
  }
  return false;
}

void MemoryTree::forget(TreeItem item) {
  for (const TreeItem child : children(item)) forget(child);
  items_.erase(item);
}

void MemoryTree::remove(TreeItem item) {
  if (!has(item)) return;
  if (isUnder(caret_, item)) caret_ = heir(item);
  auto& among = siblings(items_.at(item));
  among.erase(std::find(among.begin(), among.end(), item));
  forget(item);
}

void MemoryTree::clear() {
  items_.clear();
  top_.clear();
  caret_ = 0;
}

std::wstring MemoryTree::text(TreeItem item) const {
  const Item* found = find(item);
  return found ? found->text : std::wstring();
}

void MemoryTree::setText(TreeItem item, std::wstring_view text) {
  if (Item* found = find(item)) found->text = text;
}

std::uint32_t MemoryTree::data(TreeItem item) const {
  const Item* found = find(item);
  return found ? found->data : 0;
}

void MemoryTree::setData(TreeItem item, std::uint32_t data) {
  if (Item* found = find(item)) found->data = data;
}

TreeItem MemoryTree::parent(TreeItem item) const {
  const Item* found = find(item);
  return found ? found->parent : 0;
}

std::vector<TreeItem> MemoryTree::children(TreeItem item) const {
  if (item == 0) return top_;
  const Item* found = find(item);
  return found ? found->children : std::vector<TreeItem>();
}

void MemoryTree::select(TreeItem item) {
  if (item != 0 && !has(item)) return;
  caret_ = item;
  for (TreeItem above = parent(item); above != 0; above = parent(above)) expand(above);
}

void MemoryTree::expand(TreeItem item) {
  // Nothing opens that has nothing under it.
  if (Item* found = find(item); found && !found->children.empty()) found->expanded = true;
}

void MemoryTree::collapse(TreeItem item) {
  Item* found = find(item);
  if (!found) return;
  found->expanded = false;
  if (isUnder(caret_, item)) caret_ = item;
}

void MemoryTree::setOpenable(TreeItem item, bool openable) {
  if (Item* found = find(item)) found->openable = openable;
}

bool MemoryTree::canOpen(TreeItem item) const {
  const Item* found = find(item);
  return found && !found->expanded && (found->openable || !found->children.empty());
}

bool MemoryTree::isExpanded(TreeItem item) const {
  const Item* found = find(item);
  return found && found->expanded;
}

void MemoryTree::addRows(const std::vector<TreeItem>& items, std::vector<TreeItem>& rows) const {
  for (const TreeItem item : items) {
    rows.push_back(item);
    if (isExpanded(item)) addRows(children(item), rows);
  }
}

TreeItem MemoryTree::neighbourRow(TreeItem item, int direction) const {
  std::vector<TreeItem> rows;
  addRows(top_, rows);
  const auto place = std::find(rows.begin(), rows.end(), item);
  if (place == rows.end()) return direction > 0 && !rows.empty() ? rows.front() : 0;
  if (direction < 0) return place == rows.begin() ? 0 : *(place - 1);
  return place + 1 == rows.end() ? 0 : *(place + 1);
}

}  // namespace kiv::headless
