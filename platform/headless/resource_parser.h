#pragma once
// The statements of a resource script. Used by resource_script.cpp alone.

#include <map>
#include <optional>

#include "platform/headless/resource_lexer.h"
#include "platform/headless/resource_script.h"

namespace kiv::headless {

// The names that stand for numbers.
class ResourceNames {
 public:
  // Fails for a value that is no number and no name defined before. A definition without a value is none.
  base::Status add(const std::vector<ResourceDefinition>& definitions);
  std::optional<int> find(const std::wstring& name) const;

 private:
  std::map<std::wstring, int> numbers_;
};

class ResourceParser {
 public:
  ResourceParser(std::vector<ResourceToken> tokens, ResourceNames names)
      : tokens_(std::move(tokens)), names_(std::move(names)) {}

  base::Result<ResourceScript> parse();

 private:
  using Kind = ResourceToken::Kind;
  struct ControlStatement;

  const ResourceToken& token() const { return tokens_[next_]; }
  bool failed() const { return !failure_.reason.empty(); }
  void fail(std::wstring reason);
  void advance();
  bool atWord(const wchar_t* word) const;
  bool atMark(wchar_t mark) const;
  bool takeWord(const wchar_t* word);
  bool takeMark(wchar_t mark);
  void expectComma();
  bool takeBegin();
  bool takeEnd();
  int number();
  std::wstring text();
  std::uint32_t styles(std::uint32_t bits);

  void resource();
  void dialog(int id);
  void dialogStatement(DialogResource& dialog);
  void font(DialogResource& dialog);
  void control(DialogResource& dialog);
  void generalControl(ResourceControl& control);
  void knownControl(const ControlStatement& statement, ResourceControl& control);
  void place(ResourceControl& control);
  void trailingStyles(ResourceControl& control);
  void accelerators(int id);
  Menu menu(int depth);
  void menuItem(MenuItem& item);
  void menuOptions(MenuItem& item);

  static const ControlStatement* findControlStatement(const std::wstring& word);

  std::vector<ResourceToken> tokens_;
  ResourceNames names_;
  std::size_t next_ = 0;
  ResourceScript script_;
  base::Failure failure_;
};

}  // namespace kiv::headless
