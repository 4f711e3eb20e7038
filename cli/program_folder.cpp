#include "cli/program_folder.h"

#include <cstdlib>
#include <system_error>

namespace kivcli {

std::filesystem::path programFolder() {
#ifdef _WIN32
  wchar_t* program = nullptr;
  if (_get_wpgmptr(&program) != 0 || program == nullptr) return {};
  return std::filesystem::path(program).parent_path();
#else
  std::error_code error;
  return std::filesystem::read_symlink("/proc/self/exe", error).parent_path();
#endif
}

}  // namespace kivcli
