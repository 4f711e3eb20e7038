// Dialogs without windows of the system, beside a host without one.

#include <cstdio>

#include "platform/dialog_backend.h"
#include "platform/dialog_script.h"
#include "platform/headless/desktop.h"
#include "platform/host_documents.h"
#include "platform/host_messages.h"
#include "platform/screen_scale.h"

namespace kiv {

using headless::desktop;
using headless::MemoryWindow;

bool DialogBackend::isScripted() { return dialogScript() != nullptr; }

bool DialogBackend::canShow() { return isScripted(); }

std::unique_ptr<DialogWindow> DialogBackend::createWindow(Dialog& dialog, NativeWindow owner) {
  const headless::DialogResource* resource = headless::resourceScript().findDialog(dialog.resource());
  if (!resource) return nullptr;
  auto window = std::make_unique<MemoryWindow>(dialog, *resource, headless::findWindow(owner));
  desktop().add(*window);
  return window;
}

void DialogBackend::runModal(Dialog& dialog, NativeWindow owner) {
  const headless::OwnerDisabled disabled(owner);
  dialog.window().show(true);
  desktop().runNested([&dialog] {
    desktop().run([] {});  // what onInit() has posted
    for (int acts = 0; !hasEnded(dialog); ++acts) {
      DialogScript* script = dialogScript();
      if (!script || acts == kMostActs) {
        std::fprintf(stderr, "Dialog %d is given up: nobody ends it.\n", dialog.resource());
        abandon(dialog);
      } else {
        desktop().run([&] { script->act(dialog.window()); });
      }
    }
  });
  dialog.window().show(false);
}

void DialogBackend::destroyWindow(std::unique_ptr<DialogWindow> window) {
  std::unique_ptr<MemoryWindow> going(static_cast<MemoryWindow*>(window.release()));
  desktop().runAlone([&going] {
    for (MemoryWindow* owned : desktop().ownedBy(*going)) {
      // One that is destroyed may take others along.
      if (headless::findWindow(owned) && owned->dialog()) ownerGoes(*owned->dialog());
    }
    desktop().remove(std::move(going));
  });
}

void DialogBackend::release() { headless::releaseIdleDesktop(); }

NativeWindow hostFrame() { return nullptr; }

NativeWindow hostMainWindow() { return nullptr; }

void focusHost() {}

void typeIntoHost(std::wstring_view text) { sendToCurrentDocument(text); }

int monitorDpi(void*) { return kReferenceDpi; }

}  // namespace kiv
