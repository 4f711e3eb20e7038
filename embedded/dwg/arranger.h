#pragma once
// Puts the objects of a file into the order in which the drawing has records: the tables, the blocks with
// what they hold, model space and the active paper space, everything else.

#include <array>
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
  static constexpr Place kNowhere = 0xFFFFFFFF;

  struct Object {
    ObjectType type;
    bool intact = false;
    EntityHead head;
  };
  struct Member {
    Place owner, place;
  };
  using Members = std::vector<Member>;  // by owner, then by place

  void readObjects();
  void collectMembers();
  static std::span<const Member> membersOf(const Members& members, Place owner);
  base::Result<ObjectFrame> frameAt(Place place) const;
  Place placeOf(Handle handle) const;
  Place controlOf(ObjectKind kind) const;
  std::vector<Place> listed(const Fields& fields, std::string_view name) const;
  Place named(const Fields& fields, std::string_view name) const;

  RecordId add(Place place, RecordKind kind, Table table, RecordId owner);
  void addTable(Table table, ObjectKind control, std::string_view type);
  void addBlock(Place entry, bool withContent);
  void addContent(Place entry);
  void noteIndices(const Fields& control);
  void addEntity(Place place, RecordId block);
  std::vector<Place> ordered(const Members& members, Place owner, const Fields& fields,
                             std::string_view singular) const;
  SignatureId signatureOf(Place place);
  NameId nameOf(Handle record, std::string_view otherwise);
  void noteSpace(Place entry, RecordId block);

  const DwgFile& file_;
  const std::vector<FileClass>& classes_;
  std::vector<Object> objects_;
  Members entities_, parts_;
  Place model_ = kNowhere, paper_ = kNowhere;  // table entries of the spaces
  LoadedRecords loaded_;
  FileRecords records_;
  std::unordered_map<Handle, NameId> names_;
  struct KnownSignature {
    std::uint64_t key[4] = {};
    SignatureId id = 0;
  };
  std::array<KnownSignature, 256> known_{};
};

}  // namespace cad::dwg
