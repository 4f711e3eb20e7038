#pragma once
// The host's window and status bar.

#include "AdAChar.h"

struct HWND__;
typedef HWND__* HWND;

// The host's main frame; only its window handle is offered.
class CMDIFrameWnd {
 public:
  HWND m_hWnd = nullptr;
  HWND GetSafeHwnd() const { return m_hWnd; }
};

CMDIFrameWnd* acedGetAcadFrame();  // NULL in a host without a window
extern "C" HWND adsw_acadMainWnd();

// 0 on success. Positions run from `least` to `most`.
int acedSetStatusBarProgressMeter(const ACHAR* label, int least, int most);
int acedSetStatusBarProgressMeterPos(int position);
void acedRestoreStatusBar();
