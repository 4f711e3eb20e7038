#pragma once
// What the file menu does, with its choosers and questions.

#include <windows.h>

#include <functional>
#include <string>
#include <string_view>

#include "base/result.h"
#include "embedded/editor/host.h"

namespace cadhost {

class FileActions {
 public:
  // `run` types lines at the host's command line, as a command of the user's.
  FileActions(cad::Host& host, std::function<base::Status(const std::wstring&)> run)
      : host_(host), run_(std::move(run)) {}
  void setOwner(HWND owner) { owner_ = owner; }

  void open();    // asks for the drawings
  bool save();    // false: it was not saved
  bool saveAs();  // asks for the name
  // Asks about unsaved changes; false: the user wants to go on, or saving has failed.
  bool closeCurrent();
  bool mayCloseAll();

  void complain(const std::wstring& text) const;

 private:
  // Of a chooser: false when it was left without a choice; says why when it has failed.
  bool hasChosen(BOOL answer) const;
  bool saveInto(const std::wstring& path);
  bool mayClose(const cad::DocumentInfo& document);

  cad::Host& host_;
  std::function<base::Status(const std::wstring&)> run_;
  HWND owner_ = nullptr;
};

}  // namespace cadhost
