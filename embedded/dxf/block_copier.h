#pragma once
// Model space of one drawing as a block of another, with the blocks and table records that it needs.

#include <map>
#include <set>
#include <string>
#include <string_view>

#include "embedded/dxf/block_writer.h"
#include "embedded/dxf/record_translator.h"
#include "embedded/dxf/symbol_copier.h"

namespace cad::dxf {

class BlockCopier {
 public:
  BlockCopier(Drawing& target, DxfStorage& to, const Drawing& source, const DxfStorage& from);

  // Refused: an entity that the receiving version cannot hold or that depends on objects which are not
  // copied, with its type; a block that would contain itself, or that nests too deeply. What was done before
  // a failure is for the caller's change scope to take back.
  base::Result<RecordId> copyModelSpace(std::wstring_view name);

 private:
  base::Status need(RecordId entity);
  base::Status needNames(RecordId record);
  base::Status needDimVariables(RecordId record);
  base::Status needStyle(std::wstring_view name);
  base::Status needBlock(std::wstring_view name);
  base::Status checkType(RecordId record) const;
  base::Result<RecordId> copyBlock(RecordId block, std::wstring_view name, const BlockHead& head);
  base::Status copyEntity(BlockWriter& writer, RecordId entity);
  void copyDimVariables(RecordId from, RecordId to);
  std::wstring freeName(std::wstring_view anonymous);
  bool contains(RecordId block, std::wstring_view name) const;
  void mapHandle(RecordId record);
  std::optional<Handle> newHandle(RecordId record);
  std::vector<RecordId> liveEntities(RecordId block) const;

  Drawing& target_;
  DxfStorage& to_;
  const Drawing& source_;
  const DxfStorage& from_;
  SymbolCopier symbols_;
  Replacements replacements_;
  RecordTranslator translator_;
  std::wstring name_;  // folded, of the block being defined
  std::set<RecordId> open_;
  std::map<std::wstring, int> freeNumbers_;
};

}  // namespace cad::dxf
