#pragma once
// The largest handle of a file, noted while its groups go by: looking for it later would read the file again.

#include <algorithm>
#include <optional>
#include <string_view>

#include "embedded/dxf/file_frame.h"
#include "embedded/dxf/group_cursor.h"

namespace cad::dxf {

inline constexpr int kNoHandle = -1;  // a record of this kind has none

// The code of the group in which a record has its handle.
inline constexpr int kUsualHandle = 5;
constexpr int handleCode(const Record& record) {
  constexpr int kOfDimStyle = 105;  // there group 5 is an arrow block's name
  if (record.kind == RecordKind::kFrame || record.kind == RecordKind::kOther) return kNoHandle;
  return record.table == Table::kDimStyle && record.kind == RecordKind::kTableRecord ? kOfDimStyle
                                                                                     : kUsualHandle;
}

class LargestHandle {
 public:
  void begin(const Record& record) { awaited_ = handleCode(record); }
  bool awaits(int code) const { return code == awaited_; }
  // The groups of the record in order; those that neither are awaited nor begin a part of it may be left out.
  void group(int code, std::string_view value) {
    if (awaited_ == kNoHandle) return;
    if (code == awaited_) {
      take(value);
    } else if (code == kApplicationGroup || code >= kExtendedData) {
      unsure_ = true;  // whether one that follows counts is for those to tell who look at the parts
    } else {
      return;
    }
    awaited_ = kNoHandle;
  }
  void tell(FileFrame& frame) const {
    frame.largestHandle = largest_;
    frame.handlesUnknown = unsure_;
  }

 private:
  static constexpr int kApplicationGroup = 102, kExtendedData = 1000;

  void take(std::string_view value) {
    Group group;
    group.value = value;
    const std::optional<Handle> handle = handleValue(group);
    if (handle && *handle <= kLargestHandle) largest_ = std::max(largest_.value_or(0), *handle);
  }

  int awaited_ = kNoHandle;
  std::optional<Handle> largest_;
  bool unsure_ = false;
};

}  // namespace cad::dxf
