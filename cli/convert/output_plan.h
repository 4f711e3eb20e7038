#pragma once
// Which file each drawing becomes, and which drawings must not be converted because of that.

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "cli/arguments.h"
#include "cli/convert/drawing_list.h"

namespace kivcli {

struct PlannedDrawing {
  std::wstring given;  // as the user named it
  // In the output folder as the user named it; without a folder the file's name alone; empty: it is looked at
  // and would not be saved.
  std::filesystem::path target;
  SaveFormat format = SaveFormat::kDxf;
  std::wstring refusal;             // empty, or why the drawing is left alone
  std::size_t pictureBytes = 0;     // what each picture for the report may take; 0: none is wanted
  bool keepsUnknownFormat = false;  // only reading tells it: a pipe; until then the target has that of DXF
};

// What the drawing becomes in `folder`: of the format asked for, else of its own, which its content tells.
PlannedDrawing planOutput(const ListedDrawing& drawing, const std::filesystem::path& folder,
                          std::optional<SaveFormat> asked);
// The target follows.
void setFormat(PlannedDrawing& planned, SaveFormat format);

// Names are compared ignoring case on every system, because the output folder may later stand on one that
// does. Refused: a target that is one of the drawings given, one that is a link or that links lead out of the
// output folder, and the second drawing that has the same target.
std::vector<PlannedDrawing> planOutputs(const std::vector<ListedDrawing>& drawings,
                                        const std::filesystem::path& outputFolder,
                                        std::optional<SaveFormat> format);

// The drawings of one part. What is refused is decided before on the whole list: parts do not differ in it.
std::vector<PlannedDrawing> partOf(std::vector<PlannedDrawing> plan, const Shard& shard);

}  // namespace kivcli
