#pragma once
// The formats in which a conversion saves drawings, and the names of the files.

#include <filesystem>
#include <map>
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

// By what is in the drawing file, whatever it is called; its name tells a template from a drawing, and the
// format of one that is missing, empty or cannot be read. Nothing: a pipe or a device, which only reading
// tells, or no format at all.
std::optional<SaveFormat> saveFormatOfFile(const std::filesystem::path& file);

// The name of the file that a drawing of this name is saved as, both without their folders: with the format's
// extension in place of one of three characters.
std::wstring savedName(std::wstring_view drawingName, SaveFormat format);

// The names of the files that the drawings of one conversion become, in one folder. Case does not count on
// any system, because the folder may later stand on one where it does not.
class SavedNames {
 public:
  // The drawing that is saved by this name already; empty: from now on it is `drawing`.
  std::wstring take(std::wstring_view savedName, const std::wstring& drawing);

 private:
  std::map<std::wstring, std::wstring> drawings_;  // by the folded names
};

}  // namespace base
