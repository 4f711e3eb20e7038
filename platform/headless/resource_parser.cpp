#include "platform/headless/resource_parser.h"

#include <algorithm>
#include <utility>

#include "platform/headless/resource_styles.h"

namespace kiv::headless {

base::Status ResourceNames::add(const std::vector<ResourceDefinition>& definitions) {
  for (const ResourceDefinition& definition : definitions) {
    if (definition.value.empty()) continue;
    int number = 0;
    if (!readResourceNumber(definition.value, number)) {
      const auto known = find(definition.value);
      if (!known) return base::Failure{resourceLine(definition.line), definition.value + L" is no number"};
      number = *known;
    }
    numbers_[definition.name] = number;
  }
  return {};
}

std::optional<int> ResourceNames::find(const std::wstring& name) const {
  const auto found = numbers_.find(name);
  if (found == numbers_.end()) return std::nullopt;
  return found->second;
}

base::Result<ResourceScript> ResourceParser::parse() {
  while (!failed() && token().kind != Kind::kEnd) {
    if (takeWord(L"LANGUAGE")) {
      number();
      expectComma();
      number();
    } else {
      resource();
    }
  }
  if (failed()) return failure_;
  return std::move(script_);
}

void ResourceParser::fail(std::wstring reason) {
  if (!failed()) failure_ = {resourceLine(token().line), std::move(reason)};
}

void ResourceParser::advance() {
  if (next_ + 1 < tokens_.size()) ++next_;
}

bool ResourceParser::atWord(const wchar_t* word) const {
  return token().kind == Kind::kWord && token().text == word;
}

bool ResourceParser::atMark(wchar_t mark) const {
  return token().kind == Kind::kMark && token().text[0] == mark;
}

bool ResourceParser::takeWord(const wchar_t* word) {
  if (!atWord(word)) return false;
  advance();
  return true;
}

bool ResourceParser::takeMark(wchar_t mark) {
  if (!atMark(mark)) return false;
  advance();
  return true;
}

void ResourceParser::expectComma() {
  if (!takeMark(L',')) fail(L"a comma is missing");
}

bool ResourceParser::takeBegin() {
  if (takeWord(L"BEGIN") || takeMark(L'{')) return true;
  fail(L"BEGIN is missing");
  return false;
}

bool ResourceParser::takeEnd() {
  if (takeWord(L"END") || takeMark(L'}')) return true;
  if (token().kind == Kind::kEnd) fail(L"END is missing");
  return false;
}

int ResourceParser::number() {
  int value = 0;
  if (token().kind == Kind::kNumber) {
    value = token().number;
  } else if (const auto known = token().kind == Kind::kWord ? names_.find(token().text) : std::nullopt) {
    value = *known;
  } else {
    fail(token().kind == Kind::kWord ? token().text + L" is not defined" : L"a number is missing");
  }
  advance();
  return value;
}

std::wstring ResourceParser::text() {
  if (token().kind != Kind::kText) {
    fail(L"a text is missing");
    return {};
  }
  std::wstring result = token().text;
  advance();
  return result;
}

// "A | B | NOT C", over the bits that the statement has anyway.
std::uint32_t ResourceParser::styles(std::uint32_t bits) {
  do {
    const bool clears = takeWord(L"NOT");
    std::uint32_t each = 0;
    if (token().kind == Kind::kNumber) {
      each = static_cast<std::uint32_t>(token().number);
    } else if (const auto known = token().kind == Kind::kWord ? styleBits(token().text) : std::nullopt) {
      each = *known;
    } else {
      fail(token().kind == Kind::kWord ? L"unknown style " + token().text : L"a style is missing");
    }
    bits = clears ? bits & ~each : bits | each;
    advance();
  } while (!failed() && takeMark(L'|'));
  return bits;
}

void ResourceParser::resource() {
  const int line = token().line;
  const int id = number();
  if (failed()) return;
  if (takeWord(L"DIALOGEX") || takeWord(L"DIALOG")) {
    dialog(id);
    if (!failed()) script_.dialogs.back().line = line;
  } else if (takeWord(L"MENU")) {
    if (script_.findMenu(id)) fail(L"menu " + std::to_wstring(id) + L" stands here twice");
    MenuResource made{id, menu(0)};
    script_.menus.push_back(std::move(made));
  } else if (takeWord(L"ACCELERATORS")) {
    accelerators(id);
  } else if (takeWord(L"ICON")) {
    script_.icons.push_back({id, text()});
  } else if (takeWord(L"BITMAP")) {
    text();  // the file
  } else {
    fail(L"unknown kind of resource " + token().text);
  }
}

// "X", id, VIRTKEY, ALT
void ResourceParser::accelerators(int id) {
  if (!takeBegin()) return;
  while (!failed() && !takeEnd()) {
    if (failed()) return;
    AccessKey key{id};
    const std::wstring letter = text();
    if (letter.size() != 1 || letter[0] < L'A' || letter[0] > L'Z')
      return fail(L"an access key is one of A to Z");
    key.letter = letter[0];
    expectComma();
    key.control = number();
    for (const wchar_t* option : {L"VIRTKEY", L"ALT"}) {
      expectComma();
      if (!takeWord(option)) return fail(L"an access key ends with VIRTKEY, ALT");
    }
    script_.accessKeys.push_back(key);
  }
}

Menu ResourceParser::menu(int depth) {
  // The system's menus are not deeper; a wild script shall not use up the stack.
  constexpr int kMaxDepth = 16;
  Menu items;
  if (depth > kMaxDepth) fail(L"the menu is nested too deep");
  if (failed() || !takeBegin()) return items;
  while (!failed() && !takeEnd()) {
    if (failed()) break;
    MenuItem item;
    if (takeWord(L"POPUP")) {
      item.text = text();
      menuOptions(item);
      if (!failed()) item.items = menu(depth + 1);
    } else if (takeWord(L"MENUITEM")) {
      menuItem(item);
    } else {
      fail(L"unknown menu statement " + token().text);
    }
    items.push_back(std::move(item));
  }
  return items;
}

void ResourceParser::menuItem(MenuItem& item) {
  if (takeWord(L"SEPARATOR")) return;
  item.text = text();
  expectComma();
  item.id = number();
  if (!failed() && item.id == 0) fail(L"a menu item cannot have the id 0");
  menuOptions(item);
}

void ResourceParser::menuOptions(MenuItem& item) {
  while (!failed() && takeMark(L',')) {
    if (takeWord(L"GRAYED") || takeWord(L"INACTIVE")) {
      item.enabled = false;
    } else {
      fail(L"unknown option " + token().text + L" of a menu item");
    }
  }
}

}  // namespace kiv::headless
