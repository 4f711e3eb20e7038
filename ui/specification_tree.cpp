#include "ui/specification_tree.h"

#include <algorithm>
#include <vector>

#include "ui/tree_nodes.h"

namespace kiv {
namespace {

// A row that is taken away and made anew elsewhere would flicker.
class RedrawOff {
 public:
  explicit RedrawOff(TreeView& view) : view_(view) { view_.setRedraw(false); }
  ~RedrawOff() { view_.setRedraw(true); }
  RedrawOff(const RedrawOff&) = delete;
  RedrawOff& operator=(const RedrawOff&) = delete;

 private:
  TreeView& view_;
};

Node parentOf(const Node& node) {
  if (node.role != Role::kNone) return Node::of(node.section, node.index);
  return node.index >= 0 ? Node::ofSection(node.section) : Node{};
}

bool isRoot(const Node& node) { return node == Node{}; }

int indexIn(const std::vector<TreeItem>& items, TreeItem item) {
  const auto found = std::find(items.begin(), items.end(), item);
  return found == items.end() ? -1 : static_cast<int>(found - items.begin());
}

}  // namespace

void SpecificationTree::rebuild() {
  const RedrawOff off(view_);
  view_.clear();
  insert(0, -1, Node{});
}

Node SpecificationTree::selected() const {
  const TreeItem caret = view_.caret();
  return caret ? nodeOf(caret) : Node{kNoSection};
}

void SpecificationTree::select(const Node& node) {
  if (const TreeItem item = itemOf(node)) view_.select(item);
}

void SpecificationTree::toggle(const Node& node) {
  const TreeItem item = itemOf(node);
  view_.isExpanded(item) ? view_.collapse(item) : view_.expand(item);
}

void SpecificationTree::added(const Node& node) {
  const TreeItem parent = itemOf(parentOf(node));
  insert(parent, positionOf(node), node);
  view_.expand(parent);
}

void SpecificationTree::removed(const Node& node) {
  const std::vector<TreeItem> rows = view_.children(itemOf(parentOf(node)));
  const auto position = static_cast<size_t>(positionOf(node));
  if (position < rows.size()) view_.remove(rows[position]);
}

void SpecificationTree::changed(const Node& node) {
  const TreeItem item = itemOf(node);
  if (!item) return;
  view_.setText(item, nodeText(specification_, node));
  view_.setData(item, tagOf(specification_, node).value());
}

void SpecificationTree::cleared(const Node& parent) {
  const TreeItem item = itemOf(parent);
  if (!item) return;
  const RedrawOff off(view_);
  const bool open = view_.isExpanded(item);
  for (const TreeItem child : view_.children(item)) view_.remove(child);
  for (const Node& child : specification_.children(parent)) insert(item, -1, child);
  if (open && specification_.childCount(parent) > 0) view_.expand(item);
}

void SpecificationTree::moved(const Node& from, const Node& to) {
  const std::vector<TreeItem> rows = view_.children(itemOf(parentOf(from)));
  const auto position = static_cast<size_t>(positionOf(from));
  if (position >= rows.size()) return;
  const RedrawOff off(view_);
  // The copy is made while the original still stands: its row is one further when the node goes down.
  const int row = positionOf(to) + (positionOf(to) > positionOf(from) ? 1 : 0);
  const TreeItem copy = insert(itemOf(parentOf(to)), row, to);
  view_.remove(rows[position]);
  view_.expand(copy);
  view_.select(copy);
}

TreeItem SpecificationTree::itemOf(const Node& node) const {
  const std::vector<TreeItem> top = view_.children(0);
  if (node.section < 0 || top.empty()) return 0;
  if (isRoot(node)) return top.front();
  const TreeItem parent = itemOf(parentOf(node));
  if (!parent) return 0;
  const std::vector<TreeItem> rows = view_.children(parent);
  const auto position = static_cast<size_t>(positionOf(node));
  return position < rows.size() ? rows[position] : 0;
}

Node SpecificationTree::nodeOf(TreeItem item) const {
  const ItemTag tag(view_.data(item));
  if (tag.section() == 0) return Node{};
  if (tag.level() == Level::kSection) return Node::ofSection(tag.section());
  const TreeItem parent = view_.parent(item);
  const std::vector<TreeItem> rows = view_.children(parent);
  const int position = indexIn(rows, item);
  if (tag.level() == Level::kSetting) return Node::of(tag.section(), position);
  const auto sameRole = [&](TreeItem row) { return ItemTag(view_.data(row)).role() == tag.role(); };
  const auto before = std::count_if(rows.begin(), rows.begin() + position, sameRole);
  return Node::ofItem(tag.section(), nodeOf(parent).index, tag.role(), static_cast<int>(before));
}

int SpecificationTree::positionOf(const Node& node) const {
  if (node.role == Role::kNone) return node.index >= 0 ? node.index : node.section - 1;
  const int conditions = specification_.childCount(Node::of(node.section, node.index), Role::kCondition);
  return node.role == Role::kCondition ? node.item : conditions + node.item;
}

TreeItem SpecificationTree::insert(TreeItem parent, int position, const Node& node) {
  const TreeItem item = view_.insert(parent, position, nodeText(specification_, node), nodeImage(node),
                                     tagOf(specification_, node).value());
  for (const Node& child : specification_.children(node)) insert(item, -1, child);
  if (opensWithItsContent(node)) view_.expand(item);
  return item;
}

// A setting without results is unfinished; it stays closed as the end of its results is what opens it.
bool SpecificationTree::opensWithItsContent(const Node& node) const {
  if (node.index < 0) return !isRuleSection(node.section) && specification_.childCount(node) > 0;
  return specification_.childCount(node, Role::kResult) > 0;
}

}  // namespace kiv
