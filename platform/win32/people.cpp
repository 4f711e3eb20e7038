#include "platform/win32/people.h"

#include "platform/host_messages.h"

namespace kiv::win32 {
namespace {

Attendant* theAttendant = nullptr;

}  // namespace

void setAttendant(Attendant* attendant) { theAttendant = attendant; }

Attendant* attendant() { return theAttendant; }

bool somebodyAnswers() { return theAttendant || hostMainWindow(); }

}  // namespace kiv::win32
