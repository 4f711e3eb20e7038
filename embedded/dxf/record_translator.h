#pragma once
// Entities of one drawing as records of another: new handles, names of copied anonymous blocks, subclass
// markers as the receiving version has them, groups that it does not know left out.

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "embedded/dxf/record_builder.h"
#include "embedded/dxf/record_tools.h"

namespace cad::dxf {

// The first version that holds entities of a type; absent for types that are not copied between drawings.
std::optional<Version> firstVersionOf(std::string_view type);

// What takes the place of the handles and names that a copied record holds.
struct Replacements {
  std::unordered_map<Handle, Handle> handles;                        // of copied entities and table records
  const std::unordered_map<std::wstring, std::wstring>& blockNames;  // folded source name, name here
};

class RecordTranslator {
 public:
  RecordTranslator(const DxfStorage& from, const DxfStorage& to, const Replacements& replacements)
      : from_(from), to_(to), replacements_(replacements) {}

  // Appends the record's own groups to `builder`, which holds its head up to the subclass AcDbEntity. The
  // overrides of dimension variables are left out. Refused: a broken value, with the record's type.
  base::Status translate(const RecordGroups& groups, RecordBuilder& builder) const;

 private:
  struct Walk;

  bool keeps(const Walk& walk, const Group& group) const;
  bool copyHandle(const Group& group, RecordBuilder& builder) const;
  bool copyGroup(const Walk& walk, const Group& group, RecordBuilder& builder) const;
  bool copyOwn(Walk& walk, RecordBuilder& builder) const;
  bool copyMarked(Walk& walk, RecordBuilder& builder) const;
  bool copyExtended(const RecordGroups& groups, RecordBuilder& builder) const;

  const DxfStorage& from_;
  const DxfStorage& to_;
  const Replacements& replacements_;
};

}  // namespace cad::dxf
