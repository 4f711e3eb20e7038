// Makes the DWG drawing of a plan that make_drawing made: the same objects with the same handles.
//   make_dwg PLAN.dxf OUT.dwg
// Exit status 2: wrong arguments, something that is not copied, or a file cannot be read or written.

#include <cstdio>
#include <stdexcept>

#include "base/codepage.h"
#include "base/files.h"
#include "embedded/formats/drawing_files.h"
#include "tests/embedded/dwg/dwg_copy.h"

int main(int argc, char** argv) {
  if (argc != 3) return std::fprintf(stderr, "make_dwg PLAN.dxf OUT.dwg\n"), 2;
  try {
    const auto plan = cad::formats::open(argv[1]);
    if (!plan.ok()) throw std::runtime_error(base::toUtf8(plan.failure().text()));
    const base::Status written = base::writeFileAtomically(argv[2], cad::dwg::dwgOf(*plan.value()));
    if (!written.ok()) throw std::runtime_error(base::toUtf8(written.failure().text()));
  } catch (const std::exception& error) {
    std::fprintf(stderr, "make_dwg: %s\n", error.what());
    return 2;
  }
  return 0;
}
