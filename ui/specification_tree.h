#pragma once
// The tree in which a specification is shown and its nodes are selected. It keeps nothing of the
// specification: each edit is made there first and then told here.

#include "platform/dialog_window.h"
#include "spec/specification.h"

namespace kiv {

class SpecificationTree {
 public:
  // Both must outlive the object.
  SpecificationTree(TreeView& view, const Specification& specification)
      : view_(view), specification_(specification) {}

  // Everything anew, as after loading: the root, settings with results and sections with entries are open.
  void rebuild();

  // The selected node; no such node (exists() is false) when nothing is selected.
  Node selected() const;
  void select(const Node& node);
  // Shows or hides what is under it.
  void toggle(const Node& node);

  // Each after the edit. An added node becomes visible; the selection stays where it is.
  void added(const Node& node);
  void removed(const Node& node);  // the address that it had
  void changed(const Node& node);
  void cleared(const Node& parent);  // its children may have become fewer
  // The node's row is made anew at its new place, opened and selected.
  void moved(const Node& from, const Node& to);

 private:
  TreeItem itemOf(const Node& node) const;  // 0: none
  Node nodeOf(TreeItem item) const;
  int positionOf(const Node& node) const;                            // among its siblings
  TreeItem insert(TreeItem parent, int position, const Node& node);  // with everything under it
  bool opensWithItsContent(const Node& node) const;

  TreeView& view_;
  const Specification& specification_;
};

// No node at all, where the root is one.
inline constexpr int kNoSection = -1;

}  // namespace kiv
