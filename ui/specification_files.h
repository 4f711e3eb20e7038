#pragma once
// The specification files of a folder, as a browser lists them.

#include <string>
#include <string_view>
#include <vector>

namespace kiv {

struct SpecificationFile {
  std::wstring name;    // with its extension
  std::wstring remark;  // the file's second line, trimmed; empty when there is none
};

// The names in `folder` that end in `extension` (with its dot), ignoring case, in the order in which the
// system gives them; empty when the folder does not exist or names nothing.
std::vector<std::wstring> filesWithExtension(std::wstring_view folder, std::wstring_view extension);

// The CVT files of the folder. `folder` with its trailing separator; empty: the current one.
std::vector<SpecificationFile> specificationFiles(std::wstring_view folder);

// By name, ignoring case. Files whose names differ in case only keep their order.
void sortByName(std::vector<SpecificationFile>& files, bool descending);

// The name with ".cvt" appended unless it ends in ".cvt" or ".CVT", exactly.
std::wstring withSpecificationExtension(std::wstring name);

}  // namespace kiv
