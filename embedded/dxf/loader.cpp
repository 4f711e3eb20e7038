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
  bool betweenGroups = false;  // nothing is wrong but that the file ends
};

constexpr char kCtrlZ = 0x1A;  // old programs end a text with it
constexpr wchar_t kNoEnd[] = L"The file is cut off: it has no EOF";

// Nothing, or the beginning of EOF.
bool isStartOfEnd(std::string_view rest) {
  constexpr std::string_view kBlanks = " \t\r\n\x1A", kEnd = "EOF";
  rest = rest.substr(std::min(rest.find_first_not_of(kBlanks), rest.size()));
  rest = rest.substr(0, rest.find_last_not_of(kBlanks) + 1);
  if (rest.size() < 2) return rest.empty() || rest == "0";
  if (rest.front() != '0') return false;
  const std::size_t value = std::min(rest.find_first_not_of(kBlanks, 1), rest.size());
  const bool nextLine = rest.substr(1, value - 1).find_first_of("\r\n") != std::string_view::npos;
  rest = rest.substr(value);
  return nextLine && rest.size() < kEnd.size() && equalNoCase(rest, kEnd.substr(0, rest.size()));
}

template <char kEnd>
Broken scanText(std::string_view bytes, std::size_t start, Assembler& assembler) {
  const char* const base = bytes.data();
  const char* at = base + start;
  const char* end = base + bytes.size();
  while (end > at && end[-1] == kCtrlZ) --end;
  while (at < end) {
    const char* const group = at;
    const auto offset = static_cast<std::size_t>(group - base);
    int code = 0;
    if (!takeCode<kEnd>(at, end, code)) {
      if (isStartOfEnd(bytes.substr(offset))) return {kNoEnd, offset, true};
      const bool whole = std::find(group, end, kEnd) != end;
      return {whole ? L"This line should be a group code" : L"The file ends in the middle of a group",
              offset};
    }
    if (assembler.passesOver(code)) {
      if (const char* const lineEnd = findLineEnd<kEnd>(at, end); lineEnd != end) {
        at = lineEnd + 1;
        continue;
      }
    }
    std::string_view value;
    const char* const lineEnd = takeValue<kEnd>(at, end, value);
    if (code == 0 && value.size() < 3 && isStartOfEnd(bytes.substr(offset))) return {kNoEnd, offset, true};
    if (lineEnd == end && value.empty()) return {L"The file ends in the middle of a group", bytes.size()};
    if (!assembler.group(code, value, offset)) return {assembler.failure(), offset};
    at = lineEnd == end ? end : lineEnd + 1;
  }
  return {kNoEnd, static_cast<std::size_t>(end - base), true};
}

Broken scanBinary(std::string_view bytes, std::size_t start, const Dialect& dialect, Assembler& assembler) {
  constexpr std::size_t kWindow = std::size_t{1} << 31;  // positions within a group are 32 bits
  Group group;
  std::size_t at = start;
  while (at < bytes.size()) {
    if (!readBinaryGroup(bytes.substr(at, kWindow), 0, dialect.wideCodes, group)) {
      return {L"Here is no whole group of a known code", at};
    }
    if (!assembler.group(group.code, group.value, at)) return {assembler.failure(), at};
    at += group.end;
  }
  return {kNoEnd, bytes.size(), true};
}

Broken scan(std::string_view bytes, std::size_t start, const Dialect& dialect, Assembler& assembler) {
  if (dialect.binary) return scanBinary(bytes, start, dialect, assembler);
  return dialect.lineEnd == LineEnd::kCr ? scanText<'\r'>(bytes, start, assembler)
                                         : scanText<'\n'>(bytes, start, assembler);
}

std::wstring placeText(std::string_view bytes, std::size_t at, const Dialect& dialect) {
  if (dialect.binary) return L"byte " + std::to_wstring(at);
  const char mark = lineEndBytes(dialect.lineEnd).back();
  const auto lines = std::count(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(at), mark);
  return L"line " + std::to_wstring(lines + 1);
}

// Older files spell the layouts' blocks "$MODEL_SPACE" and "$PAPER_SPACE".
bool isSpaceName(const std::wstring& folded, std::wstring_view space) {
  return !folded.empty() && (folded[0] == L'*' || folded[0] == L'$') &&
         folded.compare(1, space.size(), space) == 0;
}

void noteSpace(const DxfStorage& storage, RecordId block, LoadedRecords& loaded) {
  constexpr std::wstring_view kModel = L"MODEL_SPACE", kPaper = L"PAPER_SPACE";
  Record& record = loaded.records[block];
  const StoredValue name = storage.property(record, Property::kName);
  if (!std::holds_alternative<std::string>(name)) return;
  const std::wstring& folded = loaded.names.folded(loaded.names.intern(std::get<std::string>(name)));
  const bool model = isSpaceName(folded, kModel), paper = isSpaceName(folded, kPaper);
  if (model || paper) record.flags |= Record::kLayoutSpace;
  if (model && loaded.modelSpace == kNoRecord) loaded.modelSpace = block;
  // "*Paper_Space" is the active layout; others have a number behind.
  if (paper && folded.size() == kPaper.size() + 1 && loaded.paperSpace == kNoRecord)
    loaded.paperSpace = block;
}

}  // namespace

base::Result<std::unique_ptr<Drawing>> read(std::shared_ptr<const SourceBytes> source) {
  const std::string_view bytes = source->view();
  const bool mark = bytes.starts_with(kByteOrderMark);
  const std::size_t start = prefixLength(bytes);
  const Dialect dialect = fileDialect(bytes.substr(0, std::size_t{1} << 20));
  Assembler assembler(dialect, bytes.size());
  const Broken broken = scan(bytes, start, dialect, assembler);
  const bool lacksEnd = !assembler.sawEnd() && broken.betweenGroups && assembler.isWholeWithoutEnd();
  if (!assembler.sawEnd() && !lacksEnd) {
    const bool first = broken.at == start && !dialect.binary;
    return base::Failure{placeText(bytes, broken.at, dialect),
                         first ? L"This is neither a DXF nor a DWG drawing" : broken.reason};
  }
  assembler.finish(broken.at, bytes.size());
  if (assembler.failure() != nullptr) return base::Failure{{}, assembler.failure()};
  LoadedRecords loaded = assembler.take();
  const RecordId header = assembler.frame().sectionBegin[index(Section::kHeader)];
  std::string_view headerBytes;
  if (header != kNoRecord)
    headerBytes = bytes.substr(loaded.records[header].offset, loaded.records[header].length);
  DrawingFacts facts = readFacts(headerBytes, dialect, mark);
  facts.lacksEnd = lacksEnd;
  loaded.names.setCodePage(facts.codePage);
  auto storage = std::make_unique<DxfStorage>(std::move(source), dialect, facts, assembler.frame());
  for (const RecordId block : assembler.blocks()) noteSpace(*storage, block, loaded);
  return std::make_unique<Drawing>(std::move(storage), std::move(loaded));
}

base::Result<std::unique_ptr<Drawing>> loadBytes(std::string bytes) {
  return read(std::make_shared<const SourceBytes>(std::move(bytes)));
}

}  // namespace cad::dxf
