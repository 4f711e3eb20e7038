#include <algorithm>

#include "afxwin.h"
#include "embedded/editor/host_state.h"
#include "rxmfcapi.h"

namespace {

void show(const cad::Meter& meter) {
  cad::HostState& state = cad::hostState();
  state.meter = meter;
  if (state.meterObserver) state.meterObserver(state.meter);
}

}  // namespace

int acedSetStatusBarProgressMeter(const ACHAR* label, int least, int most) {
  show({label == nullptr ? L"" : label, least, std::max(least, most), least});
  return 0;
}

int acedSetStatusBarProgressMeterPos(int position) {
  cad::Meter meter = cad::hostState().meter;
  if (meter.least == meter.most) return -1;
  meter.position = std::clamp(position, meter.least, meter.most);
  show(meter);
  return 0;
}

void acedRestoreStatusBar() { show({}); }

HWND adsw_acadMainWnd() { return static_cast<HWND>(cad::hostState().mainWindow); }

CMDIFrameWnd* acedGetAcadFrame() {
  static CMDIFrameWnd frame;
  frame.m_hWnd = adsw_acadMainWnd();
  return frame.m_hWnd == nullptr ? nullptr : &frame;
}

BOOL acedRegisterFilterWinMsg(const AcedFilterWinMsgFn function) {
  std::vector<cad::MessageFilter>& filters = cad::hostState().messageFilters;
  if (function == nullptr || std::ranges::find(filters, function) != filters.end()) return 0;
  filters.push_back(function);
  return 1;
}

BOOL acedRemoveFilterWinMsg(const AcedFilterWinMsgFn function) {
  return std::erase(cad::hostState().messageFilters, function) > 0 ? 1 : 0;
}
