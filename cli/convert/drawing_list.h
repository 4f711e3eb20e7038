#pragma once
// Which drawings the command line names: one by one, in a list of names, or by folders.

#include <filesystem>
#include <string>
#include <vector>

#include "base/result.h"
#include "cli/arguments.h"

namespace kivcli {

struct ListedDrawing {
  std::wstring given;  // as the user named it, or its folder
  std::filesystem::path
      folder;  // that it goes into, below the one for the converted drawings; empty: that one itself
  std::wstring refusal;  // empty, or why it cannot be converted
};

// The drawings given, then those of the list. A folder stands for the drawings in it and below it, in the
// order of their names; each folder is entered once, however many links lead to it, and the one for the
// converted drawings not at all. Without --recursive a folder is a drawing with a refusal, as is one that
// cannot be listed or has no drawings, a list without names,
// a pipe or device in a folder, and any of them in a dry run, which reads drawings twice. The failure: the
// list of names cannot be read.
base::Result<std::vector<ListedDrawing>> listDrawings(const Arguments& arguments);

// The names in a list: one a line, or each with a zero byte behind it when there is one. In UTF-8, or in
// UTF-16 behind its mark; what is neither comes as utf8::decodeName() has it.
std::vector<std::wstring> namesInList(const std::string& bytes);

}  // namespace kivcli
