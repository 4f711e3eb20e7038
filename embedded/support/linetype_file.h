#pragma once
// Linetype definition files (*.lin): "*NAME,description" followed by "A,dash,gap,...".

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"

namespace cad {
class Drawing;
}

namespace cad::support {

struct LinetypeDefinition {
  std::wstring name;
  std::wstring description;
  std::vector<double> dashes;  // drawing units: > 0 a dash, < 0 a gap, 0 a dot
  std::wstring refusal;        // why it cannot be loaded; empty for a plain pattern
};

// Never fails: a definition that cannot be understood carries its reason. Comment lines begin with a
// semicolon; lines end with LF or CR LF; the bytes are code page 932, or UTF-8 after a byte-order mark.
std::vector<LinetypeDefinition> parseLinetypes(std::string_view bytes);

// Adds the definitions whose name matches the pattern, ignoring case. Refused: a file that cannot be
// read; a pattern that selects nothing; a name that the drawing already has, or a definition that needs a
// shape file or a text style, when it is named exactly. A pattern with wildcards passes over those two and
// fails only when nothing could be added.
base::Status loadLinetypes(Drawing& drawing, std::wstring_view wildcardName,
                           const std::filesystem::path& file);

}  // namespace cad::support
