// KIV_TOACAD in a host that cannot show the main dialog.

#include "host/commands.h"
#include "host/guard.h"
#include "platform/host_output.h"

namespace kiv {

void interactiveCommand() {
  guarded([] { printOnCommandLine(L"\nこのﾎｽﾄではﾀﾞｲｱﾛｸﾞを使用できません."); });
}

}  // namespace kiv
