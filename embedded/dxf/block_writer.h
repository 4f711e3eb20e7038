#pragma once
// Gives a block its content: a new block behind the others, or one that exists, emptied first.

#include <optional>
#include <string>
#include <string_view>

#include "embedded/dxf/record_builder.h"
#include "embedded/dxf/record_tools.h"

namespace cad::dxf {

class BlockWriter {
 public:
  BlockWriter(Drawing& drawing, DxfStorage& storage) : drawing_(drawing), storage_(storage) {}

  // Refused: a layout space, an external reference. What was done before a failure is for the caller's
  // change scope to take back.
  base::Status open(std::wstring_view name, const BlockHead& head);
  // Goes on behind what a block has. Refused: a block without end.
  base::Status resume(RecordId block);
  // Groups 0, 5, 330 and the first subclass of an entity of the block.
  RecordBuilder begin(std::string_view type, std::optional<Handle> handle) const;
  RecordBuilder beginSub(std::string_view type, std::optional<Handle> handle,
                         std::optional<Handle> main) const;
  std::optional<Handle> takeHandle() { return storage_.takeHandle(drawing_); }
  RecordId addEntity(RecordBuilder& builder, SignatureId signature = 0);
  RecordId addSub(RecordId main, RecordBuilder& builder);
  base::Result<RecordId> close();  // the block

 private:
  base::Status openNew(std::wstring_view name, const BlockHead& head);
  base::Status empty(const BlockHead& head);
  void setReal(int code, double value);
  void setInteger(int code, std::int64_t value);

  Drawing& drawing_;
  DxfStorage& storage_;
  RecordId block_ = kNoRecord;
  RecordId before_ = kNoRecord;
  std::optional<Handle> owner_;
  bool isNew_ = false;
};

}  // namespace cad::dxf
