#include "base/save_format.h"

#include <cstddef>
#include <system_error>

#include "base/files.h"
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

std::optional<SaveFormat> saveFormatOfFile(const std::filesystem::path& file) {
  std::error_code error;
  const bool isRegular = std::filesystem::is_regular_file(file, error);
  if (!isRegular && std::filesystem::exists(file, error)) return std::nullopt;
  const std::optional<SaveFormat> named = saveFormatOf(pathText(file.filename()));
  const std::string beginning = isRegular ? readBeginning(file, 2) : std::string();
  if (beginning.empty()) return named;
  if (beginning != "AC") return SaveFormat::kDxf;  // text begins with a number, binary with "Au"
  return named == SaveFormat::kDwt ? SaveFormat::kDwt : SaveFormat::kDwg;
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
