#include "embedded/dwg/packed_variables.h"

#include <algorithm>
#include <iterator>

#include "embedded/dwg/fields/object_fields.h"

namespace cad::dwg {
namespace {

constexpr std::string_view kField = "flags";

enum class Form : std::uint8_t { kNumber, kSwitch, kInvertedSwitch, kLineWeight };

struct PackedVariable {
  std::string_view name;
  std::int64_t mask;
  int shift;
  Form form;
};

constexpr PackedVariable kVariables[] = {
    {"CELWEIGHT", 0x1F, 0, Form::kLineWeight},   {"ENDCAPS", 0x60, 5, Form::kNumber},
    {"JOINSTYLE", 0x180, 7, Form::kNumber},      {"LWDISPLAY", 0x200, 9, Form::kInvertedSwitch},
    {"XEDIT", 0x400, 10, Form::kInvertedSwitch}, {"EXTNAMES", 0x800, 11, Form::kSwitch},
    {"PSTYLEMODE", 0x2000, 13, Form::kSwitch},   {"OLESTARTUP", 0x4000, 14, Form::kSwitch},
};

const PackedVariable* find(std::string_view name) {
  const auto* found = std::ranges::find(kVariables, name, &PackedVariable::name);
  return found == std::end(kVariables) ? nullptr : found;
}

std::optional<std::int64_t> stored(const PackedVariable& variable, std::int64_t value) {
  switch (variable.form) {
    case Form::kLineWeight:
      return storedLineWeight(static_cast<int>(value));
    case Form::kSwitch:
      return value == 0 || value == 1 ? std::optional(value) : std::nullopt;
    case Form::kInvertedSwitch:
      return value == 0 || value == 1 ? std::optional(1 - value) : std::nullopt;
    default:
      return value >= 0 && value <= variable.mask >> variable.shift ? std::optional(value) : std::nullopt;
  }
}

}  // namespace

std::optional<Variable> packedVariable(const Fields& header, std::string_view name) {
  const PackedVariable* variable = find(name);
  if (variable == nullptr || header.find(kField) == nullptr) return std::nullopt;
  const std::int64_t bits = (header.integer(kField) & variable->mask) >> variable->shift;
  switch (variable->form) {
    case Form::kLineWeight:
      return std::int64_t{lineWeightOf(bits)};
    case Form::kInvertedSwitch:
      return std::int64_t{1} - bits;
    default:
      return bits;
  }
}

std::vector<std::string_view> packedVariables(const Fields& header) {
  std::vector<std::string_view> names;
  if (header.find(kField) != nullptr)
    for (const PackedVariable& variable : kVariables) names.push_back(variable.name);
  return names;
}

bool setPackedVariable(const Fields& header, std::string_view name, std::int64_t value,
                       FieldChanges& changes) {
  const PackedVariable* variable = find(name);
  const std::optional<std::int64_t> bits = variable == nullptr ? std::nullopt : stored(*variable, value);
  if (!bits) return false;
  changes.set(kField, Value((header.integer(kField) & ~variable->mask) | *bits << variable->shift));
  return true;
}

}  // namespace cad::dwg
