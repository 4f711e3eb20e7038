#include "spec/arrow_catalogue.h"

#include <algorithm>
#include <iterator>
#include <optional>

#include "base/fold.h"
#include "spec/value_forms.h"

namespace kiv {
namespace {

constexpr ArrowName kCatalogue[] = {
    {L"塗り潰し矢印", L"."},         {L"空矢印", L"_CLOSEDBLANK"},
    {L"閉矢印", L"_CLOSED"},         {L"黒丸", L"_DOT"},
    {L"ﾃｨｯｸ(太)", L"_ARCHTIC"},      {L"ﾃｨｯｸ", L"_OBLIQUE"},
    {L"開矢印", L"_OPEN"},           {L"白丸１", L"_ORIGIN"},
    {L"白丸２", L"_ORIGIN2"},        {L"直角矢印", L"_OPEN90"},
    {L"30度開矢印", L"_OPEN30"},     {L"小黒丸", L"_DOTSMALL"},
    {L"空白丸", L"_DOTBLANK"},       {L"小空白丸", L"_SMALL"},
    {L"四角", L"_BOXBLANK"},         {L"塗り潰し四角", L"_BOXFILLED"},
    {L"空白ﾃﾞｰﾀﾑ", L"_DATUMBLANK"},  {L"塗り潰しﾃﾞｰﾀﾑ", L"_DATUMFILLED"},
    {L"波形", L"_INTEGRAL"},         {L"なし", L"_NONE"},
    {L"ﾕｰｻﾞ指定", L"ﾌﾞﾛｯｸ名を入力"},
};
static_assert(std::size(kCatalogue) == 21);

}  // namespace

std::span<const ArrowName> arrowCatalogue() { return kCatalogue; }

const wchar_t* builtInArrow(std::wstring_view blockName) {
  for (const ArrowName& row : arrowCatalogue().first(std::size(kCatalogue) - 1)) {
    if (base::equalFolded(row.blockName, blockName)) return row.blockName;
  }
  return nullptr;
}

bool isBuiltInArrow(std::wstring_view blockName) { return builtInArrow(blockName) != nullptr; }

std::wstring arrowText(const ArrowName& arrow) {
  return std::wstring(arrow.displayName) + L" (" + arrow.blockName + L")";
}

ArrowChoice arrowChoice(std::wstring_view value) {
  const std::optional<std::wstring_view> block = blockNameOfDisplayForm(value);
  const std::wstring_view name = block.value_or(value);
  const auto row = std::ranges::find_if(kCatalogue, [&](const ArrowName& arrow) {
    return base::equalFolded(arrow.blockName, name) || (!block && arrow.displayName == name);
  });
  if (row != std::end(kCatalogue)) return {static_cast<int>(row - kCatalogue), {}};
  return {static_cast<int>(std::size(kCatalogue)) - 1, std::wstring(name)};
}

}  // namespace kiv
