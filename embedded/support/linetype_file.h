#pragma once
// Linetype definition files (*.lin): "*NAME,description" followed by "A,dash,gap,...". A text or a shape in
// brackets stands at the end of the number before it:
//   ["text",style,S=scale,R=angle,X=x,Y=y] and [shape,file.shx,S=scale,R=angle,X=x,Y=y]
// with A= (absolute) or U= (upright) for R= (with the line), an angle in degrees (d), radians (r) or grads
// (g).

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "embedded/drawing/linetype_pattern.h"

namespace cad {
class Drawing;
}

namespace cad::support {

// A dash as the file has it: what its symbol names is not looked up yet.
struct DashDefinition {
  Dash dash;
  std::wstring shape;   // empty: a text, or no symbol
  std::wstring source;  // the text's style (empty: the current one) or the shape's file
};

struct LinetypeDefinition {
  std::wstring name;
  std::wstring description;
  std::vector<DashDefinition> dashes;
  int line = 0;          // of the pattern, or of the header when it has none; 1 is the first
  std::wstring refusal;  // why it cannot be loaded, as a sentence; empty when it can
};

// Never fails: a definition that cannot be understood carries its reason. Comments begin with a semicolon
// and end with their line; lines end with LF or CR LF; the bytes are code page 932, or UTF-8 after a
// byte-order mark.
std::vector<LinetypeDefinition> parseLinetypes(std::string_view bytes);

// The path of a file that a definition names; empty when there is none.
using FileFinder = std::function<std::filesystem::path(std::wstring_view name)>;

enum class LinetypeLoading {
  kLoaded,
  kNoFile,
  kNotInFile,
  kInDrawing,  // the drawing has a linetype of this name
  kBadDefinition,
  kNoTextStyle,       // the drawing lacks the style of a text
  kNotInThisVersion,  // R12 has no texts and shapes in linetypes
};

struct LoadedLinetypes {
  LinetypeLoading result = LinetypeLoading::kLoaded;
  base::Failure failure;               // unless loaded
  std::vector<base::Failure> remarks;  // shapes that were left out of linetypes that were loaded
};

// Adds the definitions whose name matches the pattern, ignoring case. A pattern with wildcards passes over
// those that cannot be loaded and fails, with the first reason, only when nothing could be added. A shape
// whose file or number cannot be found is left out and remarked.
LoadedLinetypes loadLinetypes(Drawing& drawing, std::wstring_view wildcardName,
                              const std::filesystem::path& file, const FileFinder& findFile);

}  // namespace cad::support
