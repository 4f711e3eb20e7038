#pragma once
// The values that are offered for an item kind.

#include <string>
#include <string_view>
#include <vector>

namespace kiv {

// Those that neither the drawing nor a folder decides; empty for other kinds and for those that are only
// typed. `contextCode` is the section under which the value will stand: that of the layer settings withholds
// by layer and by block. Text heights are switched on and off by the common settings.
std::vector<std::wstring> fixedChoices(int kind, int contextCode);

// Names of the layers, linetypes or text styles of the current drawing, in the order of its table; empty for
// other kinds and without a drawing.
std::vector<std::wstring> drawingChoices(int kind, int contextCode);

// The list section whose entries name what the kind chooses from; 0: none.
int sectionOfNames(int kind);

// Appends the names that are not in the list, ignoring case.
void addMissing(std::vector<std::wstring>& list, const std::vector<std::wstring>& names);

// All of the above in the order of a picker's list. `usedNames` are those of sectionOfNames(kind);
// `listFolder` holds the text search lists.
std::vector<std::wstring> offeredValues(int kind, int contextCode, const std::vector<std::wstring>& usedNames,
                                        std::wstring_view listFolder);

}  // namespace kiv
