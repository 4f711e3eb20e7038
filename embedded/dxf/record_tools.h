#pragma once
// What the writers of new records share.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "embedded/drawing/drawing.h"
#include "embedded/dxf/dxf_storage.h"
#include "embedded/dxf/group_cursor.h"

namespace cad::dxf {

// The present groups of a record. The views in them live as long as this object and the record's state.
class RecordGroups {
 public:
  RecordGroups(const DxfStorage& storage, const Record& record);
  RecordGroups(const RecordGroups&) = delete;
  RecordGroups& operator=(const RecordGroups&) = delete;

  const std::vector<Group>& all() const { return groups_; }
  std::string_view bytes() const { return bytes_; }
  const Group* find(int code) const;  // the first; null when absent
  // Number of groups before the extended data.
  std::size_t plainCount() const { return plainCount_; }
  // Where a new group may go in front of the extended data.
  std::uint32_t plainEnd() const;

 private:
  std::string scratch_;
  std::string_view bytes_;
  std::vector<Group> groups_;
  std::size_t plainCount_ = 0;
};

// Owners by handle (330) stand in files from 2000 on; older ones have them when they were written by newer
// programs.
bool writesOwners(const Drawing& drawing, const DxfStorage& storage);

// The handle that entities of a block name as their owner: that of its table entry.
std::optional<Handle> ownerHandleOf(const Drawing& drawing, RecordId block);

std::wstring blockName(const Drawing& drawing, RecordId block);

// Extended data may stand in the file only under an application that it knows.
base::Status requireApplication(Drawing& drawing, std::wstring_view name);

// A group's value for a person, alike for numbers that are.
std::wstring valueText(const DxfStorage& storage, const Group& group);

base::Failure failure(std::wstring_view what, std::wstring_view reason);

}  // namespace cad::dxf
