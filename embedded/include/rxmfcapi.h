#pragma once
// The host's window and status bar.

#include "AdAChar.h"

struct HWND__;
typedef HWND__* HWND;
struct tagMSG;
typedef tagMSG MSG;
typedef int BOOL;

// The host's main frame; only its window handle is offered.
class CMDIFrameWnd {
 public:
  HWND m_hWnd = nullptr;
  HWND GetSafeHwnd() const { return m_hWnd; }
};

CMDIFrameWnd* acedGetAcadFrame();  // NULL in a host without a window
extern "C" HWND adsw_acadMainWnd();

// A function that sees each message of the host's loop before it is dispatched, and returns TRUE to keep it.
// The one registered last is asked first. False: the function is registered already, or is not.
typedef BOOL (*AcedFilterWinMsgFn)(MSG* message);
BOOL acedRegisterFilterWinMsg(const AcedFilterWinMsgFn function);
BOOL acedRemoveFilterWinMsg(const AcedFilterWinMsgFn function);

// 0 on success. Positions run from `least` to `most`.
int acedSetStatusBarProgressMeter(const ACHAR* label, int least, int most);
int acedSetStatusBarProgressMeterPos(int position);
void acedRestoreStatusBar();
