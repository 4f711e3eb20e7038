#include "platform/release.h"

#include "platform/dialog_backend.h"
#include "platform/settings.h"

namespace kiv {

void releasePlatform() {
  DialogBackend::release();
  closeSettingsStore();
}

}  // namespace kiv
