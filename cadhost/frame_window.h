#pragma once
// The main window: menu, drawing, commands, status bar, and what goes on between them.

#include <windows.h>

#include <filesystem>
#include <string>
#include <string_view>

#include "cadhost/batch_progress.h"
#include "cadhost/command_runner.h"
#include "cadhost/command_window.h"
#include "cadhost/drawing_view.h"
#include "cadhost/file_actions.h"
#include "cadhost/input_queue.h"
#include "cadhost/message_pump.h"
#include "cadhost/status_bar.h"
#include "embedded/editor/host.h"

namespace cadhost {

class FrameWindow {
 public:
  explicit FrameWindow(cad::Host& host);
  ~FrameWindow();
  FrameWindow(const FrameWindow&) = delete;
  FrameWindow& operator=(const FrameWindow&) = delete;

  // 0: the system chooses the size. Afterwards the host prints, reads and shows its meter here.
  bool create(HINSTANCE instance, int width, int height);
  void show(int how);
  int run() { return pump_.run(); }

  // Failures are printed.
  void openDrawing(const std::filesystem::path& path);
  void loadModule(const std::filesystem::path& path);
  // As if a person had typed it; complete lines run as soon as the message loop does.
  void type(std::wstring_view text);

  void attach(HWND window) { window_ = window; }
  LRESULT handle(UINT message, WPARAM wParam, LPARAM lParam);

 private:
  bool createParts();
  void connectHost();
  void layOut();
  void dpiChanged(const RECT& proposed);
  LRESULT command(int id);
  void fileCommand(int id);
  void fillWindowMenu(HMENU menu);
  void prepareMenu(HMENU menu);
  void entered(std::wstring line);
  void cancelled();
  void linesEntered();  // they run from the message loop
  void runLines();
  void commandEnded();
  void showState();  // everything that a command may have changed
  void showTitle();
  void scriptProgressed(const cad::ScriptProgress& progress);
  void paintWhileRunning();
  void sayIncomplete();
  bool mayEnd();
  bool quit(bool discardChanges);

  cad::Host& host_;
  InputQueue input_;
  MessagePump pump_;
  CommandRunner runner_;
  FileActions files_;
  CommandWindow commands_;
  DrawingView view_;
  StatusBar status_;
  BatchProgress batch_;
  ULONGLONG nextPaint_ = 0;  // of a running script, milliseconds of the system
  HWND window_ = nullptr;
  HACCEL accelerators_ = nullptr;
  bool ending_ = false;
};

}  // namespace cadhost
