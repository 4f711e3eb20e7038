// Saves a new drawing of each version that can be made as CODE.dxf in the folder that is given.

#include <cstdio>

#include "embedded/formats/drawing_files.h"

int main(int count, char** arguments) {
  if (count != 2) return 2;
  int made = 0;
  for (int number = 0; number < static_cast<int>(cad::Version::kUnknown); ++number) {
    const auto version = static_cast<cad::Version>(number);
    const auto drawing = cad::formats::create(version);
    if (!drawing) continue;
    const std::filesystem::path folder = arguments[1];
    if (!drawing.value()->save(folder / (std::string(base::versionCode(version)) + ".dxf"))) return 1;
    ++made;
  }
  std::printf("%d drawings\n", made);
  return 0;
}
