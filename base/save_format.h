#pragma once
// The formats in which a conversion saves drawings, and the names of the files.

#include <optional>
#include <string>
#include <string_view>

namespace base {

// The numbers are those of the module's automation entry.
enum class SaveFormat { kDwg = 0, kDxf = 1, kDwt = 2 };

// Nothing unless the number is 0 to 2.
std::optional<SaveFormat> saveFormat(int number);

// By the name's extension, in any case; nothing for another extension.
std::optional<SaveFormat> saveFormatOf(std::wstring_view fileName);

// The name of the file that a drawing of this name is saved as, both without their folders: with the format's
// extension in place of one of three characters.
std::wstring savedName(std::wstring_view drawingName, SaveFormat format);

}  // namespace base
