#pragma once
// The attributes of a block reference that the host makes.

#include <span>
#include <string>

#include "embedded/drawing/drawing.h"
#include "embedded/dxf/dxf_storage.h"

namespace cad::dxf {

struct NewReference {
  RecordId record, before;  // its attributes follow it, in front of the record `before`
  std::wstring layer;
  Point at;
  double scale, rotation;  // degrees
};

// Adds an attribute for each of the block's varying definitions, moved with the reference, and the end of the
// sequence. A definition without a value keeps its default.
void addAttributes(Drawing& drawing, DxfStorage& storage, const NewReference& reference,
                   std::span<const std::wstring> values);

}  // namespace cad::dxf
