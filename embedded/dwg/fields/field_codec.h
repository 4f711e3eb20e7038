#pragma once
// One field's value from and into bits.

#include "embedded/dwg/bits/bit_reader.h"
#include "embedded/dwg/bits/bit_writer.h"
#include "embedded/dwg/fields/field_visitor.h"

namespace cad::dwg {

Stream streamOf(BitType type, Version version);
// Fails in the reader. Bytes are passed over; their value is the monostate.
Value decodeField(BitReader& reader, const FieldSpec& spec, Version version);
// False: the value is not one of the field's type, or would be read as another.
bool encodeField(BitWriter& writer, const FieldSpec& spec, const Value& value, Version version);

}  // namespace cad::dwg
