#pragma once
// Resource scripts, read from their text: what dialogs and menus are made of where no resource
// compiler has put them into the program.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "platform/questions.h"

namespace kiv::headless {

enum class ControlKind {
  kGroupBox,
  kLabel,
  kPushButton,  // the owner-drawn and the default button too
  kCheckBox,
  kRadioButton,
  kEdit,
  kComboBox,
  kListBox,
  kTree,
  kList,
  kGrid,
  kIcon
};

// Places and sizes are dialog units, from the top left of the dialog's content.
struct ResourceControl {
  ControlKind kind = ControlKind::kLabel;
  int id = -1;  // -1: nobody asks for this control
  std::wstring caption;
  std::uint32_t style = 0;
  int x = 0, y = 0, width = 0, height = 0;  // of a combo box the height with its list
  int line = 0;                             // of the script

  bool has(std::uint32_t bits) const { return (style & bits) == bits; }
  bool isDefaultButton() const;
};

struct DialogResource {
  int id = 0;
  int x = 0, y = 0, width = 0, height = 0;  // of the content, without border and caption
  std::uint32_t style = 0;
  std::wstring caption;
  std::wstring fontName;
  int fontSize = 0;  // points
  std::vector<ResourceControl> controls;
  int line = 0;
};

struct MenuResource {
  int id = 0;
  Menu items;
};

// With Alt, of the table that has the id of the dialog.
struct AccessKey {
  int dialog = 0;
  wchar_t letter = 0;  // A to Z
  int control = 0;
};

struct IconResource {
  int id = 0;
  std::wstring file;
};

struct ResourceScript {
  std::vector<DialogResource> dialogs;
  std::vector<MenuResource> menus;
  std::vector<IconResource> icons;
  std::vector<AccessKey> accessKeys;

  const DialogResource* findDialog(int id) const;  // null: none, as below
  const MenuResource* findMenu(int id) const;
};

// `header` holds the #define's of the ids; the script may have more of its own. A later one of the same
// name counts. Failures name the line ("line 12", of the header "header, line 3") and the reason: a word,
// class, style or id that is not known, a statement that does not end as it should.
base::Result<ResourceScript> parseResourceScript(std::wstring_view script, std::wstring_view header);

// Those that are linked into this library or program, as one; read when first asked for. One whose text
// cannot be read is left out, which is said on the error output.
const ResourceScript& resourceScript();

}  // namespace kiv::headless
