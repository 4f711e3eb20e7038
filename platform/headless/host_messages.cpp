// There is no window: whoever waits for input waits for the host's own source of it. The meter is the host's
// even so; it may be watched.

#include "platform/host_messages.h"

#include "afxwin.h"
#include "platform/progress_meter.h"
#include "rxmfcapi.h"

namespace kiv {

NativeWindow hostFrame() { return nullptr; }

NativeWindow hostMainWindow() { return nullptr; }

void focusHost() {}

void typeIntoHost(std::wstring_view) {}

void startMeter(const std::wstring& label, int steps) {
  acedSetStatusBarProgressMeter(label.c_str(), 0, steps);
}

void moveMeter(int step) { acedSetStatusBarProgressMeterPos(step); }

void endMeter() { acedRestoreStatusBar(); }

}  // namespace kiv
