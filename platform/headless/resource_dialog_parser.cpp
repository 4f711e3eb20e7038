// The dialogs of a resource script.

#include <algorithm>

#include "base/fold.h"
#include "platform/headless/resource_parser.h"
#include "platform/headless/resource_styles.h"

namespace kiv::headless {
namespace {

constexpr std::uint32_t kAlways = style::kVisible;

struct ClassKind {
  const wchar_t* windowClass;
  ControlKind kind;
};

constexpr ClassKind kClasses[] = {
    {L"BUTTON", ControlKind::kPushButton},  // or what its style says
    {L"STATIC", ControlKind::kLabel},       {L"EDIT", ControlKind::kEdit},
    {L"COMBOBOX", ControlKind::kComboBox},  {L"LISTBOX", ControlKind::kListBox},
    {L"SYSTREEVIEW32", ControlKind::kTree}, {L"SYSLISTVIEW32", ControlKind::kList},
    {L"KIVGRID", ControlKind::kGrid},
};

const ClassKind* findClass(const std::wstring& windowClass) {
  for (const ClassKind& each : kClasses) {
    if (windowClass == each.windowClass) return &each;
  }
  return nullptr;
}

ControlKind buttonKind(std::uint32_t styles) {
  switch (styles & style::kButtonType) {
    case 3:
      return ControlKind::kCheckBox;
    case 7:
      return ControlKind::kGroupBox;
    case 9:
      return ControlKind::kRadioButton;
    default:
      return ControlKind::kPushButton;
  }
}

}  // namespace

struct ResourceParser::ControlStatement {
  const wchar_t* word;
  ControlKind kind;
  std::uint32_t styles;
  bool hasCaption;
};

// The styles are what the statement means without naming them.
const ResourceParser::ControlStatement* ResourceParser::findControlStatement(const std::wstring& word) {
  static constexpr ControlStatement kStatements[] = {
      {L"GROUPBOX", ControlKind::kGroupBox, kAlways | 7, true},
      {L"LTEXT", ControlKind::kLabel, kAlways | style::kGroup, true},
      {L"CTEXT", ControlKind::kLabel, kAlways | style::kGroup | 1, true},
      {L"RTEXT", ControlKind::kLabel, kAlways | style::kGroup | 2, true},
      {L"PUSHBUTTON", ControlKind::kPushButton, kAlways | style::kTabStop, true},
      {L"DEFPUSHBUTTON", ControlKind::kPushButton, kAlways | style::kTabStop | 1, true},
      {L"AUTOCHECKBOX", ControlKind::kCheckBox, kAlways | style::kTabStop | 3, true},
      {L"AUTORADIOBUTTON", ControlKind::kRadioButton, kAlways | style::kTabStop | 9, true},
      {L"EDITTEXT", ControlKind::kEdit, kAlways | style::kTabStop, false},
      {L"COMBOBOX", ControlKind::kComboBox, kAlways | style::kTabStop, false},
      {L"LISTBOX", ControlKind::kListBox, kAlways | 1, false},
      {L"ICON", ControlKind::kIcon, kAlways | 3, true},
  };
  for (const ControlStatement& each : kStatements) {
    if (word == each.word) return &each;
  }
  return nullptr;
}

void ResourceParser::dialog(int id) {
  if (script_.findDialog(id)) fail(L"dialog " + std::to_wstring(id) + L" stands here twice");
  DialogResource made;
  made.id = id;
  int* const numbers[] = {&made.x, &made.y, &made.width, &made.height};
  for (int* each : numbers) {
    if (each != &made.x) expectComma();
    *each = number();
  }
  while (!failed() && !atWord(L"BEGIN") && !atMark(L'{')) dialogStatement(made);
  if (failed() || !takeBegin()) return;
  while (!failed() && !takeEnd()) {
    if (!failed()) control(made);
  }
  script_.dialogs.push_back(std::move(made));
}

void ResourceParser::dialogStatement(DialogResource& dialog) {
  if (takeWord(L"STYLE")) {
    dialog.style = styles(dialog.style);
  } else if (takeWord(L"EXSTYLE")) {
    styles(0);
  } else if (takeWord(L"CAPTION")) {
    dialog.caption = text();
  } else if (takeWord(L"FONT")) {
    font(dialog);
  } else {
    fail(L"unknown dialog statement " + token().text);
  }
}

// Size and name, then what does not change the layout: weight, italic, character set.
void ResourceParser::font(DialogResource& dialog) {
  dialog.fontSize = number();
  expectComma();
  dialog.fontName = text();
  while (!failed() && takeMark(L',')) number();
}

void ResourceParser::control(DialogResource& dialog) {
  ResourceControl made;
  made.line = token().line;
  if (takeWord(L"CONTROL")) {
    generalControl(made);
  } else if (const ControlStatement* statement = findControlStatement(token().text);
             statement && token().kind == Kind::kWord) {
    advance();
    knownControl(*statement, made);
  } else {
    fail(L"unknown control " + token().text);
  }
  dialog.controls.push_back(std::move(made));
}

// CONTROL caption, id, class, style, x, y, width, height [, extended style]
void ResourceParser::generalControl(ResourceControl& control) {
  control.caption = text();
  expectComma();
  control.id = number();
  expectComma();
  const std::wstring windowClass = text();
  const ClassKind* known = findClass(base::upper(windowClass));
  if (!known) fail(L"unknown control class " + windowClass);
  expectComma();
  if (failed()) return;
  control.style = styles(kAlways);
  expectComma();
  place(control);
  if (takeMark(L',')) styles(0);
  control.kind = known->kind == ControlKind::kPushButton ? buttonKind(control.style) : known->kind;
}

// WORD [caption,] id, x, y, width, height [, style [, extended style]]
void ResourceParser::knownControl(const ControlStatement& statement, ResourceControl& control) {
  control.kind = statement.kind;
  control.style = statement.styles;
  if (statement.hasCaption) {
    control.caption = text();
    expectComma();
  }
  control.id = number();
  expectComma();
  place(control);
  // Styles of its own take from a label that it begins a group; the tab stop of a control stays.
  if (!failed() && atMark(L',')) control.style &= ~style::kGroup;
  trailingStyles(control);
}

void ResourceParser::place(ResourceControl& control) {
  int* const numbers[] = {&control.x, &control.y, &control.width, &control.height};
  for (int* each : numbers) {
    if (each != &control.x) expectComma();
    *each = number();
  }
}

void ResourceParser::trailingStyles(ResourceControl& control) {
  if (failed() || !takeMark(L',')) return;
  control.style = styles(control.style);
  if (takeMark(L',')) styles(0);
}

}  // namespace kiv::headless
