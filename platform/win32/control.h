#pragma once
// What the objects behind a dialog's controls share.

#include "platform/win32/system.h"

namespace kiv::win32 {

// Changes that the program makes are announced by controls just as the person's are. While one of these
// lives, announcements of its dialog are nothing that the person did.
class Quiet {
 public:
  explicit Quiet(int& depth) : depth_(depth) { ++depth_; }
  ~Quiet() { --depth_; }
  Quiet(const Quiet&) = delete;
  Quiet& operator=(const Quiet&) = delete;

 private:
  int& depth_;
};

// `handle` is null for a control that the dialog does not have; messages to it are lost and answer 0.
class Control {
 public:
  Control(HWND handle, int& quietDepth) : handle_(handle), quietDepth_(quietDepth) {}
  virtual ~Control() = default;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  HWND handle() const { return handle_; }

 protected:
  LRESULT send(UINT message, WPARAM first = 0, LPARAM second = 0) const {
    return SendMessageW(handle_, message, first, second);
  }
  template <class Struct>
  LRESULT send(UINT message, WPARAM first, Struct* second) const {
    return SendMessageW(handle_, message, first, reinterpret_cast<LPARAM>(second));
  }
  Quiet quiet() const { return Quiet(quietDepth_); }

 private:
  HWND handle_;
  int& quietDepth_;
};

}  // namespace kiv::win32
