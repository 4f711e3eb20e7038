#pragma once
// Gives the dialog script's answers to questions that windows of the system ask.

#include "platform/win32/people.h"
#include "platform/win32/system.h"

namespace kiv::win32 {

// While one of these lives, step() runs again and again inside the question's own message loop until it
// says that the answer is given. A question that stays open is closed, and the script hears of it, so that a
// session never hangs.
class QuestionHand : public Attendance {
 public:
  ~QuestionHand() override;

  // Whether a question is waiting for its answer.
  static bool isAtWork();

 protected:
  QuestionHand();
  // Called once before the question is asked; steps come from then on.
  void begin();
  // True: done. The question's window closes by itself then.
  virtual bool step() = 0;
  // Closes the question without an answer.
  virtual void giveUp() = 0;
  virtual std::wstring name() const = 0;

  // Tells the script, and stderr, what went another way than it said.
  static void report(const std::wstring& reason);

 private:
  static void CALLBACK tick(HWND, UINT, UINT_PTR, DWORD);
  void work();
  void goOn();

  QuestionHand* before_;
  UINT_PTR timer_ = 0;
  ULONGLONG deadline_ = 0;
  bool done_ = false;
  bool stepping_ = false;
};

// Tells whoever watches a scripted session what went wrong in it.
void reportOnStderr(std::wstring_view message);

// The newest dialog of the system, or one of a class, that this thread shows; null when there is none.
HWND findOwnWindow(const wchar_t* windowClass, bool (*fits)(HWND, void*), void* context);

// Presses a button of a dialog as a click does; false while it is not there, hidden or disabled.
bool pressButton(HWND dialog, int id);

}  // namespace kiv::win32
