#include "platform/dialog_script.h"

namespace kiv {
namespace {

DialogScript* theScript = nullptr;

}  // namespace

void setDialogScript(DialogScript* script) { theScript = script; }

DialogScript* dialogScript() { return theScript; }

}  // namespace kiv
