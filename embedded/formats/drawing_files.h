#pragma once
// Drawings from files, whatever their format, and new ones.

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "base/result.h"
#include "embedded/drawing/drawing.h"
#include "embedded/drawing/source_bytes.h"

namespace cad::formats {

// A format of files.
struct Format {
  // By the file's first bytes.
  bool (*recognises)(std::string_view bytes);
  // The drawing takes the source over; a refusal, with the place in the file, leaves it.
  base::Result<std::unique_ptr<Drawing>> (*read)(std::unique_ptr<SourceBytes>& source);
};
// From now on files of this format are opened, too; the newest is asked first.
void addFormat(const Format& format);

// The format is told by the file's first bytes. Refused, with the path and the line or byte offset as the
// place: a file that cannot be opened, is in no format that is read here, or is broken.
base::Result<std::unique_ptr<Drawing>> open(const std::filesystem::path& path);
// The same from memory; the drawing has no path.
base::Result<std::unique_ptr<Drawing>> openBytes(std::string bytes);

// An empty drawing with what every drawing has. Refused: a version in which none is made, those before 2000.
base::Result<std::unique_ptr<Drawing>> create(Version version);

}  // namespace cad::formats
