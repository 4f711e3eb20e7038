#pragma once
// The message boxes of the dialogs.

#include <string>

#include "base/result.h"
#include "platform/dialog_window.h"

namespace kiv {

// What the module calls itself: in the captions of its message boxes and in the batch report.
inline constexpr const wchar_t* kModuleTitle = L"ﾌｧｲﾙ変換ﾕｰﾃｨﾘﾃｨ";

// Both wait for the person; the dialog may be gone afterwards. A question has "no" for the Enter key.
void tell(DialogWindow& window, const std::wstring& text, const wchar_t* caption = kModuleTitle);
bool isAgreed(DialogWindow& window, const std::wstring& question, const wchar_t* caption = kModuleTitle);

// What to tell when the system refuses to write or to delete a file: `what` has failed; under it the path and
// the reason in the person's language, for an unusual one the system's own words.
std::wstring refusalText(const std::wstring& what, const base::Failure& failure);

}  // namespace kiv
