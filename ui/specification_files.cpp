#include "ui/specification_files.h"

#include <algorithm>

#include "base/files.h"
#include "base/fold.h"
#include "base/text_files.h"

namespace kiv {
namespace {

constexpr std::wstring_view kExtension = L".cvt";

std::wstring remarkOf(std::wstring_view folder, const std::wstring& name) {
  const auto content = base::readFile(base::pathFromText(std::wstring(folder) + name));
  if (!content.ok()) return {};
  // The first line is the remark's header.
  const std::vector<base::TextLine> lines = base::textLines(content.value());
  return lines.size() > 1 ? std::wstring(base::trim(lines[1].text)) : std::wstring();
}

}  // namespace

std::vector<SpecificationFile> specificationFiles(std::wstring_view folder) {
  std::vector<SpecificationFile> files;
  for (std::wstring& name : base::filesWithExtension(folder, kExtension)) {
    std::wstring remark = remarkOf(folder, name);
    files.push_back({std::move(name), std::move(remark)});
  }
  return files;
}

void sortByName(std::vector<SpecificationFile>& files, bool descending) {
  std::stable_sort(files.begin(), files.end(),
                   [descending](const SpecificationFile& a, const SpecificationFile& b) {
                     const int order = base::upper(a.name).compare(base::upper(b.name));
                     return descending ? order > 0 : order < 0;
                   });
}

std::wstring withSpecificationExtension(std::wstring name) {
  if (!name.ends_with(L".cvt") && !name.ends_with(L".CVT")) name += kExtension;
  return name;
}

}  // namespace kiv
