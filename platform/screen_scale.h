#pragma once
// How large a dialog unit is on the monitor that shows the host.

namespace kiv {

inline constexpr int kReferenceDpi = 96;

// Takes the resolution of the monitor with this window (the host's main window; null: the main monitor).
void initScreenScale(void* window);

int screenDpi();

// Pixels of the reference resolution in pixels of the monitor, rounded.
int scaled(int pixels);

// The system's answer; 96 where there is no monitor.
int monitorDpi(void* window);

}  // namespace kiv
