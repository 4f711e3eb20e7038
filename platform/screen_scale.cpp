#include "platform/screen_scale.h"

namespace kiv {
namespace {

int dpi = kReferenceDpi;

}  // namespace

void initScreenScale(void* window) {
  const int answer = monitorDpi(window);
  dpi = answer > 0 ? answer : kReferenceDpi;
}

int screenDpi() { return dpi; }

int scaled(int pixels) {
  const int half = pixels < 0 ? -kReferenceDpi / 2 : kReferenceDpi / 2;
  return (pixels * dpi + half) / kReferenceDpi;
}

}  // namespace kiv
