#pragma once
// Blocks copied from one DXF file into another, group by group.

#include <string>
#include <string_view>
#include <vector>

#include "embedded/drawing/block_copy.h"
#include "embedded/dxf/block_writer.h"
#include "embedded/dxf/record_translator.h"

namespace cad::dxf {

class BlockCopier final : public BlockCopy {
 public:
  BlockCopier(Drawing& target, DxfStorage& to, const Drawing& source, const DxfStorage& from);

 protected:
  base::Status need(RecordId entity) override;
  base::Result<RecordId> copyEntities(const std::vector<RecordId>& entities, std::wstring_view name,
                                      const BlockHead& head) override;

 private:
  base::Status needNames(RecordId record);
  base::Status checkType(RecordId record) const;
  base::Status copyEntity(BlockWriter& writer, RecordId entity);
  void mapHandle(RecordId record);
  std::optional<Handle> newHandle(RecordId record);

  DxfStorage& to_;
  const DxfStorage& from_;
  Replacements replacements_{{}, blockNames_};
  RecordTranslator translator_;
};

}  // namespace cad::dxf
