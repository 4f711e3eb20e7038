#pragma once
// The nodes of the editing tree as the tree control has them: a 32-bit tag that tells what a node is, its
// text and its picture.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "spec/specification.h"

namespace kiv {

enum class Level { kRoot = 0, kSection = 1, kSetting = 2, kItem = 3 };  // a list entry stands on kSetting
enum class Sense { kNone = 0, kEqual = 1, kInverted = 2 };

class ItemTag {
 public:
  // A field given this value stays as it is; the kind stays when it is given -1.
  static constexpr std::uint32_t kKeep = 0xFFFFFFFF;

  constexpr ItemTag() = default;
  constexpr explicit ItemTag(std::uint32_t value) : value_(value) {}

  constexpr std::uint32_t value() const { return value_; }
  constexpr int section() const { return static_cast<int>(field(24, 0xFF)); }
  constexpr Level level() const { return static_cast<Level>(field(16, 0xFF)); }
  constexpr Role role() const { return static_cast<Role>(field(12, 0xF)); }
  constexpr Sense sense() const { return static_cast<Sense>(field(8, 0xF)); }
  constexpr int kind() const { return static_cast<int>(field(0, 0xFF)); }

  // Only the low bits of a value that fit into its field are kept.
  constexpr void set(std::uint32_t section, std::uint32_t level, std::uint32_t role, std::uint32_t sense,
                     int kind) {
    setField(section, 24, 0xFF);
    setField(level, 16, 0xFF);
    setField(role, 12, 0xF);
    setField(sense, 8, 0xF);
    setField(static_cast<std::uint32_t>(kind), 0, 0xFF);
  }
  constexpr void setSense(Sense sense) { setField(static_cast<std::uint32_t>(sense), 8, 0xF); }

  static constexpr ItemTag pack(int section, Level level, Role role = Role::kNone, Sense sense = Sense::kNone,
                                int kind = 0) {
    ItemTag tag;
    tag.set(static_cast<std::uint32_t>(section), static_cast<std::uint32_t>(level),
            static_cast<std::uint32_t>(role), static_cast<std::uint32_t>(sense), kind);
    return tag;
  }

  constexpr bool operator==(const ItemTag&) const = default;

 private:
  constexpr std::uint32_t field(int shift, std::uint32_t mask) const { return (value_ >> shift) & mask; }
  constexpr void setField(std::uint32_t value, int shift, std::uint32_t mask) {
    if (value == kKeep) return;
    value_ = (value_ & ~(mask << shift)) | ((value & mask) << shift);
  }

  std::uint32_t value_ = 0;
};

// 0 for the root and for a node that does not exist.
ItemTag tagOf(const Specification& specification, const Node& node);

inline constexpr const wchar_t* kRootText = L"図面";

std::wstring itemText(const Item& item, Role role);
std::wstring entryText(const Entry& entry, int section);

// Empty for a node that does not exist.
std::wstring nodeText(const Specification& specification, const Node& node);

// 0 root, 1 to 10 sections, 11 setting, 12 condition, 13 result, 14 list entry.
int nodeImage(const Node& node);

// What stands between "<" and ">" and between "（" and "）", in the order of the text, cut at commas and
// trimmed.
std::vector<std::wstring> valuesOfText(std::wstring_view text);

}  // namespace kiv
