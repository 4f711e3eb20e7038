#pragma once
// The values that are offered for an item, in the order of a picker's list.

#include <string>
#include <string_view>
#include <vector>

namespace kiv {

struct ChoiceContext {
  bool withholdsByOther = false;   // by layer and by block
  std::wstring_view listFolder{};  // of the text search lists
};

// Appends the names that are not in the list, ignoring case.
void addMissing(std::vector<std::wstring>& list, const std::vector<std::wstring>& names);

std::vector<std::wstring> colorChoices(const ChoiceContext& context);
// Switched on and off by the common settings.
std::vector<std::wstring> textHeightChoices(const ChoiceContext& context);
std::vector<std::wstring> lineweightChoices(const ChoiceContext& context);
std::vector<std::wstring> transparencyChoices(const ChoiceContext& context);
std::vector<std::wstring> percentChoices();  // the transparencies without the words
std::vector<std::wstring> switchChoices(const ChoiceContext& context);

// Names of the current drawing, in the order of its table; empty without a drawing.
std::vector<std::wstring> layerChoices(const ChoiceContext& context);
std::vector<std::wstring> linetypeChoices(const ChoiceContext& context);
std::vector<std::wstring> textStyleChoices(const ChoiceContext& context);

// Of the current drawing, as above, without the spaces and other blocks of the host's own.
std::vector<std::wstring> blockChoices();

std::vector<std::wstring> textListChoices(const ChoiceContext& context);

}  // namespace kiv
