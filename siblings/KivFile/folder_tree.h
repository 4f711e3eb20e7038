#pragma once
// The folders of the system in a tree view. What is under one is read when it is opened, and comes in later.

#include <map>
#include <string>

#include "platform/dialog_window.h"
#include "siblings/KivFile/folder_reading.h"

namespace kiv {

class FolderTree {
 public:
  // With the drives, or the root. The view must outlive this.
  explicit FolderTree(TreeView& tree);
  ~FolderTree();
  FolderTree(const FolderTree&) = delete;
  FolderTree& operator=(const FolderTree&) = delete;

  // The folder's path; empty for 0.
  std::wstring folderOf(TreeItem item) const;
  // Selects the folder, which need not exist, and opens what it is under.
  void show(const std::wstring& folder);
  // What the person opens is read, unless it has been.
  void open(TreeItem item);
  // The selected folder's own folders are read again.
  void renew();
  // Takes in what has been read.
  void takeNews();

 private:
  TreeItem childNamed(TreeItem parent, std::wstring_view name) const;
  TreeItem insert(TreeItem parent, int position, std::wstring_view name);
  void read(TreeItem item, bool opens);
  void takeIn(TreeItem item, const SubfolderReading::Outcome& outcome);
  bool isAboveSelected(TreeItem item) const;

  struct Reading {
    explicit Reading(const std::wstring& folder) : subfolders(folder) {}
    SubfolderReading subfolders;
    bool opens = false;  // the item opens when they are there
  };

  TreeView& tree_;
  std::map<TreeItem, Reading> readings_;
};

}  // namespace kiv
