#pragma once
// What a run asks of its host by plain calls: chains of result buffers, selections by them, and
// the records of symbol tables by name and by id.

#include <string>
#include <unordered_map>

#include "acedads.h"
#include "acutads.h"
#include "adsdef.h"
#include "dbmain.h"

namespace kiv {

// A chain of result buffers built piece by piece and released with its owner.
class BufferChain {
 public:
  BufferChain() = default;
  BufferChain(const BufferChain&) = delete;
  BufferChain& operator=(const BufferChain&) = delete;
  ~BufferChain() {
    if (head_ != nullptr) acutRelRb(head_);
  }

  // Types as acutBuildList takes them: group 0, an entity's type, is written RTDXF0.
  BufferChain& text(int type, const std::wstring& value);
  BufferChain& integer(int type, int value);  // 16 bits, as groups 60 to 79 and RTSHORT are

  const resbuf* get() const { return head_; }  // null when nothing was added
  // False: the host refused a piece, so the chain says something else than was meant.
  bool isWhole() const { return isWhole_; }

 private:
  BufferChain& append(resbuf* piece);

  resbuf* head_ = nullptr;
  resbuf* tail_ = nullptr;
  bool isWhole_ = true;
};

// The drawing's entities that a filter selects, released with their owner.
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

// --- Records of symbol tables

// Null when the table has no record of that name.
AcDbObjectId findInTable(AcDbObjectId table, const std::wstring& name);

// Empty for a null id and for a record that does not open.
std::wstring recordName(AcDbObjectId id);

// Names of records by id, each read from the drawing once.
class SymbolNames {
 public:
  struct Names {
    std::wstring name;
    std::wstring folded;  // upper-cased
  };
  // Empty names where recordName() is empty. The reference stays valid.
  const Names& of(AcDbObjectId id);

 private:
  std::unordered_map<Adesk::Int64, Names> names_;
};

}  // namespace kiv
