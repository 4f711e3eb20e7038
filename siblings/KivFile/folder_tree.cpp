#include "siblings/KivFile/folder_tree.h"

#include <algorithm>

#include "base/files.h"
#include "base/fold.h"
#include "base/paths.h"

namespace kiv {
namespace {

constexpr int kFolderImage = 15;
// An item's data.
constexpr std::uint32_t kUnread = 0, kRead = 1;

bool isSameName(std::wstring_view one, std::wstring_view other) {
  return base::kNamesHeedCase ? one == other : base::equalFolded(one, other);
}

}  // namespace

FolderTree::FolderTree(TreeView& tree) : tree_(tree) {
  for (const std::wstring& root : base::rootFolders()) insert(0, -1, root);
}

FolderTree::~FolderTree() {
  for (auto& [item, reading] : readings_) reading.subfolders.stop();
}

TreeItem FolderTree::insert(TreeItem parent, int position, std::wstring_view name) {
  const TreeItem item = tree_.insert(parent, position, name, kFolderImage, kUnread);
  tree_.setOpenable(item, true);  // until it is known better
  return item;
}

TreeItem FolderTree::childNamed(TreeItem parent, std::wstring_view name) const {
  for (const TreeItem child : tree_.children(parent))
    if (isSameName(tree_.text(child), name)) return child;
  return 0;
}

std::wstring FolderTree::folderOf(TreeItem item) const {
  if (item == 0) return {};
  const TreeItem parent = tree_.parent(item);
  return parent ? base::joinPath(folderOf(parent), tree_.text(item)) : tree_.text(item);
}

void FolderTree::show(const std::wstring& folder) {
  const std::filesystem::path path = base::pathFromText(folder);
  TreeItem item = 0;
  const auto descend = [&](const std::wstring& name) {
    TreeItem child = childNamed(item, name);
    if (!child) {
      const std::vector<TreeItem> siblings = tree_.children(item);
      const auto behind = std::find_if(siblings.begin(), siblings.end(), [&](TreeItem each) {
        return precedesInLists(name, tree_.text(each));
      });
      child = insert(item, item ? static_cast<int>(behind - siblings.begin()) : -1, name);
    }
    if (item) read(item, false);
    item = child;
  };
  if (path.has_root_path()) descend(base::pathText(path.root_path()));
  for (const std::filesystem::path& part : path.relative_path())
    if (!part.empty()) descend(base::pathText(part));
  tree_.select(item);
}

void FolderTree::open(TreeItem item) { read(item, true); }

void FolderTree::renew() {
  const TreeItem item = tree_.caret();
  if (!item) return;
  tree_.setData(item, kUnread);
  read(item, false);
}

void FolderTree::read(TreeItem item, bool opens) {
  if (tree_.data(item) == kRead) return;
  auto found = readings_.find(item);
  if (found == readings_.end()) found = readings_.try_emplace(item, folderOf(item)).first;
  if (opens) found->second.opens = true;
}

void FolderTree::takeNews() {
  for (auto each = readings_.begin(); each != readings_.end();) {
    const auto outcome = each->second.subfolders.outcome();
    if (!outcome) {
      ++each;
      continue;
    }
    const auto [item, opens] = std::pair(each->first, each->second.opens);
    each = readings_.erase(each);
    takeIn(item, *outcome);
    if (opens) tree_.expand(item);
  }
}

void FolderTree::takeIn(TreeItem item, const SubfolderReading::Outcome& outcome) {
  tree_.setRedraw(false);
  // What is shown already stays, with what is open below it.
  for (const TreeItem child : tree_.children(item)) {
    const std::wstring shown = tree_.text(child);
    const auto isThere = [&](const std::wstring& name) { return isSameName(name, shown); };
    if (std::none_of(outcome.names.begin(), outcome.names.end(), isThere) && outcome.isWhole &&
        !isAboveSelected(child)) {
      for (auto reading = readings_.begin(); reading != readings_.end();) {
        bool isBelow = false;
        for (TreeItem above = reading->first; above && !isBelow; above = tree_.parent(above))
          isBelow = above == child;
        reading = isBelow ? readings_.erase(reading) : std::next(reading);
      }
      tree_.remove(child);
    }
  }
  std::vector<std::wstring> shown;
  for (const TreeItem child : tree_.children(item)) shown.push_back(tree_.text(child));
  int position = 0;
  for (const std::wstring& name : outcome.names) {
    const auto at = static_cast<std::size_t>(position);
    if (at < shown.size() && isSameName(shown[at], name)) {
      ++position;
      continue;
    }
    if (childNamed(item, name)) continue;
    insert(item, position++, name);
    shown.insert(shown.begin() + static_cast<std::ptrdiff_t>(at), name);
  }
  tree_.setData(item, outcome.isWhole ? kRead : kUnread);
  tree_.setOpenable(item, !outcome.isWhole);
  tree_.setRedraw(true);
}

bool FolderTree::isAboveSelected(TreeItem item) const {
  for (TreeItem at = tree_.caret(); at; at = tree_.parent(at))
    if (at == item) return true;
  return false;
}

}  // namespace kiv
