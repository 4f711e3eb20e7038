#pragma once
// Writes a block and its entities.

#include <span>
#include <string_view>

#include "embedded/drawing/block_entity.h"
#include "embedded/drawing/drawing.h"
#include "embedded/dwg/dwg_storage.h"

namespace cad::dwg {

class BlockBuilder {
 public:
  BlockBuilder(Drawing& drawing, DwgStorage& storage) : drawing_(drawing), storage_(storage) {}

  // A new block, or one that exists, emptied. Refused: a space, an external reference.
  base::Status open(std::wstring_view name, const BlockHead& head);
  base::Status resume(RecordId block);
  RecordId block() const { return block_; }

  // What every entity here has: its place, and layer 0 with everything else by the layer.
  base::Status addCommon(FieldChanges& values);
  void setPlace(FieldChanges& values) const;
  base::Status setLayer(FieldChanges& values, std::wstring_view name);
  base::Status setLinetype(FieldChanges& values, std::wstring_view name);  // empty: ByLayer
  base::Status setStyle(FieldChanges& values, std::wstring_view name);     // empty: Standard
  // Fails for a type that has no such geometry.
  base::Result<ObjectKind> addGeometry(FieldChanges& values, std::string_view type, const Geometry& geometry);
  base::Result<RecordId> enter(ObjectKind kind, FieldChanges values, SignatureId signature = 0);
  base::Result<RecordId> enter(const NewObject& object, SignatureId signature = 0);

 private:
  base::Status openNew(std::wstring_view name, const BlockHead& head);
  base::Status empty(const BlockHead& head);
  base::Result<Handle> handleOf(Table table, std::wstring_view name);

  Drawing& drawing_;
  DwgStorage& storage_;
  RecordId block_ = kNoRecord;
  Handle entry_ = 0;
  std::wstring lastName_;  // of a layer or style, and its handle: most entities are like the one before
  Table lastTable_ = Table::kNone;
  Handle lastHandle_ = 0;
};

// How an entity lists its parts.
struct PartNames {
  std::string_view first, last;    // until R2000
  std::string_view count, single;  // since R2004
};
inline constexpr PartNames kAttributeNames{"first attribute", "last attribute", "attribute count",
                                           "attribute"};
inline constexpr PartNames kVertexNames{"first vertex", "last vertex", "vertex count", "vertex"};

// `parts`: with the end of their sequence behind them.
void listParts(const DwgStorage& storage, std::span<const Handle> parts, const PartNames& names,
               FieldChanges& values);
// Links one of the parts of an entity, attributes or vertices with the end of their sequence behind them, as
// the entities of a block are linked.
void linkPart(const DwgStorage& storage, std::span<const Handle> parts, std::size_t at, FieldChanges& values);

}  // namespace cad::dwg
