#pragma once
// Puts the objects of a file into the order in which the drawing has records: the tables, the blocks with
// what they hold, model space and the active paper space, everything else.

#include <cstdint>
#include <span>
#include <unordered_map>
#include <vector>

#include "embedded/drawing/drawing_records.h"
#include "embedded/dwg/dwg_storage.h"
#include "embedded/dwg/entity_head.h"

namespace cad::dwg {

class Arranger {
 public:
  Arranger(const DwgFile& file, const std::vector<FileClass>& classes);

  void run();
  LoadedRecords takeLoaded() { return std::move(loaded_); }
  FileRecords takeRecords() { return std::move(records_); }

 private:
  using Place = std::uint32_t;  // position in DwgFile::places()
  static constexpr Place kNowhere = 0xFFFFFFFF, kInModel = 0xFFFFFFFE, kInPaper = 0xFFFFFFFD;

  // As few bytes as can be: files have millions of them.
  struct Object {
    Place owner = kNowhere, next = kNowhere;  // of an entity
    SignatureId signature = 0;
    std::uint16_t number = 0;                                // of its type
    bool intact = false, isEntity = false, isPlain = false;  // isPlain: see kPlainEntity
    bool isPart = false, isBlockFrame = false;               // of another entity; the begin or end of a block
  };
  // Entities by their owner, each owner's in the order of the file.
  struct Members {
    std::vector<Place> places;
    std::vector<std::uint32_t> begins;  // by owner: where its own begin
    std::span<const Place> of(Place owner) const {
      if (begins.empty()) return {};
      return std::span(places).subspan(begins[owner], begins[owner + 1] - begins[owner]);
    }
  };

  void readObjects();
  void readEntity(Place place, const ObjectFrame& frame);
  Place ownerOf(Place place) const;
  Members collected(bool areParts) const;
  ObjectType typeAt(Place place) const { return typeOf(objects_[place].number, classes_); }
  base::Result<ObjectFrame> frameAt(Place place) const;
  Place placeOf(Handle handle) const;
  Place placeOf(Handle handle, Place likely) const;
  Place controlOf(ObjectKind kind) const;
  std::vector<Place> listed(const Fields& fields, std::string_view name) const;
  Place named(const Fields& fields, std::string_view name) const;

  RecordId add(Place place, RecordKind kind, Table table, RecordId owner);
  void addTable(Table table, ObjectKind control, std::string_view type);
  void addBlock(Place entry, bool withContent);
  void noteIndices(const Fields& control);
  void addContent(Place entry, const Fields& fields);
  void addSpace(Place entry);
  void addEntity(Place place, RecordId block);
  std::vector<Place> ordered(const Members& members, Place owner, const Fields& fields,
                             std::string_view singular) const;
  SignatureId signatureOf(const ObjectType& type, const EntityHead& head);
  NameId nameOf(Handle record, std::string_view otherwise);
  void noteSpace(Place entry, const Fields& fields, RecordId block);

  const DwgFile& file_;
  const std::vector<FileClass>& classes_;
  std::vector<Object> objects_;
  std::vector<Place> others_;  // the intact ones that are no entities
  Members entities_, parts_;
  bool hasParts_ = false;
  Place model_ = kNowhere, paper_ = kNowhere;  // table entries of the spaces
  LoadedRecords loaded_;
  FileRecords records_;
  std::unordered_map<Handle, NameId> names_;
  struct KnownSignature {
    std::uint64_t key[4] = {};
    SignatureId id = 0;
  };
  std::vector<KnownSignature> known_ = std::vector<KnownSignature>(4096);
};

}  // namespace cad::dwg
