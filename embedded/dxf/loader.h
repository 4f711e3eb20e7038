#pragma once
// DXF files as drawings: text and binary, R12 to the newest.

#include <filesystem>
#include <memory>
#include <string>

#include "base/result.h"
#include "embedded/drawing/drawing.h"

namespace cad::dxf {

// Refused, with the path and the line (text) or byte offset (binary) as the place: a file that cannot be
// opened, is not DXF, has a bad group code, or ends before EOF. One that only lacks EOF or a part of it
// behind its last whole section, that of the entities being there, is read; DrawingFacts::warning says so.
base::Result<std::unique_ptr<Drawing>> load(const std::filesystem::path& path);
// The same from memory; the drawing has no path.
base::Result<std::unique_ptr<Drawing>> loadBytes(std::string bytes);
// An empty drawing: AC1018, ANSI_932, the tables that every drawing has.
std::unique_ptr<Drawing> newDrawing();

}  // namespace cad::dxf
