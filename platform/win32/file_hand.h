#pragma once
// Types paths into the system's file chooser and confirms them.

#include <windows.h>

// Needs what windows.h declares.
#include <commdlg.h>

#include <string>
#include <vector>

#include "platform/win32/question_hand.h"

namespace kiv::win32 {

class FileHand final : public QuestionHand {
 public:
  // Asks for the chooser's classic form, whose controls can be reached. Without a path it is cancelled;
  // several are of one folder.
  FileHand(OPENFILENAMEW& chooser, std::vector<std::wstring> paths);

 private:
  bool step() override;
  void giveUp() override;
  std::wstring name() const override;
  bool confirm(const std::wstring& typed);

  bool isInFolder_ = false, confirmed_ = false;
  std::vector<std::wstring> paths_;
};

}  // namespace kiv::win32
