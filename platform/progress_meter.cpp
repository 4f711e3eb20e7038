#include "platform/progress_meter.h"

#include "afxwin.h"
#include "rxmfcapi.h"

namespace kiv {

void startMeter(const std::wstring& label, int steps) {
  acedSetStatusBarProgressMeter(label.c_str(), 0, steps);
}

void moveMeter(int step) { acedSetStatusBarProgressMeterPos(step); }

void endMeter() { acedRestoreStatusBar(); }

}  // namespace kiv
