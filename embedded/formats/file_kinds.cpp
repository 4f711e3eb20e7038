#include "embedded/formats/file_kinds.h"

#include "base/fold.h"
#include "embedded/drawing/drawing.h"

namespace cad::formats {
namespace {

struct KindRow {
  std::wstring_view name, format;
};

constexpr KindRow kKinds[] = {{L"DWG", L"DWG"}, {L"DXF", L"DXF"}, {L"DWT", L"DWG"}};

const KindRow& row(FileKind kind) { return kKinds[static_cast<std::size_t>(kind)]; }

}  // namespace

std::wstring_view kindName(FileKind kind) { return row(kind).name; }

FileKind kindOf(std::wstring_view extension) {
  return base::equalFolded(extension, L".DXF") ? FileKind::kDxf : FileKind::kDwg;
}

bool canSave(const Drawing& drawing, FileKind kind) { return drawing.format() == row(kind).format; }

}  // namespace cad::formats
