#pragma once
// The dialog in which a person chooses drawings of one folder and the format to save them in.

#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/dialog.h"
#include "platform/host_variables.h"
#include "siblings/KivFile/folder_reading.h"
#include "siblings/KivFile/folder_tree.h"
#include "siblings/KivFile/open_settings.h"

namespace kiv {

struct ChosenDrawings {
  std::wstring folder;
  std::vector<std::wstring> names;  // in the order in which they were listed
  base::SaveFormat format = base::SaveFormat::kDwg;
};

// runModal() gives IDOK (1) when choice() was made.
class OpenDialog : public Dialog {
 public:
  // `startFolder`: where nothing is remembered. An empty title is that of the resource script.
  OpenDialog(std::wstring title, std::wstring startFolder, const SaveableFormats& saveable);

  const ChosenDrawings& choice() const { return choice_; }

 protected:
  void onInit() override;
  void onCommand(int command) override;
  void onEdited(int id) override;
  void onSelected(int id) override;
  void onDoubleClicked(int id) override;
  void onHeaderClicked(int id, int column) override;
  void onOpening(int id, TreeItem item) override;
  bool onKey(int id, Key key) override;
  void onTimer() override;

 private:
  ListView& list();
  void holdControls();
  void offerFormats();
  void setColumns();

  void enter(const std::wstring& folder);
  void enterTyped();
  void reload();
  void startReading();
  void takeNews();
  void showProbed(const std::vector<std::pair<std::size_t, DrawingRelease>>& probed);
  void refill();
  void append(std::vector<ListedDrawing> found);
  void selectAll();
  void showState();
  void takeSelection();
  std::wstring stateText() const;
  bool hasTypedFolder();
  void rememberChosen();

  void accept();
  void rememberView();

  std::wstring title_;
  SaveableFormats saveable_;
  OpenSettings settings_;  // `folder` is the one that is shown
  std::unique_ptr<FolderTree> tree_;
  std::unique_ptr<DrawingReading> reading_;
  std::vector<ListedDrawing> drawings_;
  std::vector<std::size_t> rows_;  // the drawing of each row
  // Before the list changed: the chosen ones, and the one from which Shift goes. They are again what they
  // were when they come back into it.
  std::set<std::wstring> wanted_;
  std::wstring wantedFocus_;
  bool isSelectionDue_ = false;  // at the next tick of the timer
  std::size_t probed_ = 0;
  bool isListed_ = false, hasEnded_ = false;
  std::optional<base::Failure> failure_;
  ChosenDrawings choice_;
};

}  // namespace kiv
