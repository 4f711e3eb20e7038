#pragma once
// A drawing that a call looks at and does not change.

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "embedded/drawing/drawing.h"

namespace kivcli {

// Null when it cannot be read. That, and what a reader should know of one that can, was told on standard
// error.
std::unique_ptr<cad::Drawing> openDrawing(const std::wstring& file);

// What a reader should know of a drawing that could be read, on standard error.
void warnAbout(const std::wstring& file, const cad::Drawing& drawing);

// A pipe or a device: it can be read once, and waits for whoever writes to it.
bool isStream(const std::wstring& file);
// Empty, or that `file` is one, for calls that read drawings more than once.
std::wstring whyNotReadTwice(const std::wstring& file);

// Where the fonts of pictures of it are looked for: beside it, then along the support path.
std::vector<std::filesystem::path> fontFoldersOf(const std::wstring& file);

}  // namespace kivcli
