// A sibling in which a file is the person: it names the save format, a second number, the folder and the
// drawings, a line each.

#include <string>
#include <vector>

#include "acutads.h"
#include "adscodes.h"
#include "base/codepage.h"
#include "base/environment.h"
#include "base/files.h"
#include "base/fold.h"
#include "siblings/common/export.h"

namespace {

std::vector<std::wstring> chosenLines() {
  const auto file = base::environmentVariable("KIV_TEST_CHOICE");
  const std::wstring text = base::fromUtf8(base::readFile(file.value_or("")).value());
  std::vector<std::wstring> lines;
  for (std::size_t at = 0, end = 0; (end = text.find(L'\n', at)) != text.npos; at = end + 1) {
    lines.push_back(text.substr(at, end - at));
  }
  return lines;
}

}  // namespace

// Asked in another way than agreed it chooses nothing.
extern "C" KIV_EXPORT resbuf* dll_kiv_openmulti(void* owner, const wchar_t* title) {
  const std::vector<std::wstring> lines = chosenLines();
  if (owner != nullptr || title != std::wstring(L"変換するﾌｧｲﾙを選択") || lines.empty()) return nullptr;
  resbuf* const list = acutBuildList(RTSHORT, static_cast<int>(lines.size()) - 3, RTLONG, std::stoi(lines[0]),
                                     RTLONG, std::stoi(lines[1]), RTNONE);
  resbuf* last = list->rbnext->rbnext;
  for (std::size_t i = 2; i < lines.size(); ++i) {
    last = last->rbnext = acutBuildList(RTSTR, lines[i].c_str(), RTNONE);
  }
  return list;
}

extern "C" KIV_EXPORT int dll_kiv_GetAcadFileVer(const wchar_t* path) {
  return base::endsWithFolded(path, L".jpg") ? 0 : 20;
}
