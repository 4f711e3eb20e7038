#pragma once
// The system variables that the host knows: one row for each.

#include <string_view>
#include <vector>

#include "base/number_limits.h"
#include "embedded/drawing/storage.h"

namespace cad {

struct HostState;

enum class VariableHome : unsigned char {
  kDrawing,   // the drawing's header, saved with it
  kSession,   // the running host
  kComputed,  // made up when asked; read-only
};

enum class VariableType : unsigned char { kShort, kReal, kText };

// What a text must name, or how the header keeps a value that the host shows otherwise.
enum class VariableMeaning : unsigned char {
  kPlain,
  kLayer,
  kLinetype,
  kTextStyle,
  kDimStyle,
  kArrow,      // an arrow block; "." and "" are the closed filled arrow
  kColor,      // the header keeps a number, the host shows "BYLAYER", "BYBLOCK" or the number
  kCharacter,  // the header keeps a character's number, within the limits
};

struct SystemVariable {
  std::string_view name;  // upper-case
  VariableType type;
  VariableHome home;
  VariableMeaning meaning = VariableMeaning::kPlain;
  bool readOnly = false;
  double defaultNumber = 0;
  const wchar_t* defaultText = L"";
  base::NumberLimits limits = {};  // of a number or a character
  Variable (*compute)(HostState& state) = nullptr;
  Version first = Version::kR12, last = Version::kUnknown;  // drawing versions that can keep it

  bool existsIn(Version version) const { return version >= first && version <= last; }
};

// Null when unknown. `name` ignores case.
const SystemVariable* findSystemVariable(std::wstring_view name);

}  // namespace cad
