#include <cwchar>
#include <string>

#include "acutads.h"
#include "adscodes.h"
#include "base/paths.h"
#include "platform/host_messages.h"
#include "platform/host_output.h"
#include "platform/host_variables.h"
#include "platform/screen_scale.h"
#include "platform/settings.h"
#include "siblings/KivFile/exports.h"
#include "siblings/KivFile/open_dialog.h"
#include "siblings/KivFile/resource.h"

namespace kiv {
namespace {

// Null: the host could not make it.
resbuf* listOf(const ChosenDrawings& choice) {
  resbuf* const first =
      acutBuildList(RTSHORT, static_cast<int>(choice.names.size()), RTLONG, static_cast<int>(choice.format),
                    RTLONG, 0, RTSTR, choice.folder.c_str(), RTNONE);
  resbuf* last = first;
  while (last != nullptr && last->rbnext != nullptr) last = last->rbnext;
  for (const std::wstring& name : choice.names) {
    if (last == nullptr) break;
    last->rbnext = acutBuildList(RTSTR, name.c_str(), RTNONE);
    last = last->rbnext;
  }
  if (last == nullptr && first != nullptr) acutRelRb(first);
  return last == nullptr ? nullptr : first;
}

resbuf* choose(NativeWindow owner, const wchar_t* title) {
  const NativeWindow over = owner ? owner : hostFrame();
  initScreenScale(over);
  std::wstring start = textVariable(L"DWGPREFIX").value_or(L"");
  if (start.empty()) start = base::fullPath(L".");
  OpenDialog dialog(title ? title : L"", std::move(start), saveableFormats());
  const int result = dialog.runModal(over);
  if (result == Dialog::kNotShown) printError(L"図面を選択するﾀﾞｲｱﾛｸﾞを表示できません.");
  return result == IDOK ? listOf(dialog.choice()) : nullptr;
}

}  // namespace
}  // namespace kiv

resbuf* dll_kiv_openmulti(void* owner, const wchar_t* title) {
  resbuf* const chosen = kiv::guarded<resbuf*>(nullptr, [&] { return kiv::choose(owner, title); });
  // The caller may let this library go now.
  kiv::guarded([] {
    kiv::releaseDialogs();
    kiv::closeSettingsStore();
  });
  return chosen;
}
