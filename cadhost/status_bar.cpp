#include "cadhost/status_bar.h"

#include <commctrl.h>

#include <cwchar>

#include "cadhost/resource.h"
#include "cadhost/window_support.h"

namespace cadhost {
namespace {

constexpr int kPointWidth = 300, kMeterWidth = 240, kLabelWidth = 160, kFontSize = 90;

}  // namespace

StatusBar::~StatusBar() {
  if (font_ != nullptr) DeleteObject(font_);
}

bool StatusBar::create(HWND parent) {
  window_ =
      CreateWindowExW(0, STATUSCLASSNAMEW, L"", WS_CHILD | WS_VISIBLE | SBARS_SIZEGRIP, 0, 0, 0, 0, parent,
                      reinterpret_cast<HMENU>(static_cast<INT_PTR>(IDC_STATUS)), nullptr, nullptr);
  if (window_ == nullptr) return false;
  meter_ = CreateWindowExW(0, PROGRESS_CLASSW, L"", WS_CHILD | PBS_SMOOTH, 0, 0, 0, 0, window_,
                           reinterpret_cast<HMENU>(static_cast<INT_PTR>(IDC_METER)), nullptr, nullptr);
  applyFont();
  return meter_ != nullptr;
}

void StatusBar::applyFont() {
  if (font_ != nullptr) DeleteObject(font_);
  font_ = makeFont(window_, L"MS UI Gothic", kFontSize);
  SendMessageW(window_, WM_SETFONT, reinterpret_cast<WPARAM>(font_), TRUE);
}

void StatusBar::layOut() {
  SendMessageW(window_, WM_SIZE, 0, 0);
  RECT area{};
  GetClientRect(window_, &area);
  const int last = area.right - scaled(window_, kMeterWidth);
  const int wide = last - scaled(window_, kLabelWidth), narrow = scaled(window_, kPointWidth);
  const int first = batch_.empty() || wide < narrow ? narrow : wide;
  int edges[] = {first, last > first ? last : first, -1};
  SendMessageW(window_, SB_SETPARTS, 3, reinterpret_cast<LPARAM>(edges));
  RECT part{};
  SendMessageW(window_, SB_GETRECT, 2, reinterpret_cast<LPARAM>(&part));
  InflateRect(&part, -2, -2);
  MoveWindow(meter_, part.left, part.top, part.right - part.left - scaled(window_, 18),
             part.bottom - part.top, TRUE);
}

int StatusBar::height() const {
  RECT area{};
  GetWindowRect(window_, &area);
  return area.bottom - area.top;
}

void StatusBar::showBatch(const std::wstring& text, bool isRunning) {
  isBatchRunning_ = isRunning;
  const bool other = text.empty() != batch_.empty();
  if (text == batch_) return;
  batch_ = text;
  if (other) layOut();
  SendMessageW(window_, SB_SETTEXTW, 0, reinterpret_cast<LPARAM>(batch_.c_str()));
  UpdateWindow(window_);
}

void StatusBar::showPoint(DrawingPoint point, double pixelsPerUnit) {
  if (isBatchRunning_) return;
  showBatch({}, false);
  const int digits = pixelsPerUnit > 1000 ? 8 : 4;
  wchar_t text[128];
  std::swprintf(text, std::size(text), L"X = %.*f   Y = %.*f", digits, point.x, digits, point.y);
  SendMessageW(window_, SB_SETTEXTW, 0, reinterpret_cast<LPARAM>(text));
}

void StatusBar::showMeter(const cad::Meter& meter) {
  const long long range = static_cast<long long>(meter.most) - meter.least;
  const int share =
      range <= 0 ? -1
                 : static_cast<int>((static_cast<long long>(meter.position) - meter.least) * 100 / range);
  if (share == shown_ && share != 0) return;
  shown_ = share;
  SendMessageW(window_, SB_SETTEXTW, 1, reinterpret_cast<LPARAM>(meter.label.c_str()));
  SendMessageW(meter_, PBM_SETPOS, share < 0 ? 0 : share, 0);
  ShowWindow(meter_, share < 0 ? SW_HIDE : SW_SHOWNA);
  UpdateWindow(window_);
  UpdateWindow(meter_);
}

}  // namespace cadhost
