#pragma once
// The records of a drawing: what each of them is and holds.

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "embedded/drawing/names.h"
#include "embedded/drawing/property.h"
#include "embedded/drawing/record.h"
#include "embedded/drawing/signature_table.h"
#include "embedded/drawing/storage.h"

namespace cad {

// What a file format found in its one pass over the file.
struct LoadedRecords {
  std::vector<Record> records;  // as they were found; the owner of the entities of model space and the active
                                // paper space is one of the two below
  SignatureTable signatures;
  NamePool names;
  RecordId modelSpace = kNoRecord, paperSpace = kNoRecord;  // where the file has a record of them
  static constexpr RecordId kInModelSpace = 0xFFFFFFFD, kInPaperSpace = 0xFFFFFFFC;
};

class DrawingRecords {
 public:
  DrawingRecords(const DrawingRecords&) = delete;
  DrawingRecords& operator=(const DrawingRecords&) = delete;

  const DrawingFacts& facts() const { return storage_->facts(); }
  std::wstring_view format() const { return storage_->format(); }  // of the file: three letters

  std::size_t recordCount() const { return records_.size(); }
  const Record& record(RecordId id) const { return records_[id]; }
  std::string_view typeName(RecordId id) const;  // "TEXT"; upper-case ASCII
  std::optional<Handle> handle(RecordId id) const;
  RecordId findHandle(Handle handle) const;  // kNoRecord when absent; the index is built on first use

  // --- Properties: absent when the record holds no value (the property's default then applies) ----
  std::optional<double> real(RecordId id, Property property) const;
  std::optional<std::int64_t> integer(RecordId id, Property property) const;
  std::optional<std::wstring> text(RecordId id, Property property) const;
  EntityLooks looks(RecordId entity) const { return storage_->looks(records_[entity]); }
  // Layer, linetype, style, block or dimension-style name. Entities always have a layer ("0") and a
  // linetype ("ByLayer"), texts always a style ("Standard"); kNoName where the property does not apply.
  NameId name(RecordId id, Property property) const;
  // What a table's record is called; the blocks of the spaces go by one name, however the file spells it.
  NameId recordName(RecordId id) const;

  NamePool& names() { return names_; }
  const NamePool& names() const { return names_; }
  // Entities of equal type, layer, linetype, style and colour share a signature.
  std::size_t signatureCount() const { return signatures_.all().size(); }
  const Signature& signature(SignatureId id) const { return signatures_[id]; }
  SignatureId intern(const Signature& signature) { return signatures_.intern(signature); }

  RecordStorage& storage() { return *storage_; }
  const RecordStorage& storage() const { return *storage_; }

 protected:
  DrawingRecords(std::unique_ptr<RecordStorage> storage, LoadedRecords loaded);
  ~DrawingRecords() = default;

  RecordId append(const Record& record);
  NameId nameOf(const StoredValue& value) const;  // of a name or a reference

  std::unique_ptr<RecordStorage> storage_;
  std::vector<Record> records_;
  SignatureTable signatures_;
  mutable NamePool names_;
  RecordId modelSpace_, paperSpace_;
  std::unordered_map<RecordId, NameId> impliedNames_;
  mutable std::unordered_map<RecordId, NameId> recordNames_;  // of tables' records, as far as asked for
  mutable std::unique_ptr<std::unordered_map<Handle, RecordId>> handles_;

 private:
  NameId nameInFile(RecordId id) const;
};

}  // namespace cad
