#pragma once
// Choosing drawings and telling their versions; both are done by a sibling module. What of it is missing is
// said on the host's command line.

#include <optional>
#include <string>
#include <vector>

#include "base/save_format.h"
#include "platform/module_loader.h"
#include "siblings/common/file_interface.h"

namespace kiv {

struct DrawingChoice {
  base::SaveFormat saveFormat = base::SaveFormat::kDwg;
  int secondChoice = 0;
  std::wstring folder;              // with its trailing separator
  std::vector<std::wstring> names;  // with their extensions; none: nothing was chosen
};

// In the sibling's dialog, which lies over the host's frame. Nothing when there is no such dialog. An answer
// of another form than agreed chooses nothing, which the command line tells.
std::optional<DrawingChoice> chooseDrawings(const std::wstring& title);

// As long as it lives the sibling stays loaded.
class DrawingVersions {
 public:
  DrawingVersions();
  // Below 1: not a readable drawing; -1: there is nobody to ask.
  int of(const std::wstring& path) const { return ask_ != nullptr ? ask_(path.c_str()) : -1; }

 private:
  Sibling module_;
  GetDrawingFileVersion* ask_;
};

}  // namespace kiv
