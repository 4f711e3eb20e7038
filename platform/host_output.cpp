#include "platform/host_output.h"

#include <string>

namespace kiv {

void printError(std::wstring_view text) { printOnCommandLine(L"\nKivｴﾗｰ:" + std::wstring(text)); }

}  // namespace kiv
