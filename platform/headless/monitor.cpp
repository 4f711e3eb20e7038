#include "platform/screen_scale.h"

namespace kiv {

int monitorDpi(void*) { return kReferenceDpi; }

}  // namespace kiv
