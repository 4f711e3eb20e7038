#include "embedded/support/shape_file.h"

#include <algorithm>
#include <utility>

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

// What a shape begins with; a character of a font mostly has an empty name.
std::string_view nameOf(std::string_view body) { return body.substr(0, body.find('\0')); }

}  // namespace

// A file begins with a line of text, which tells its kind, and a control-Z.
base::Result<ShapeFile> ShapeFile::read(std::string bytes, std::wstring_view file) {
  ShapeFile read;
  read.bytes_ = std::move(bytes);
  const std::size_t end = read.bytes_.find('\x1A');
  const std::string_view head = std::string_view(read.bytes_).substr(0, end);
  const auto failed = [&](std::wstring reason) {
    return base::Failure{std::wstring(file), std::move(reason)};
  };
  const auto says = [&](std::string_view word) {
    return end != std::string::npos && head.find(word) != std::string_view::npos;
  };
  bool whole = false;
  if (says(" shapes ")) {
    whole = read.readShapes(end + 1);
  } else if (says(" unifont ")) {
    read.kind_ = Kind::kUnicodeFont;
    whole = read.readUnicodeFont(end + 1);
  } else if (says(" bigfont ")) {
    read.kind_ = Kind::kBigFont;
    whole = read.readBigFont(end + 1);
  } else {
    return failed(L"This is not a file of shapes");
  }
  if (!whole) return failed(L"The file is cut short");
  return read;
}

// The least and the largest number, the count, a number and a length for each shape; then, in this order,
// each shape's name, a NUL and what it draws. Shape 0 tells the facts of a font.
bool ShapeFile::readShapes(std::size_t at) {
  const std::size_t count = number(at + 4, 2), index = at + 6;
  std::size_t body = index + 4 * count;
  if (body > bytes_.size()) return false;
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t size = number(index + 4 * i + 2, 2);
    add(static_cast<int>(number(index + 4 * i, 2)), body, size);
    body += size;
  }
  if (const auto info = shapes_.find(0); info != shapes_.end()) readFacts(this->body(info->second));
  return true;
}

// The count, with the facts; their length and the facts; then a number, a length and a shape each.
bool ShapeFile::readUnicodeFont(std::size_t at) {
  const std::size_t count = number(at, 4), facts = number(at + 4, 2);
  at += 6;
  if (at + facts > bytes_.size()) return false;
  readFacts(std::string_view(bytes_).substr(at, facts));
  at += facts;
  for (std::size_t i = 1; i < count && at + 4 <= bytes_.size(); ++i) {
    const std::size_t size = number(at + 2, 2);
    add(static_cast<int>(number(at, 2)), at + 4, size);
    at += 4 + size;
  }
  return true;
}

// The size of a row of the index, their count, how many ranges of first bytes there are, and these; then the
// index: a number, a length and where in the file the shape stands.
bool ShapeFile::readBigFont(std::size_t at) {
  const std::size_t count = number(at + 2, 2), ranges = number(at + 4, 2);
  const std::size_t index = at + 6 + 4 * ranges;
  if (index + 8 * count > bytes_.size()) return false;
  for (std::size_t row = index; row < index + 8 * count; row += 8) {
    const std::size_t size = number(row + 2, 2), place = number(row + 4, 4);
    if (size != 0) add(static_cast<int>(number(row, 2)), place, size);
  }
  if (const auto info = shapes_.find(0); info != shapes_.end()) readFacts(body(info->second));
  return true;
}

// Behind the name: the height above the base line, below it, how it may be written. A big font may have its
// cell's height, 0, how it may be written, and the cell's width.
void ShapeFile::readFacts(std::string_view info) {
  const std::size_t behind = nameOf(info).size() + 1;
  const auto fact = [&](std::size_t which) {
    return behind + which < info.size() ? static_cast<unsigned char>(info[behind + which]) : 0;
  };
  capHeight_ = fact(0);
  if (kind_ == Kind::kBigFont && fact(1) == 0) cellWidth_ = fact(3);
}

// Of two shapes with one number the first counts.
void ShapeFile::add(int number, std::size_t at, std::size_t size) {
  shapes_.try_emplace(number, Place{at, size});
}

// Little-endian; 0 where the file has ended.
std::size_t ShapeFile::number(std::size_t at, int bytes) const {
  if (at + static_cast<std::size_t>(bytes) > bytes_.size()) return 0;
  std::size_t value = 0;
  for (int i = bytes; i-- > 0;)
    value = value << 8 | static_cast<unsigned char>(bytes_[at + static_cast<std::size_t>(i)]);
  return value;
}

std::string_view ShapeFile::body(const Place& place) const {
  const std::string_view all = bytes_;
  return place.at <= all.size() ? all.substr(place.at, place.size) : std::string_view();
}

std::string_view ShapeFile::codes(int number) const {
  const auto found = shapes_.find(number);
  if (found == shapes_.end()) return {};
  const std::string_view shape = body(found->second);
  return shape.substr(std::min(nameOf(shape).size() + 1, shape.size()));
}

std::optional<int> ShapeFile::numberOf(std::wstring_view name) const {
  for (const auto& [number, place] : shapes_) {
    const std::wstring itsName = base::decode(nameOf(body(place)), base::kJapanese).text;
    if (base::equalFolded(itsName, name)) return number;
  }
  return std::nullopt;
}

base::Result<int> shapeNumber(const std::filesystem::path& path, std::wstring_view file,
                              std::wstring_view shape) {
  if (path.empty()) {
    if (const std::optional<int> number = usualNumber(file, shape)) return *number;
    return base::Failure{std::wstring(file), L"The shape file is not found"};
  }
  base::Result<std::string> bytes = base::readFile(path);
  if (!bytes) return bytes.failure();
  const base::Result<ShapeFile> shapes = ShapeFile::read(std::move(bytes.value()), file);
  if (!shapes) return shapes.failure();
  if (const std::optional<int> number = shapes.value().numberOf(shape)) return *number;
  return base::Failure{std::wstring(file), L"The file has no shape \"" + std::wstring(shape) + L"\""};
}

}  // namespace cad::support
