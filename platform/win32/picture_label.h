#pragma once
// A label that is a picture.

#include "platform/win32/control.h"

namespace kiv::win32 {

class PictureLabel final : public Control {
 public:
  using Control::Control;
  ~PictureLabel() override;

  // A bitmap of the module, in the size of the label. Its greys of 192, 128 and 223 become the system's face,
  // shadow and light of buttons.
  void setBitmap(int resource);

 private:
  HBITMAP bitmap_ = nullptr;
};

}  // namespace kiv::win32
