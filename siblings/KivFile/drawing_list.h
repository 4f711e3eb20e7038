#pragma once
// The drawings of a folder as a person looks at them: filtered by name, sorted by a column.

#include <cstdint>
#include <ctime>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "siblings/KivFile/drawing_probe.h"

namespace kiv {

struct ListedDrawing {
  std::wstring name;
  std::uint64_t size = 0;  // bytes
  std::time_t modified = 0;
  std::optional<DrawingRelease> release = {};  // none: not looked at yet
};

// Of a drawing, an exchange file or a template, by its extension.
bool hasNameOfDrawing(std::wstring_view name);

// As people count: "A2" stands before "A10"; case does not matter.
bool precedesInLists(std::wstring_view one, std::wstring_view other);

// Whether the name is wanted by one of the filter's patterns, which ";" separates, ignoring case. In a
// pattern "*" stands for any characters and "?" for one; one without either is looked for anywhere in the
// name. An empty filter wants every name.
bool isWanted(std::wstring_view name, std::wstring_view filter);

enum class DrawingColumn { kName, kRelease, kSize, kModified };
inline constexpr int kDrawingColumns = 4;

struct DrawingOrder {
  DrawingColumn column = DrawingColumn::kName;
  bool ascending = true;
};

// The texts of its row, by the columns.
std::vector<std::wstring> cellsOf(const ListedDrawing& drawing);

// The indexes of the wanted drawings, in that order; equal ones by name.
std::vector<std::size_t> arranged(const std::vector<ListedDrawing>& drawings, std::wstring_view filter,
                                  const DrawingOrder& order);

}  // namespace kiv
