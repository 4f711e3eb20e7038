#include "tests/embedded/memory/tested_storage.h"

#include <cstdlib>
#include <stdexcept>
#include <string_view>
#include <utility>

#include "embedded/dxf/loader.h"
#include "embedded/formats/drawing_files.h"
#include "tests/embedded/dwg/dwg_copy.h"
#include "tests/embedded/memory/memory_drawing.h"

namespace cad {
namespace {

constexpr std::string_view kMark = "Drawing in memory, made of\n";

base::Result<std::unique_ptr<Drawing>> readInMemory(std::shared_ptr<const SourceBytes> source) {
  auto drawing = dxf::loadBytes(std::string(source->view().substr(kMark.size())));
  if (!drawing) return drawing.failure();
  return memory::copyOf(*drawing.value());
}

}  // namespace

TestedStorage testedStorage() {
  const char* value = std::getenv("KIV_TEST_STORAGE");
  const std::string_view storage = value == nullptr ? "" : value;
  return storage == "memory" ? TestedStorage::kMemory
         : storage == "dwg"  ? TestedStorage::kDwg
                             : TestedStorage::kDxf;
}

std::unique_ptr<Drawing> tested(std::unique_ptr<Drawing> drawing) {
  if (testsDxf() || !drawing) return drawing;
  if (testsMemory()) return memory::copyOf(*drawing);
  auto copy = formats::openBytes(dwg::dwgOf(*drawing));
  if (!copy.ok()) throw std::logic_error(base::toUtf8(copy.failure().text()));
  return std::move(copy.value());
}

std::string testedFile(const std::string& dxf) {
  if (testsDxf()) return dxf;
  if (testsMemory()) {
    static const formats::FormatForTests known({kMark, readInMemory});
    return std::string(kMark) + dxf;
  }
  const auto drawing = dxf::loadBytes(dxf);
  if (!drawing) throw std::logic_error("the test's drawing is refused");
  return dwg::dwgOf(*drawing.value());
}

}  // namespace cad
