#include "tools/screenshots/camera.h"

#include <cstdio>
#include <fstream>
#include <utility>
#include <vector>

#include "platform/win32/hands.h"

namespace {

constexpr UINT kLookEvery = 100;  // milliseconds
constexpr int kLooks = 4;
constexpr DWORD kUntilPainted = 150;

Camera* theCamera = nullptr;

bool isMenu(HWND window) { return kiv::win32::isOfClass(window, L"#32768") && IsWindowVisible(window); }
bool isDroppedList(HWND window) {
  return kiv::win32::isOfClass(window, L"ComboLBox") && IsWindowVisible(window);
}

BOOL CALLBACK addPopUp(HWND window, LPARAM data) {
  auto& area = *reinterpret_cast<RECT*>(data);
  RECT rect{};
  if ((isMenu(window) || isDroppedList(window)) && GetWindowRect(window, &rect))
    UnionRect(&area, &area, &rect);
  return TRUE;
}

BOOL CALLBACK countMenu(HWND window, LPARAM data) {
  if (isMenu(window)) ++*reinterpret_cast<int*>(data);
  return TRUE;
}

bool writeBitmap(const std::filesystem::path& path, const BITMAPINFOHEADER& info,
                 const std::vector<char>& pixels) {
  BITMAPFILEHEADER head{};
  head.bfType = 0x4D42;  // "BM"
  head.bfOffBits = sizeof head + sizeof info;
  head.bfSize = static_cast<DWORD>(head.bfOffBits + pixels.size());
  std::ofstream file(path, std::ios::binary);
  file.write(reinterpret_cast<const char*>(&head), sizeof head);
  file.write(reinterpret_cast<const char*>(&info), sizeof info);
  file.write(pixels.data(), static_cast<std::streamsize>(pixels.size()));
  return file.good();
}

// Off the screen, so that what covers what is as a person sees it.
bool photograph(const RECT& area, const std::filesystem::path& path) {
  const int width = area.right - area.left, height = area.bottom - area.top;
  const HDC screen = GetDC(nullptr);
  const HDC canvas = CreateCompatibleDC(screen);
  const HBITMAP bitmap = CreateCompatibleBitmap(screen, width, height);
  const HGDIOBJ before = SelectObject(canvas, bitmap);
  BitBlt(canvas, 0, 0, width, height, screen, area.left, area.top, SRCCOPY);
  SelectObject(canvas, before);

  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = width;
  info.bmiHeader.biHeight = height;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  std::vector<char> pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 4);
  const int lines =
      GetDIBits(canvas, bitmap, 0, static_cast<UINT>(height), pixels.data(), &info, DIB_RGB_COLORS);
  DeleteDC(canvas);
  DeleteObject(bitmap);
  ReleaseDC(nullptr, screen);
  return lines == height && writeBitmap(path, info.bmiHeader, pixels);
}

}  // namespace

Camera::Camera(std::filesystem::path folder) : folder_(std::move(folder)) {
  theCamera = this;
  timer_ = SetTimer(nullptr, 0, kLookEvery, tick);
}

Camera::~Camera() {
  KillTimer(nullptr, timer_);
  theCamera = nullptr;
}

void Camera::when(std::function<bool()> isOpen, std::function<void()> action) {
  isOpen_ = std::move(isOpen);
  action_ = std::move(action);
  looksOpen_ = 0;
}

void CALLBACK Camera::tick(HWND, UINT, UINT_PTR, DWORD) {
  if (theCamera) theCamera->look();
}

void Camera::look() {
  if (!action_) return;
  looksOpen_ = isOpen_() ? looksOpen_ + 1 : 0;
  if (looksOpen_ < kLooks) return;
  const auto action = std::exchange(action_, nullptr);
  action();
}

// The caret goes: whether it can be seen at a moment is chance.
void Camera::take(HWND window, const std::string& name) {
  RECT area{};
  GetWindowRect(window, &area);
  EnumThreadWindows(GetCurrentThreadId(), addPopUp, reinterpret_cast<LPARAM>(&area));
  DestroyCaret();
  RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
  // Wine brings to the screen what has been painted only when a thread waits for messages; none is taken
  // here.
  MsgWaitForMultipleObjects(0, nullptr, FALSE, kUntilPainted, 0);
  if (photograph(area, folder_ / (name + ".bmp"))) return;
  std::fprintf(stderr, "screenshots: no picture of %s\n", name.c_str());
  failed_ = true;
}

int openMenus() {
  int count = 0;
  EnumThreadWindows(GetCurrentThreadId(), countMenu, reinterpret_cast<LPARAM>(&count));
  return count;
}
