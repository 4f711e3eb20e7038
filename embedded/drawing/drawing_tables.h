#pragma once
// The tables of a drawing: records found by name, those included that only the file's entities name.

#include <array>
#include <cstddef>
#include <string_view>
#include <vector>

#include "embedded/drawing/drawing_records.h"
#include "embedded/drawing/table_index.h"

namespace cad {

class DrawingTables : public DrawingRecords {
 public:
  // Ignores case. kNoRecord when absent or erased. Tables hold implied records too: layer "0" and every
  // layer that an entity names, linetypes ByLayer, ByBlock and Continuous, style Standard; such a record
  // enters the file only when it is changed.
  RecordId find(Table table, std::wstring_view name) const;
  RecordId find(Table table, NameId name) const;                  // cached per name
  RecordId findStored(Table table, std::string_view name) const;  // a name as it is stored; cached as well
  const std::vector<RecordId>& tableRecords(Table table) const;   // in table order, without erased ones
  // The record that a property names; kNoRecord when the drawing has none.
  RecordId reference(RecordId id, Property property) const;
  RecordId referenceOf(const Record& state, Property property) const;  // of a record in another state
  // False when this type of record or this drawing's version cannot hold the property.
  bool canHold(RecordId id, Property property) const;
  bool isLayerLocked(NameId layer) const;  // cached until a layer record changes

 protected:
  DrawingTables(std::unique_ptr<RecordStorage> storage, LoadedRecords loaded);
  ~DrawingTables() = default;

  // What a reference to the record says; kNoName when it is not of the table, is erased or has no name.
  NameId nameForReference(RecordId id, Table table) const;
  TableIndex& index(Table table) const { return tables_[static_cast<std::size_t>(table)]; }
  void tableRecordAdded(RecordId id);
  // Brings the index of a table up to date with one of its records; `before` is the name it had there.
  void tableRecordChanged(RecordId id, NameId before, bool wasErased);

 private:
  const TableIndex& table(Table table) const;  // brought up to date
  void addImpliedRecords();
  void addImplied(Table table, std::wstring_view name);
  RecordId addImpliedBlock(std::wstring_view name);
  std::wstring foldedName(NameId name) const;  // empty: none

  static constexpr std::size_t kTables = static_cast<std::size_t>(Table::kBlockRecord) + 1;
  mutable std::array<TableIndex, kTables> tables_;
  mutable std::vector<signed char> locked_;  // by layer name; -1: not asked
};

}  // namespace cad
