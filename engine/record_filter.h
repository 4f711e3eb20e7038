#pragma once
// The one rule by which every list of condition values keeps or drops an object.

#include <span>

namespace kiv {

// `Value` has a member `equal`: true when the property must equal the value, false when it must differ.
// The first value that matches decides by its sense. When none matches, the object is kept only if the
// last value is inverted; with mixed senses the last one decides on purpose. No values keep everything.
template <class Value, class Matches>
bool passesValues(std::span<const Value> values, Matches&& matches) {
  if (values.empty()) return true;
  for (const Value& value : values) {
    if (matches(value)) return value.equal;
  }
  return !values.back().equal;
}

}  // namespace kiv
