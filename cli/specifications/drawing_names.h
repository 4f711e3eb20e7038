#pragma once
// The names of layers, linetypes and text styles that drawings have and use, for the check of CVT files.

#include <array>
#include <set>
#include <string>
#include <vector>

#include "base/result.h"
#include "host/specification_automation.h"

namespace kivcli {

class NamesOfDrawings {
 public:
  // Drawings, and folders with drawings in them at any depth. Failures: what cannot be read, by its name; of
  // a folder's drawings those that cannot are left out and stand in unreadable().
  base::Status take(const std::wstring& drawingOrFolder);
  const std::vector<base::Failure>& unreadable() const { return unreadable_; }

  // Valid as long as this object, until the next take().
  const std::vector<KivDrawingNames>& given();

 private:
  struct Names {
    std::wstring drawing;
    std::array<std::set<std::wstring>, 3> has, used;
  };
  base::Status takeDrawing(const std::wstring& file);
  KivNames pointTo(const std::set<std::wstring>& names);

  std::vector<Names> drawings_;
  std::vector<base::Failure> unreadable_;
  std::vector<std::vector<const wchar_t*>> lists_;
  std::vector<KivDrawingNames> given_;
};

}  // namespace kivcli
