#pragma once
// What differs between two drawings, record by record and value by value. Neither drawing is changed.

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "embedded/drawing/drawing.h"

namespace cad {

// A value that differs, as a person reads it: colours "ByLayer", "1", "#ff8000", lineweights "0.25 mm",
// transparencies "30 %", numbers with as many digits as they have, names and texts as they are.
struct ValueChange {
  // A property's name in its table, a dimension variable's ("DIMTXT", of overrides and styles), or
  // - "true colour"
  // - "geometry": where it is and what form it has, as far as no property tells; the parts that differ
  // - "picture": of a dimension, what its block shows; without texts
  // - "pattern": of a linetype
  // - "stands in": the block or space, by name
  // - "other data": what the record holds besides; told for two drawings of one format
  std::string name;
  Property property = Property::kCount;  // kCount: one of the above that are none
  std::wstring before, after;            // empty: the record has none; a property's default is told as such
};

enum class RecordFate : std::uint8_t { kChanged, kAdded, kRemoved };

struct RecordDifference {
  RecordFate fate = RecordFate::kChanged;
  RecordId before = kNoRecord, after = kNoRecord;  // in the first drawing, in the second; kNoRecord: none
  std::wstring handle;                             // upper-case hexadecimal; empty: it has none
  std::string type;                                // "TEXT", "LAYER"
  std::wstring name;                               // of a table's record; of an attribute its tag
  std::wstring layer;                              // of an entity, in the first drawing that has it
  std::wstring block;                              // of an entity, the block or space that it stands in
  std::vector<ValueChange> changes;  // in the order of the properties; none for added and removed
};

struct DrawingDifferences {
  // Entities of the spaces and of block definitions, a main entity before its attributes and vertices
  // (Record::owner), in the order of the first drawing; added ones behind. What dimensions show is told of
  // the dimension.
  std::vector<RecordDifference> entities;
  std::vector<RecordDifference> records;  // of tables, and the beginnings of blocks
  // Neither drawn nor in a table, and what the file holds besides, as its classes; for two drawings of one
  // format.
  std::vector<RecordDifference> objects;
  std::vector<ValueChange> variables;  // of the header, without the dollar sign; counters and dates of
                                       // saving do not count
  // Some entity has no handle: entities were paired by their order within their block, where it can tell less
  // surely which one became which.
  bool pairedByOrder = false;

  bool empty() const { return entities.empty() && records.empty() && objects.empty() && variables.empty(); }
};

// Entities are paired by handle and type, those of blocks with the same content by their order, records of
// tables by name and then by handle.
DrawingDifferences compareDrawings(const Drawing& before, const Drawing& after);

}  // namespace cad
