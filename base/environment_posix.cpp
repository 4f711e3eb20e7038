#include "base/environment.h"

namespace base {

std::wstring userInterfaceLanguage() { return {}; }

}  // namespace base
