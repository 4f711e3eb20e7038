#pragma once
// A conversion specification: ten sections of settings or list entries, as it is edited, saved and loaded.

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "spec/item_kinds.h"

namespace kiv {

// How a node's text is worded: as a file's content is shown, or as the picker that gave the value words it.
// Saving and loading brings back the first.
enum class Wording { kFile, kPicker };

struct Item {
  int kind = 0;           // of the item kinds
  bool inverted = false;  // conditions only
  std::wstring variable;  // name of the dimension variable; empty unless the kind is 8
  std::wstring value;     // a colour as a person sees it, "1:赤"
  Wording wording = Wording::kFile;

  // What stands in a file's brackets: the variable's name or the kind's key.
  std::wstring key() const;
};

struct Setting {
  std::wstring name;
  std::vector<Item> conditions;  // none: applies to everything of its section
  std::vector<Item> results;
};

// An entry of a list section. The fields by section: 5 variable, value; 7 layer, colour as a person sees it
// or empty, linetype and, all or none, visibility, lock, freeze, plot, lineweight, transparency; 8 linetype,
// file; 9 style, font and, when there is one, big font; 10 arrow block.
struct Entry {
  std::vector<std::wstring> fields;
  Wording wording = Wording::kFile;
};

enum class Role { kNone = 0, kCondition = 1, kResult = 2, kEntry = 3 };  // in the setting or the list

// A node of the editing tree. `index` counts the settings or entries of the section, `item` the items of the
// role, both from 0.
struct Node {
  int section = 0;          // 0: the root
  int index = -1;           // -1: the section itself
  Role role = Role::kNone;  // of an item; kNone on a setting and on an entry
  int item = -1;

  static Node ofSection(int section) { return {section, -1, Role::kNone, -1}; }
  static Node of(int section, int index) { return {section, index, Role::kNone, -1}; }
  static Node ofItem(int section, int index, Role role, int item) { return {section, index, role, item}; }
  bool operator==(const Node&) const = default;
};

// Why an operation did nothing.
enum class Refusal {
  kNone,
  kNoSuchNode,
  kWrongSection,  // a setting in a list section, an entry in a rule section
  kWrongKind,     // no such kind; a text list as a result; no such dimension variable
  kWrongFields,   // an entry with another number of fields than its section has
  kNotACondition,
  kNotMovable,   // neither a setting nor an item
  kNoNeighbour,  // first or last already
  kOtherRole,    // conditions and results do not mix
};

struct Edited {
  Refusal refusal = Refusal::kNone;
  Node node;  // the node that was added, changed or moved, at its new place
  bool ok() const { return refusal == Refusal::kNone; }
};

class Specification {
 public:
  std::wstring fileName;  // without folder; empty until loaded or saved
  std::wstring remark;    // one line

  const std::vector<Setting>& settings(int section) const { return contentOf(section).settings; }
  const std::vector<Entry>& entries(int section) const { return contentOf(section).entries; }

  // The name is 設定 and the number of the section's settings plus one, taken now.
  Edited addSetting(int section);
  // A condition stands behind the setting's last condition, a result behind its last result.
  Edited addCondition(int section, int setting, Item item);
  Edited addResult(int section, int setting, Item item);
  Edited addEntry(int section, Entry entry);

  // The item keeps its place, role and sense.
  Edited replaceItem(const Node& node, Item item);
  Edited replaceEntry(const Node& node, Entry entry);
  Edited invert(const Node& node);

  // A setting, an entry, a condition or a result; a setting goes with its items.
  Edited remove(const Node& node);
  Edited clearSection(int section);
  Edited clearItems(int section, int setting, Role role);

  // Settings among the settings of their section, items among those of their role.
  Edited moveUp(const Node& node);
  Edited moveDown(const Node& node);

  bool exists(const Node& node) const;
  const Item* item(const Node& node) const;    // null: not an existing item
  const Entry* entry(const Node& node) const;  // null: not an existing entry
  int childCount(const Node& node) const;
  int childCount(const Node& node, Role role) const;
  std::vector<Node> children(const Node& node) const;  // in tree order: conditions before results

  // The first setting of the layer section that names no layer; -1: none. Such a specification is not saved.
  int settingWithoutLayer() const;

 private:
  struct Content {
    std::vector<Setting> settings;
    std::vector<Entry> entries;
  };

  static bool isSection(int number) { return number >= 1 && number <= kSectionCount; }
  const Content& contentOf(int section) const { return content_[static_cast<size_t>(section - 1)]; }
  Content& contentOf(int section) { return content_[static_cast<size_t>(section - 1)]; }
  Setting* settingAt(int section, int index);
  const Setting* settingAt(int section, int index) const;
  std::vector<Item>* itemsOf(const Node& node);
  Edited addItem(int section, int setting, Role role, Item item);
  Edited move(const Node& node, int by);

  std::array<Content, kSectionCount> content_;
};

// True when the section's entries have so many fields.
bool hasFieldCount(int section, size_t count);

}  // namespace kiv
