#pragma once
// What is wrong with the look of a dialog, found without showing it.

#include <string>
#include <vector>

#include "platform/headless/resource_script.h"

namespace kiv::headless {

// About the width of a caption's longest line at the dialog font, in dialog units.
int captionWidth(std::wstring_view caption);

// A line each: controls that overlap, reach out of the dialog, have a caption wider or higher than their box,
// or share an id. Hidden controls are place holders and overlap nothing; neither do group boxes. Empty:
// nothing found.
std::vector<std::wstring> layoutFaults(const DialogResource& dialog);

// A line each: controls that take the keyboard and have no access key, or one that another control has, and
// keys of a dialog for controls that it does not have.
std::vector<std::wstring> accessKeyFaults(const ResourceScript& script, const DialogResource& dialog);

}  // namespace kiv::headless
