#pragma once
// The dialogs in which specifications are chosen to be loaded, and get the name and remark to be saved under.

#include <string>
#include <vector>

#include "base/result.h"
#include "platform/dialog.h"
#include "ui/specification_files.h"

namespace kiv {

// The list of the folder's specifications, its order, and deleting one of them.
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

// runModal() gives IDOK (1) when name() and remark() are those of the chosen file.
class CReadDlg : public FileBrowser {
 public:
  // With its trailing separator.
  explicit CReadDlg(std::wstring folder);

 protected:
  void onSelected(int id) override;
  void onDoubleClicked(int id) override;
  void onCommand(int command) override;
};

// runModal() gives IDOK (1) when name() and remark() are to be saved under; the person has agreed to
// overwrite a file of that name. What writes it when it is accepted keeps the dialog open where it cannot.
class CSaveDlg : public FileBrowser {
 public:
  // With its trailing separator.
  explicit CSaveDlg(std::wstring folder);

 protected:
  void onSelected(int id) override;
  void onEdited(int id) override;
  void onCommand(int command) override;
  // Called with name() and remark() as they are confirmed; false: the dialog stays open.
  virtual bool accepts() { return true; }

 private:
  void save();
};

}  // namespace kiv
