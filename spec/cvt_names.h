#pragma once
// The names that a specification expects of drawings, held against the drawings that it is meant for.

#include <array>
#include <functional>
#include <set>
#include <string>
#include <vector>

#include "spec/cvt_parser.h"

namespace kiv {

// Of one drawing, upper-cased. The index is that of nameTable().
struct DrawingNames {
  std::wstring drawing;
  std::array<std::set<std::wstring>, 3> has;   // what stands in its tables
  std::array<std::set<std::wstring>, 3> used;  // what its objects name
};

// 0 layers, 1 linetypes, 2 text styles; -1: a kind that names none of them.
int nameTable(int kind);

// Both upper-cased. The host's own match, which knows what a letter is.
using NameMatch = std::function<bool(const std::wstring& name, const std::wstring& pattern)>;

// Adds a warning for every result whose name some drawing lacks and no list or layer setting of the file
// brings, and for every condition whose pattern fits nothing that the drawings use (of layer settings: have)
// and nothing that the file itself brings.
void checkNames(ParsedCvt& parsed, const std::vector<DrawingNames>& drawings, const NameMatch& matches);

}  // namespace kiv
