// There is no window: whoever waits for input waits for the host's own source of it.

#include "platform/host_messages.h"

namespace kiv {

NativeWindow hostFrame() { return nullptr; }

NativeWindow hostMainWindow() { return nullptr; }

void focusHost() {}

void typeIntoHost(std::wstring_view) {}

}  // namespace kiv
