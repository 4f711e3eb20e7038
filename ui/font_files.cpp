#include "ui/font_files.h"

#include <algorithm>

#include "base/files.h"
#include "platform/paths.h"

namespace kiv {
namespace {

constexpr std::size_t kLongestLine = 255;

}  // namespace

ShapeFonts shapeFonts() {
  ShapeFonts fonts;
  for (const std::wstring& folder : supportFolders()) {
    for (std::wstring& name : base::filesWithExtension(folder, L".SHX")) {
      std::vector<std::wstring>& list =
          isBigFont(base::readBeginning(base::pathFromText(folder + name), kLongestLine)) ? fonts.big
                                                                                          : fonts.ordinary;
      if (std::ranges::find(list, name) == list.end()) list.push_back(std::move(name));
    }
  }
  return fonts;
}

// A text also ends at its end-of-file character and, for the programs that write these files, at a zero.
bool isBigFont(std::string_view bytes) {
  const std::string_view line = bytes.substr(0, std::min(bytes.find_first_of({"\n\x1A\0", 3}), kLongestLine));
  return line.find("bigfont") != line.npos;
}

}  // namespace kiv
