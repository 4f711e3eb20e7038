#pragma once
// Chooses a folder in the system's folder browser and confirms it.

#include <optional>

#include "platform/win32/question_hand.h"

namespace kiv::win32 {

class FolderHand final : public QuestionHand {
 public:
  // Without a folder the browser is cancelled.
  explicit FolderHand(std::optional<std::wstring> folder);

 private:
  bool step() override;
  void giveUp() override;
  std::wstring name() const override;

  std::optional<std::wstring> folder_;
  HWND browser_ = nullptr;
  bool chosen_ = false;
};

}  // namespace kiv::win32
