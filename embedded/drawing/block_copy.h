#pragma once
// Model space of one drawing as a block of another, with the blocks and table records that it needs.

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "embedded/drawing/drawing.h"

namespace cad {

// Table records that copied entities name: made in the receiving drawing when it does not have them.
class SymbolCopier {
 public:
  SymbolCopier(Drawing& target, const Drawing& source) : target_(target), source_(source) {}

  // A record of the name stays as it is; a new one has the source's values as far as the receiving version
  // can hold them.
  base::Status need(Table table, std::wstring_view name);
  // What the copied properties of a record name.
  base::Status needNamed(RecordId from);
  // The copied properties of a record. What the receiving drawing cannot hold is left at its default.
  void copyValues(RecordId from, RecordId to);

 private:
  void copyValue(RecordId from, RecordId to, Property property);
  void copyDashes(RecordId from, RecordId to);
  bool copySymbol(DashSymbol& symbol);  // its style becomes the receiving drawing's; false: it has none

  Drawing& target_;
  const Drawing& source_;
};

// What is copied in which order, and under which name; how an entity is copied is for those who derive.
class BlockCopy {
 public:
  BlockCopy(Drawing& target, const Drawing& source);
  virtual ~BlockCopy() = default;
  BlockCopy(const BlockCopy&) = delete;
  BlockCopy& operator=(const BlockCopy&) = delete;

  // Refused: an entity that the receiving drawing cannot hold or that depends on objects which are not
  // copied, with its type; a block that would contain itself, or that nests too deeply. What was done before
  // a failure is for the caller's change scope to take back.
  base::Result<RecordId> copyModelSpace(std::wstring_view name);

 protected:
  // What an entity of the source names is made here before its block is begun.
  virtual base::Status need(RecordId entity) = 0;
  virtual base::Result<RecordId> copyEntities(const std::vector<RecordId>& entities, std::wstring_view name,
                                              const BlockHead& head) = 0;

  base::Status needStyle(std::wstring_view name);
  base::Status needDimVariables(RecordId record);
  base::Status needBlock(std::wstring_view name);
  void copyDimVariables(RecordId from, RecordId to);

  Drawing& target_;
  const Drawing& source_;
  SymbolCopier symbols_;
  std::unordered_map<std::wstring, std::wstring> blockNames_;  // folded source name, name here

 private:
  base::Result<RecordId> copyBlock(RecordId block, std::wstring_view name);
  std::wstring freeName(std::wstring_view anonymous);
  bool contains(RecordId block, std::wstring_view name) const;

  std::wstring name_;  // folded, of the block being defined
  std::set<RecordId> open_;
  std::map<std::wstring, int> freeNumbers_;
};

// Between drawings of different formats: the geometry and the properties that both know. An entity of which
// more is drawn than geometry.h tells is refused.
class TypedBlockCopy final : public BlockCopy {
 public:
  using BlockCopy::BlockCopy;

 protected:
  base::Status need(RecordId entity) override;
  base::Result<RecordId> copyEntities(const std::vector<RecordId>& entities, std::wstring_view name,
                                      const BlockHead& head) override;

 private:
  base::Status copyEntity(RecordId block, RecordId entity);
};

base::Failure refusedType(std::string_view type, const wchar_t* reason);

}  // namespace cad
