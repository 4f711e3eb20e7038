#pragma once
// One condition of a selection filter: a group's value compared with a wildcard or a number.

#include <memory>
#include <optional>
#include <string_view>

#include "embedded/editor/selection_filter.h"

namespace cad {

enum class Relation {
  kAny,
  kEqual,
  kNotEqual,
  kLess,
  kLessOrEqual,
  kGreater,
  kGreaterOrEqual,
  kBits,
  kAllBits
};

// "*", "=", "!=", "/=", "<>", "<", "<=", ">", ">=", "&", "&="; absent for any other.
std::optional<Relation> relationOf(std::wstring_view mark);

// Null for a text condition without its text and for a code that no filter may hold. A group whose value the
// host does not read for selection (coordinates, extended data) matches no entity.
std::unique_ptr<SelectionFilter::Node> makeTest(const resbuf& condition, Relation relation);

}  // namespace cad
