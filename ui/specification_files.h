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

// The CVT files of the folder. `folder` with its trailing separator; empty: the current one.
std::vector<SpecificationFile> specificationFiles(std::wstring_view folder);

// By name, ignoring case. Files whose names differ in case only keep their order.
void sortByName(std::vector<SpecificationFile>& files, bool descending);

// The name with ".cvt" appended unless it ends in ".cvt" or ".CVT", exactly.
std::wstring withSpecificationExtension(std::wstring name);

}  // namespace kiv
