#pragma once
// The host's window and status bar. The framework's header comes first.

#include "AdAChar.h"

#if !defined(__AFXWIN_H__)
#error "rxmfcapi.h needs the framework: include afxwin.h before it"
#endif

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
