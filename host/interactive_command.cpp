// KIV_TOACAD in a host that cannot show the main dialog.

#include "host/commands.h"
#include "platform/host_output.h"

namespace kiv {

void interactiveCommand() { printOnCommandLine(L"\nこのﾎｽﾄではﾀﾞｲｱﾛｸﾞを使用できません."); }

}  // namespace kiv
