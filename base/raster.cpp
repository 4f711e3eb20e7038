#include "base/raster.h"

#include "base/dynamic_library.h"
#include "base/files.h"

namespace base {
namespace {

#ifdef _WIN32
constexpr char kLibrary[] = "kivraster.dll";
#else
constexpr char kLibrary[] = "libkivraster.so";
#endif

constexpr char kAnchor = 0;

// Loaded once; it stays until the process ends.
const Result<std::unique_ptr<DynamicLibrary>>& library() {
  static const Result<std::unique_ptr<DynamicLibrary>> kLoaded =
      DynamicLibrary::load(libraryFile(&kAnchor).parent_path() / kLibrary);
  return kLoaded;
}

}  // namespace

Result<std::unique_ptr<Raster>> createRaster(int width, int height, std::uint32_t background) {
  if (!library()) return library().failure();
  const auto create = library().value()->function<CreateRaster>(kCreateRaster);
  if (create == nullptr) return Failure{pathText(kLibrary), L"This library paints no pictures"};
  std::unique_ptr<Raster> raster(create(width, height, background));
  if (raster == nullptr)
    return Failure{{},
                   L"There is no memory for a picture of " + std::to_wstring(width) + L" by " +
                       std::to_wstring(height) + L" pixels"};
  return raster;
}

}  // namespace base
