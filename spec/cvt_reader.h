#pragma once
// A specification as it is loaded: for editing as a tree, for the conversion run as ten lists of text lines.

#include <array>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "spec/cvt_diagnostics.h"
#include "spec/cvt_parser.h"
#include "spec/specification.h"

namespace kiv {

struct TreeLoad {
  Specification
      specification;    // ten empty sections when the file cannot be read; the file name is set all the same
  bool isRead = false;  // the file is there and can be read
  bool isSpecification = false;  // it has at least one of the ten sections, though all may be empty
  int linesExamined = 0;         // inside sections, their end markers not counted
  CvtDiagnostics diagnostics;
};

TreeLoad loadSpecification(const std::filesystem::path& folder, std::wstring_view fileName);

// As it is edited; without a file name.
Specification specificationOf(const ParsedCvt& parsed);

// The index is the section's number minus one: 0 texts, 1 dimensions, 2 hatches, 3 other entities,
// 4 dimension variables to set, 5 layer settings, 6 layers to create, 7 linetypes to load, 8 text styles,
// 9 arrow blocks.
//
// A line of a setting (lists 0 to 3 and 5) is a row of pieces that each begin with a comma: the conditions
// ",key=value", ",key<>value" or, for a setting without conditions, ",***"; then ",{" when the setting has
// results; then the results ",key=value". The key is an item's key as in the file or a dimension variable's
// name; a colour is its number (256 by layer, 0 by block). Keys and values are trimmed. A comma inside
// a value is doubled.
//
// The lines of the other lists are fields joined by commas, each trimmed: 4 "variable,value"
// ("variable=value" when the line has no comma); 6 nine fields, the last six empty in a short entry, the
// colour a number or empty; 7 "linetype file,linetype"; 8 "style,font,big font" or "style,font"; 9 the
// arrow's name or path up to the first comma of its line.
struct WorkLists {
  std::array<std::vector<std::wstring>, 10> lists;
};

// False when the file cannot be read or has none of the ten sections; `out` is then empty.
bool readWorkLists(const std::filesystem::path& file, WorkLists& out);

}  // namespace kiv
