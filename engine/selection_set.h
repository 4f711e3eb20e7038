#pragma once
// The drawing's entities that a filter selects, released with their owner.

#include "acedads.h"
#include "dbid.h"
#include "engine/buffer_chain.h"

namespace kiv {

class SelectionSet {
 public:
  // The whole drawing, newest entity first; an empty filter selects everything. A selection that fails is an
  // empty one.
  explicit SelectionSet(const BufferChain& filter);
  SelectionSet(const SelectionSet&) = delete;
  SelectionSet& operator=(const SelectionSet&) = delete;
  ~SelectionSet();

  // True: no selection was made by this filter, so that nothing is said about the drawing.
  bool isRefused() const { return isRefused_; }
  int size() const { return size_; }
  AcDbObjectId at(int index) const;  // null when the host does not give the entity's name

 private:
  ads_name set_ = {0, 0};
  int size_ = 0;
  bool open_ = false;
  bool isRefused_ = false;
};

}  // namespace kiv
