#pragma once
// Drawings from files, whatever their format, new ones, and the kinds of files that people name.

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "embedded/drawing/drawing.h"

namespace cad::formats {

// The format is told by the file's first bytes. Refused, with the path and the line or byte offset as the
// place: a file that cannot be opened, is in no format that is read here, or is broken.
base::Result<std::unique_ptr<Drawing>> open(const std::filesystem::path& path);
// The same from memory; the drawing has no path.
base::Result<std::unique_ptr<Drawing>> openBytes(std::string bytes);
// Sentences about what is wrong with the file although it could be read; mostly none.
std::vector<std::wstring> warningsAbout(const Drawing& drawing);

// An empty drawing with what every drawing has. Refused: a version in which none is made, those before 2000.
base::Result<std::unique_ptr<Drawing>> create(Version version);

// Of files that can be opened, with the dot; the usual one first.
std::span<const std::wstring_view> extensions();

enum class FileKind : std::uint8_t { kDwg, kDxf, kDwt };

std::wstring_view kindName(FileKind kind);  // "DXF"; it is the extension, too
// A file of another extension, or of none, is one of the host's own kind.
FileKind kindOf(std::wstring_view extension);  // ".dxf", in any case
// By the word with which the SAVEAS command asks for a kind, in any case.
std::optional<FileKind> kindByWord(std::wstring_view word);
// Whether the drawing can be saved as a file of this kind: a drawing keeps its format.
bool canSave(const Drawing& drawing, FileKind kind);
base::Status checkSavable(const Drawing& drawing, FileKind kind);  // the same with the reason

// A format whose files begin with a mark.
struct Format {
  std::string_view mark;
  base::Result<std::unique_ptr<Drawing>> (*read)(std::shared_ptr<const SourceBytes> source);
};
// While it lives, files of this format are opened, too.
class FormatForTests {
 public:
  explicit FormatForTests(const Format& format);
  ~FormatForTests();
  FormatForTests(const FormatForTests&) = delete;
  FormatForTests& operator=(const FormatForTests&) = delete;

 private:
  std::string_view mark_;
};

}  // namespace cad::formats
