#pragma once
// The windows of the framework that rxmfcapi.h speaks of, as far as the host's frame is one of them. Like the
// framework's own header it includes the system's header itself where it needs it, and must come before it.

#if defined(_WINDOWS_)
#error "<windows.h> is included before the framework's header"
#endif
#define __AFXWIN_H__

struct HWND__;
typedef HWND__* HWND;
struct tagMSG;
typedef tagMSG MSG;
typedef int BOOL;

class CWnd {
 public:
  HWND m_hWnd = nullptr;
  HWND GetSafeHwnd() const { return m_hWnd; }
};
class CFrameWnd : public CWnd {};
class CMDIFrameWnd : public CFrameWnd {};
