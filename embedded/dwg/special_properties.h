#pragma once
// Properties that are not one field with one value of the same kind.

#include "embedded/dwg/dwg_storage.h"

namespace cad::dwg {

// Nothing for a property that the record does not have, or that stands in what cannot be read.
StoredValue readSpecial(const DwgStorage& storage, const Record& record, std::string_view type,
                        Property property);

// Of a record that is described no further: the first text of it.
StoredValue readPlainName(const DwgStorage& storage, const Record& record);

// Adds what sets the property. What it needs elsewhere in the drawing is made.
base::Status changeSpecial(Drawing& drawing, const DwgStorage& storage, const Record& record,
                           Property property, const StoredValue& value, FieldChanges& changes);

Color colorOf(std::int64_t number);  // a colour that is nothing but its number

// The bits of Property::kStandardFlags, of a record by its fields.
std::int64_t standardFlags(const Fields& fields, std::string_view type);
// Refused: a bit that has no field.
base::Status changeStandardFlags(const Fields& fields, std::string_view type, std::int64_t flags,
                                 FieldChanges& changes);

}  // namespace cad::dwg
