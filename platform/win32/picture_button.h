#pragma once
// A button with a picture: an owner-drawn one has it before its caption, one of the style BS_ICON instead of
// it.

#include "platform/win32/control.h"

namespace kiv::win32 {

class PictureButton final : public Control {
 public:
  using Control::Control;
  ~PictureButton() override;

  // An icon of the module, in the size of the host's monitor.
  void setIcon(int resource);
  void draw(const DRAWITEMSTRUCT& item) const;

 private:
  HICON icon_ = nullptr;
};

}  // namespace kiv::win32
