#pragma once
// What every entity has, of one record: these groups are read once for all properties, and what is known of
// them follows the record while it is written.

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

#include "embedded/dxf/record_regions.h"

namespace cad::dxf {

class CommonLook {
 public:
  // Reads a record in which none of these groups has strayed. `bytes` must stay where they are, and so must
  // the values below.
  void read(std::string_view bytes, const Dialect& dialect);
  // Of several groups of the code the last, which counts; null: there is none. Valid until the next change.
  const Group* find(int code) const;
  bool hasTrueColor() const { return find(kTrueColor) != nullptr || find(kColorName) != nullptr; }
  std::uint32_t insertAt() const { return insertAt_; }  // where a new group belongs
  std::uint32_t end() const { return end_; }            // behind the last group that may count

  // The record has another value in the group of the code, which must be there.
  void valueReplaced(int code, std::string_view value);
  // The record has a new group there. `bytes`: all of the group, whose code is not that of a layer.
  void groupInserted(std::string_view bytes, const Dialect& dialect);

 private:
  void keep(const Group& group);
  void shift(std::uint32_t from, std::uint32_t difference);  // modulo 2^32
  std::span<Group> known() { return {groups_.data(), count_}; }

  static constexpr std::size_t kMost = 10;  // codes that may stray
  std::array<Group, kMost> groups_;
  std::size_t count_ = 0;
  std::uint32_t insertAt_ = 0, end_ = 0;
};

}  // namespace cad::dxf
