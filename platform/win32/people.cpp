#include "platform/win32/people.h"

#include <windows.h>

#include "platform/dialog_script.h"

// After the system's header, whose types the host's headers share.
#include "rxmfcapi.h"

namespace kiv::win32 {

bool somebodyAnswers() { return dialogScript() || adsw_acadMainWnd(); }

}  // namespace kiv::win32
