#include "embedded/dxf/loader.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "embedded/dxf/assembler.h"
#include "embedded/dxf/dxf_storage.h"
#include "embedded/dxf/file_facts.h"
#include "embedded/dxf/text_lines.h"

namespace cad::dxf {
namespace {

struct Broken {
  const wchar_t* reason = nullptr;
  std::size_t at = 0;
};

Broken scanText(std::string_view bytes, std::size_t start, Assembler& assembler) {
  const char* const base = bytes.data();
  const char* at = base + start;
  const char* const end = base + bytes.size();
  while (at < end) {
    const char* const group = at;
    const auto offset = static_cast<std::size_t>(group - base);
    int code = 0;
    if (!takeCode(at, end, code)) {
      const bool whole = std::find(group, end, '\n') != end;
      return {whole ? L"This line should be a group code" : L"The file ends in the middle of a group",
              offset};
    }
    const char* const lineEnd = findLineEnd(at, end);
    const char* const valueEnd = lineEnd > at && lineEnd[-1] == '\r' ? lineEnd - 1 : lineEnd;
    const std::string_view value(at, static_cast<std::size_t>(valueEnd - at));
    if (lineEnd == end && value.empty()) return {L"The file ends in the middle of a group", bytes.size()};
    if (!assembler.group(code, value, offset)) return {assembler.failure(), offset};
    at = lineEnd == end ? end : lineEnd + 1;
  }
  return {L"The file is cut off: it has no EOF", bytes.size()};
}

Broken scanBinary(std::string_view bytes, const Dialect& dialect, Assembler& assembler) {
  constexpr std::size_t kWindow = std::size_t{1} << 31;  // positions within a group are 32 bits
  Group group;
  std::size_t at = kBinarySentinel.size();
  while (at < bytes.size()) {
    if (!readBinaryGroup(bytes.substr(at, kWindow), 0, dialect.wideCodes, group)) {
      return {L"Here is no whole group of a known code", at};
    }
    if (!assembler.group(group.code, group.value, at)) return {assembler.failure(), at};
    at += group.end;
  }
  return {L"The file is cut off: it has no EOF", bytes.size()};
}

std::wstring placeText(std::string_view bytes, std::size_t at, bool binary) {
  if (binary) return L"byte " + std::to_wstring(at);
  const auto lines = std::count(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(at), '\n');
  return L"line " + std::to_wstring(lines + 1);
}

using Loaded = base::Result<std::unique_ptr<Drawing>>;

Loaded assemble(std::unique_ptr<SourceBytes> source) {
  const std::string_view bytes = source->view();
  if (bytes.empty()) return base::Failure{{}, L"The file is empty"};
  if (bytes.starts_with("AC1")) return base::Failure{{}, L"This is a DWG drawing; only DXF can be read yet"};
  const bool mark = bytes.starts_with(kByteOrderMark);
  const std::size_t start = mark ? kByteOrderMark.size() : 0;
  const bool binary = bytes.starts_with(kBinarySentinel);
  const Dialect dialect = binary ? binaryDialect(bytes.substr(kBinarySentinel.size()))
                                 : textDialect(bytes.substr(start, std::size_t{1} << 20));
  Assembler assembler(dialect);
  const Broken broken = binary ? scanBinary(bytes, dialect, assembler) : scanText(bytes, start, assembler);
  if (!assembler.sawEnd()) {
    const bool first = broken.at == start && !binary;
    return base::Failure{placeText(bytes, broken.at, binary),
                         first ? L"This is not a DXF drawing" : broken.reason};
  }
  assembler.finish(bytes.size());
  if (assembler.failure() != nullptr) return base::Failure{{}, assembler.failure()};
  LoadedRecords loaded = assembler.take();
  const RecordId header = loaded.frame.sectionBegin[static_cast<std::size_t>(Section::kHeader)];
  std::string_view headerBytes;
  if (header != kNoRecord)
    headerBytes = bytes.substr(loaded.records[header].offset, loaded.records[header].length);
  const DrawingFacts facts = readFacts(headerBytes, dialect, mark);
  loaded.names.setCodePage(facts.codePage);
  auto storage = std::make_unique<DxfStorage>(std::move(source), dialect, facts);
  return std::make_unique<Drawing>(std::move(storage), std::move(loaded));
}

}  // namespace

Loaded load(const std::filesystem::path& path) {
  auto file = base::MappedFile::open(path);
  if (!file) return file.failure();
  Loaded result = assemble(std::make_unique<SourceBytes>(std::move(file.value())));
  const std::wstring name = base::pathText(path);
  if (!result) {
    const base::Failure& failure = result.failure();
    return base::Failure{failure.place.empty() ? name : name + L", " + failure.place, failure.reason};
  }
  result.value()->setPath(path);
  return result;
}

Loaded loadBytes(std::string bytes) { return assemble(std::make_unique<SourceBytes>(std::move(bytes))); }

}  // namespace cad::dxf
