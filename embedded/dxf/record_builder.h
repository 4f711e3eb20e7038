#pragma once
// Writes the groups of a new record in the form and the encoding of the drawing that receives it.

#include <cstdint>
#include <string>
#include <string_view>

#include "embedded/drawing/geometry.h"
#include "embedded/drawing/record.h"
#include "embedded/dxf/dxf_storage.h"
#include "embedded/dxf/group_cursor.h"
#include "embedded/dxf/group_writer.h"

namespace cad::dxf {

class RecordBuilder {
 public:
  // `target` must outlive the builder.
  explicit RecordBuilder(const DxfStorage& target) : target_(target), writer_(target.dialect()) {}

  bool since(Version version) const { return target_.facts().version >= version; }

  RecordBuilder& text(int code, std::wstring_view value);
  RecordBuilder& stored(int code, std::string_view bytes);  // in the drawing's own encoding
  RecordBuilder& integer(int code, std::int64_t value);
  RecordBuilder& real(int code, double value);
  RecordBuilder& handle(int code, Handle value);
  RecordBuilder& point(int code, const Point& point);     // code, code + 10, code + 20
  RecordBuilder& chunk(int code, std::string_view data);  // binary data, at most 127 bytes
  // Nothing in files of versions that have no subclasses (R12).
  RecordBuilder& subclass(std::string_view name);
  // A group of another drawing, its text transcoded. False when its value is not of its code's type.
  bool copy(const Group& group, const DxfStorage& source);
  RecordBuilder& raw(std::string_view groups);  // groups already in this drawing's form

  const DxfStorage& target() const { return target_; }
  const std::string& bytes() const { return writer_.bytes(); }
  std::string take() { return writer_.take(); }

 private:
  bool copyChunk(const Group& group, const DxfStorage& source);

  const DxfStorage& target_;
  GroupWriter writer_;
};

}  // namespace cad::dxf
