#pragma once
// Types a path into the system's file chooser and confirms it.

#include <windows.h>

// Needs what windows.h declares.
#include <commdlg.h>

#include <optional>

#include "platform/win32/question_hand.h"

namespace kiv::win32 {

class FileHand final : public QuestionHand {
 public:
  // Asks for the chooser's classic form, whose controls can be reached. Without a path it is cancelled.
  FileHand(OPENFILENAMEW& chooser, std::optional<std::wstring> path);

 private:
  bool step() override;
  void giveUp() override;
  std::wstring name() const override;

  bool confirmed_ = false;
  std::optional<std::wstring> path_;
};

}  // namespace kiv::win32
