#pragma once
// Pictures of windows on the screen.

#include <windows.h>

#include <filesystem>
#include <functional>
#include <string>

// Each picture becomes a file of that name, with the extension ".bmp", in the folder.
class Camera {
 public:
  explicit Camera(std::filesystem::path folder);
  ~Camera();
  Camera(const Camera&) = delete;
  Camera& operator=(const Camera&) = delete;

  // The window with everything that has popped up over it: menus and lists that are open.
  void take(HWND window, const std::string& name);

  // Runs `action` in the message loop of what opens next (a modal dialog, a message box, a menu), once
  // `isOpen` has held for long enough that it has been painted. One at a time.
  void when(std::function<bool()> isOpen, std::function<void()> action);
  // Whether every action has run and every picture was written.
  bool isContent() const { return !action_ && !failed_; }

 private:
  static void CALLBACK tick(HWND, UINT, UINT_PTR, DWORD);
  void look();

  std::filesystem::path folder_;
  std::function<bool()> isOpen_;
  std::function<void()> action_;
  int looksOpen_ = 0;  // how often it was seen open
  UINT_PTR timer_ = 0;
  bool failed_ = false;
};

// Menus of this thread that are open: a menu and its sub-menu are two.
int openMenus();
