#include "platform/win32/acting.h"

#include <vector>

#include "platform/dialog_backend.h"
#include "platform/dialog_script.h"
#include "platform/host_output.h"
#include "platform/win32/messages.h"
#include "platform/win32/question_hand.h"
#include "platform/win32/window.h"

namespace kiv::win32 {
namespace {

constexpr UINT kActEvery = 10;  // milliseconds

struct Scene {
  HWND dialog = nullptr;
  int acts = 0;
  bool acting = false;
};

// The modal dialogs that are open, the newest last.
std::vector<Scene>& scenes() {
  static std::vector<Scene> open;
  return open;
}

Scene* sceneOf(HWND dialog) {
  for (Scene& scene : scenes())
    if (scene.dialog == dialog) return &scene;
  return nullptr;
}

void letScriptAct(Window& window) {
  DialogScript* script = dialogScript();
  Scene* scene = sceneOf(window.handle());
  const bool isNewest = scene && scene == &scenes().back();
  if (!script || !isNewest || scene->acting || QuestionHand::isAtWork() || !window.isWindowEnabled()) return;
  if (++scene->acts > DialogBackend::kMostActs) {
    reportOnStderr(L"the script does not end the dialog \"" + window.title() + L"\"");
    window.tell([](Dialog& dialog) { DialogBackend::abandon(dialog); });
    return;
  }
  const HWND handle = window.handle();
  scene->acting = true;
  window.tell([&](Dialog&) { guarded([&] { script->act(window); }); });
  if (Scene* after = sceneOf(handle)) after->acting = false;  // the list may have moved
}

void CALLBACK tick(HWND dialog, UINT, UINT_PTR, DWORD) {
  if (Window* window = Window::of(dialog)) guarded([window] { letScriptAct(*window); });
}

}  // namespace

Acting::Acting(HWND dialog) : dialog_(dialog) {
  scenes().push_back({dialog, 0, false});
  SetTimer(dialog_, kActTimer, kActEvery, tick);
}

Acting::~Acting() {
  KillTimer(dialog_, kActTimer);
  scenes().pop_back();
}

}  // namespace kiv::win32
