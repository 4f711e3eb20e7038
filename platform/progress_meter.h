#pragma once
// The meter in the host's status bar.

#include <string>

namespace kiv {

void startMeter(const std::wstring& label, int steps);  // at step 0
void moveMeter(int step);
void endMeter();  // the status bar shows again what it showed before; nothing when no meter was started

}  // namespace kiv
