#include "platform/win32/question_hand.h"

#include <cstdio>

#include "platform/dialog_script.h"
#include "platform/host_output.h"

namespace kiv::win32 {
namespace {

constexpr UINT kStepEvery = 10;          // milliseconds
constexpr ULONGLONG kPatience = 20'000;  // milliseconds

QuestionHand* newest = nullptr;

struct Search {
  const wchar_t* windowClass;
  bool (*fits)(HWND, void*);
  void* context;
  HWND found;
};

BOOL CALLBACK lookAt(HWND window, LPARAM data) {
  auto& search = *reinterpret_cast<Search*>(data);
  if (!IsWindowVisible(window) || !isOfClass(window, search.windowClass)) return TRUE;
  if (!search.fits(window, search.context)) return TRUE;
  search.found = window;
  return FALSE;
}

}  // namespace

QuestionHand::QuestionHand() : before_(newest) { newest = this; }

QuestionHand::~QuestionHand() {
  if (timer_) KillTimer(nullptr, timer_);
  newest = before_;
}

bool QuestionHand::isAtWork() { return newest != nullptr; }

void QuestionHand::begin() {
  deadline_ = GetTickCount64() + kPatience;
  timer_ = SetTimer(nullptr, 0, kStepEvery, tick);
}

void CALLBACK QuestionHand::tick(HWND, UINT, UINT_PTR timer, DWORD) {
  if (newest && newest->timer_ == timer) newest->work();
}

void QuestionHand::work() {
  if (stepping_) return;
  stepping_ = true;
  guarded([this] { goOn(); });
  stepping_ = false;
}

void QuestionHand::goOn() {
  if (!done_) done_ = step();
  if (GetTickCount64() > deadline_) {
    report(L"no answer could be given to " + name());
    done_ = true;
    giveUp();
    deadline_ = GetTickCount64() + kPatience;
  }
}

void QuestionHand::report(const std::wstring& reason) {
  reportOnStderr(reason);
  if (DialogScript* script = dialogScript()) script->failed(reason);
}

void reportOnStderr(std::wstring_view message) {
  const int bytes = WideCharToMultiByte(CP_UTF8, 0, message.data(), static_cast<int>(message.size()), nullptr,
                                        0, nullptr, nullptr);
  std::string narrow(static_cast<std::size_t>(bytes), '\0');
  WideCharToMultiByte(CP_UTF8, 0, message.data(), static_cast<int>(message.size()), narrow.data(), bytes,
                      nullptr, nullptr);
  std::fprintf(stderr, "kiv: %s\n", narrow.c_str());
}

HWND findOwnWindow(const wchar_t* windowClass, bool (*fits)(HWND, void*), void* context) {
  Search search{windowClass, fits, context, nullptr};
  EnumThreadWindows(GetCurrentThreadId(), lookAt, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

bool pressButton(HWND dialog, int id) {
  const HWND button = GetDlgItem(dialog, id);
  if (!button || !IsWindowVisible(button) || !IsWindowEnabled(button)) return false;
  PostMessageW(button, BM_CLICK, 0, 0);
  return true;
}

}  // namespace kiv::win32
