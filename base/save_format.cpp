#include "base/save_format.h"

#include <cstddef>

#include "base/fold.h"

namespace base {
namespace {

constexpr std::wstring_view kExtensions[] = {L".DWG", L".DXF", L".DWT"};  // by format

}  // namespace

std::optional<SaveFormat> saveFormat(int number) {
  if (number < 0 || number > static_cast<int>(SaveFormat::kDwt)) return std::nullopt;
  return static_cast<SaveFormat>(number);
}

std::optional<SaveFormat> saveFormatOf(std::wstring_view fileName) {
  const std::wstring name = upper(fileName);
  for (const SaveFormat format : {SaveFormat::kDwg, SaveFormat::kDxf, SaveFormat::kDwt}) {
    if (name.ends_with(kExtensions[static_cast<std::size_t>(format)])) return format;
  }
  return std::nullopt;
}

std::wstring savedName(std::wstring_view drawingName, SaveFormat format) {
  if (drawingName.size() >= 4 && drawingName[drawingName.size() - 4] == L'.') drawingName.remove_suffix(4);
  return std::wstring(drawingName) + std::wstring(kExtensions[static_cast<std::size_t>(format)]);
}

std::wstring SavedNames::take(std::wstring_view savedName, const std::wstring& drawing) {
  const auto [holder, isNew] = drawings_.try_emplace(upper(savedName), drawing);
  return isNew ? std::wstring() : holder->second;
}

}  // namespace base
