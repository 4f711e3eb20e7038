#include "platform/win32/people.h"

// After the system's header, whose types the host's headers share.
#include "rxmfcapi.h"

namespace kiv::win32 {
namespace {

Attendant* theAttendant = nullptr;

}  // namespace

void setAttendant(Attendant* attendant) { theAttendant = attendant; }

Attendant* attendant() { return theAttendant; }

bool somebodyAnswers() { return theAttendant || adsw_acadMainWnd(); }

}  // namespace kiv::win32
