#pragma once
// DXF files as drawings: text and binary, R12 to the newest.

#include <memory>
#include <string>

#include "base/result.h"
#include "embedded/drawing/drawing.h"
#include "embedded/drawing/drawing_file.h"

namespace cad::dxf {

// Refused, with the line (text) or byte offset (binary) as the place: what is not DXF, has a bad group code,
// or ends before EOF. A file that only lacks EOF or a part of it behind its last whole section, that of the
// entities being there, is read; DrawingFacts::lacksEnd says so.
base::Result<std::unique_ptr<Drawing>> read(std::shared_ptr<const SourceBytes> source);
// The same from memory.
base::Result<std::unique_ptr<Drawing>> loadBytes(std::string bytes);
// An empty drawing of a version from 2000 on: ANSI_932, the tables that every drawing has.
std::unique_ptr<Drawing> newDrawing(Version version);

}  // namespace cad::dxf
