#pragma once
// The dialog in which text search lists are made, loaded, edited and saved.

#include <optional>
#include <string>
#include <vector>

#include "platform/dialog.h"

namespace kiv {

class CMojiListDlg : public Dialog {
 public:
  // The folder in which lists are looked for and saved first, with its trailing separator.
  explicit CMojiListDlg(std::wstring folder);

 protected:
  void onInit() override;
  void onCommand(int command) override;
  void onContextMenu(int id, Place screen) override;
  bool onKey(int id, Key key) override;

 private:
  void startNew();
  void load();
  void save();
  std::optional<std::wstring> askFile(bool saving, const std::wstring& initialName);
  bool loadFile(const std::wstring& path);
  bool tellUnwritable(const std::vector<std::wstring>& rows);

  std::vector<std::wstring> rows();
  void showRows(const std::vector<std::wstring>& rows, int current);
  void setName(std::wstring name);

  std::wstring folder_;
  std::wstring name_;  // of the current list; empty: a new one
};

}  // namespace kiv
