#include "embedded/support/shape_file.h"

#include <optional>

#include "base/codepage.h"
#include "base/files.h"
#include "base/fold.h"

namespace cad::support {
namespace {

struct UsualShape {
  const wchar_t* name;
  int number;
};
constexpr std::wstring_view kUsualFile = L"LTYPESHP";
constexpr UsualShape kUsualShapes[] = {
    {L"TRACK1", 130}, {L"ZIG", 131}, {L"BOX", 132}, {L"CIRC1", 133}, {L"BAT", 134},
};

std::optional<int> usualNumber(std::wstring_view file, std::wstring_view shape) {
  if (!base::equalFolded(base::pathText(base::pathFromText(file).stem()), kUsualFile)) return std::nullopt;
  for (const UsualShape& each : kUsualShapes)
    if (base::equalFolded(each.name, shape)) return each.number;
  return std::nullopt;
}

std::optional<unsigned> word(std::string_view bytes, std::size_t at) {
  if (at + 2 > bytes.size()) return std::nullopt;
  return static_cast<unsigned char>(bytes[at]) | static_cast<unsigned char>(bytes[at + 1]) << 8;
}

// After a line of text and a control-Z: the least and the largest number, the count, a number and a length
// for each shape; then, in this order, each shape's name, a NUL and what it draws.
base::Result<int> numberIn(std::string_view bytes, std::wstring_view file, std::wstring_view shape) {
  const auto failed = [&](std::wstring reason) {
    return base::Failure{std::wstring(file), std::move(reason)};
  };
  const std::size_t head = bytes.find('\x1A');
  if (head == std::string_view::npos || bytes.substr(0, head).find(" shapes ") == std::string_view::npos)
    return failed(L"This is not a file of shapes");
  const std::optional<unsigned> count = word(bytes, head + 5);
  const std::size_t index = head + 7, content = index + std::size_t{4} * count.value_or(0);
  if (!count || content > bytes.size()) return failed(L"The file is cut short");
  std::size_t at = content;
  for (std::size_t i = 0; i < *count; ++i) {
    const std::string_view body = bytes.substr(at, *word(bytes, index + 4 * i + 2));
    const std::wstring name = base::decode(body.substr(0, body.find('\0')), base::kJapanese).text;
    if (base::equalFolded(name, shape)) return static_cast<int>(*word(bytes, index + 4 * i));
    at += body.size();
  }
  return failed(L"The file has no shape \"" + std::wstring(shape) + L"\"");
}

}  // namespace

base::Result<int> shapeNumber(const std::filesystem::path& path, std::wstring_view file,
                              std::wstring_view shape) {
  if (path.empty()) {
    if (const std::optional<int> number = usualNumber(file, shape)) return *number;
    return base::Failure{std::wstring(file), L"The shape file is not found"};
  }
  const base::Result<std::string> bytes = base::readFile(path);
  if (!bytes) return bytes.failure();
  return numberIn(bytes.value(), file, shape);
}

}  // namespace cad::support
