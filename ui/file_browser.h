#pragma once
// What the dialogs that load and save specifications have in common: the list of the folder's
// specifications, its order, and deleting one of them.

#include <string>
#include <vector>

#include "base/result.h"
#include "platform/dialog.h"
#include "ui/specification_files.h"

namespace kiv {

class FileBrowser : public Dialog {
 public:
  // What was confirmed; empty before.
  const std::wstring& name() const { return name_; }
  const std::wstring& remark() const { return remark_; }

 protected:
  struct Controls {
    int name;
    int remark;
    int list;
  };
  // `folder` with its trailing separator; empty: the current one.
  FileBrowser(int resource, const Controls& controls, std::wstring folder);

  void onInit() override;
  void onSelected(int id) override;
  void onHeaderClicked(int id, int column) override;
  bool onKey(int id, Key key) override;

  std::wstring nameField() const { return window().text(controls_.name); }
  const std::wstring& folder() const { return folder_; }
  // Asks, with "no" for the Enter key, and waits for the answer.
  bool isAgreed(const std::wstring& question);
  void tellRefusal(const std::wstring& what, const base::Failure& failure);
  // Takes the fields as what was confirmed.
  void takeFields();

 private:
  void fill();
  void showFiles();
  void deleteNamedFile();

  Controls controls_;
  std::wstring folder_;
  std::vector<SpecificationFile> files_;
  bool sortsDescending_ = true;
  std::wstring name_;
  std::wstring remark_;
};

}  // namespace kiv
