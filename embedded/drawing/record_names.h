#pragma once
// Which names the records of tables may have.

#include <string_view>

namespace cad {

// Control characters and those that the host keeps for wildcards, paths and lists.
bool hasForbiddenCharacter(std::wstring_view name);

// A name that a person or a program may give: 1 to 255 characters, none forbidden, no blank at either end. A
// vertical bar, as in the names of an external reference's records (NAME|LAYER), stands inside only where
// `withBar` allows one.
bool isRecordName(std::wstring_view name, bool withBar = false);

}  // namespace cad
