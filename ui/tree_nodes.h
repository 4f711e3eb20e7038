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
  constexpr ItemTag() = default;
  constexpr explicit ItemTag(std::uint32_t value) : value_(value) {}

  constexpr std::uint32_t value() const { return value_; }
  constexpr int section() const { return static_cast<int>(field(24, 0xFF)); }
  constexpr Level level() const { return static_cast<Level>(field(16, 0xFF)); }
  constexpr Role role() const { return static_cast<Role>(field(12, 0xF)); }
  constexpr Sense sense() const { return static_cast<Sense>(field(8, 0xF)); }
  constexpr int kind() const { return static_cast<int>(field(0, 0xFF)); }

  // Only the low bits of a value that fit into its field are kept.
  static constexpr ItemTag pack(int section, Level level, Role role = Role::kNone, Sense sense = Sense::kNone,
                                int kind = 0) {
    return ItemTag(bits(section, 24, 0xFF) | bits(static_cast<int>(level), 16, 0xFF) |
                   bits(static_cast<int>(role), 12, 0xF) | bits(static_cast<int>(sense), 8, 0xF) |
                   bits(kind, 0, 0xFF));
  }

  constexpr bool operator==(const ItemTag&) const = default;

 private:
  constexpr std::uint32_t field(int shift, std::uint32_t mask) const { return (value_ >> shift) & mask; }
  static constexpr std::uint32_t bits(int value, int shift, std::uint32_t mask) {
    return (static_cast<std::uint32_t>(value) & mask) << shift;
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

}  // namespace kiv
