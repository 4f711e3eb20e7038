#pragma once
// As much of the framework as the module's sources name, by its public reference: to be compiled against, not
// linked.

#if defined(_WINDOWS_)
#error "<windows.h> is included before the framework's header"
#endif
#if defined(NOMINMAX)
#error "headers of the framework find no macros min and max"
#endif
#define __AFXWIN_H__

#include <windows.h>
// What the framework's header includes after it.
#include <commctrl.h>
#include <commdlg.h>
#include <ole2.h>
#include <richedit.h>
#include <shellapi.h>
#include <shlwapi.h>

// As the system's header makes them; that of MinGW never does where its C++ library is.
#define max(a, b) (((a) > (b)) ? (a) : (b))
#define min(a, b) (((a) < (b)) ? (a) : (b))

class CWnd {
 public:
  HWND m_hWnd;
  CWnd();
  virtual ~CWnd();
  HWND GetSafeHwnd() const;
  BOOL SubclassWindow(HWND window);
  HWND UnsubclassWindow();

 protected:
  virtual BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pLResult);
};
class CFrameWnd : public CWnd {};
class CMDIFrameWnd : public CFrameWnd {};
class CComboBox : public CWnd {};

struct CRuntimeClass;
class COleObjectFactory;
struct AFX_EXTENSION_MODULE {
  BOOL bInitialized;
  HMODULE hModule;
  HMODULE hResource;
  CRuntimeClass* pFirstSharedClass;
  COleObjectFactory* pFirstSharedFactory;
};
BOOL WINAPI AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HMODULE hModule);
void WINAPI AfxTermExtensionModule(AFX_EXTENSION_MODULE& state, BOOL bAll = FALSE);
HINSTANCE WINAPI AfxGetResourceHandle();
void WINAPI AfxSetResourceHandle(HINSTANCE hInstResource);

class CDynLinkLibrary {
 public:
  explicit CDynLinkLibrary(AFX_EXTENSION_MODULE& state, BOOL bSystem = FALSE);
};
