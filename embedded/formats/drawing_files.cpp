#include "embedded/formats/drawing_files.h"

#include <algorithm>
#include <span>
#include <utility>
#include <vector>

#include "base/fold.h"
#include "embedded/drawing/handle_text.h"
#include "embedded/dwg/file_mark.h"
#include "embedded/dwg/loader.h"
#include "embedded/dxf/loader.h"

namespace cad::formats {
namespace {

using namespace std::string_view_literals;

// --- Files that are no drawing which can be read, so that the refusal can say what to do about them

struct ForeignFormat {
  std::size_t at;
  std::string_view bytes;
  const wchar_t* name;
  const wchar_t* advice;
};

constexpr const wchar_t* kText = L"; please save the drawing as DXF in UTF-8 or ANSI";
constexpr const wchar_t* kPacked = L"; please unpack the drawing first";
constexpr const wchar_t* kOldDwg = L"a DWG drawing of a version before R13";
constexpr const wchar_t* kNewer = L"; please save it in a newer one";
constexpr ForeignFormat kUtf16{0, "\xFF\xFE"sv, L"UTF-16 text", kText};

// UTF-32 stands before UTF-16, whose mark it begins with.
constexpr ForeignFormat kForeign[] = {
    {0, "AC1."sv, kOldDwg, kNewer},
    {0, "AC2."sv, kOldDwg, kNewer},
    {0, "MC0.0"sv, kOldDwg, kNewer},
    {0, "\xFF\xFE\0\0"sv, L"UTF-32 text", kText},
    {0, "\0\0\xFE\xFF"sv, L"UTF-32 text", kText},
    kUtf16,
    {0, "\xFE\xFF"sv, kUtf16.name, kText},
    {0, "\x1F\x8B"sv, L"a file compressed with gzip", kPacked},
    {0, "\x1F\x9D"sv, L"a file compressed with compress", kPacked},
    {0, "BZh"sv, L"a file compressed with bzip2", kPacked},
    {0, "\xFD\x37zXZ\0"sv, L"a file compressed with xz", kPacked},
    {0, "\x28\xB5\x2F\xFD"sv, L"a file compressed with zstd", kPacked},
    {0, "\x04\x22\x4D\x18"sv, L"a file compressed with lz4", kPacked},
    {0, "LZIP"sv, L"a file compressed with lzip", kPacked},
    {0, "PK\3\4"sv, L"a zip archive", kPacked},
    {0, "PK\5\6"sv, L"a zip archive", kPacked},
    {0, "PK\7\x08"sv, L"a zip archive", kPacked},
    {0, "7z\xBC\xAF\x27\x1C"sv, L"a 7z archive", kPacked},
    {0, "Rar!\x1A\7"sv, L"a RAR archive", kPacked},
    {0, "MSCF"sv, L"a cabinet archive", kPacked},
    {2, "-lh"sv, L"an LHA archive", kPacked},
    {2, "-lz"sv, L"an LHA archive", kPacked},
    {257, "ustar"sv, L"a tar archive", kPacked},
    {0, "%PDF"sv, L"a PDF document", L""},
};

std::wstring refusal(const ForeignFormat& format) {
  return std::wstring(L"This is ") + format.name + format.advice;
}

// Without a mark the text shows itself: every other byte of digits, blanks and line ends is zero.
bool isUnmarkedUtf16(std::string_view bytes) {
  constexpr std::size_t kSample = 4;
  if (bytes.size() < kSample) return false;
  const auto isPlain = [](char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n' || (c >= '0' && c <= '9');
  };
  for (const std::size_t low : {0, 1}) {
    bool fits = true;
    for (std::size_t i = 0; i < kSample && fits; i += 2)
      fits = isPlain(bytes[i + low]) && bytes[i + 1 - low] == '\0';
    if (fits) return true;
  }
  return false;
}

// A sentence, by the file's first bytes. Empty when they are none that are known here.
std::wstring foreignFormat(std::string_view bytes) {
  const auto found = std::ranges::find_if(kForeign, [&](const ForeignFormat& format) {
    return bytes.size() > format.at && bytes.substr(format.at).starts_with(format.bytes);
  });
  if (found != std::end(kForeign)) return refusal(*found);
  return isUnmarkedUtf16(bytes) ? refusal(kUtf16) : std::wstring();
}

// --- Reading -------------------------------------------------------------------------------------------

using Opened = base::Result<std::unique_ptr<Drawing>>;

// Those that tell their files by a mark; DXF has none, and takes what is left.
std::vector<Format>& markedFormats() {
  static std::vector<Format> formats;
  return formats;
}

Opened read(const std::shared_ptr<const SourceBytes>& source) {
  const std::string_view bytes = source->view();
  if (bytes.empty()) return base::Failure{{}, L"The file is empty"};
  for (const Format& format : markedFormats())
    if (bytes.starts_with(format.mark)) return format.read(source);
  if (dwg::isDwg(bytes)) return dwg::read(source);
  if (const std::wstring foreign = foreignFormat(bytes); !foreign.empty()) return base::Failure{{}, foreign};
  return dxf::read(source);
}

// "1A, 2B, 3C, ..."
std::wstring firstHandles(const std::vector<Handle>& objects) {
  constexpr std::size_t kMost = 5;
  std::wstring text;
  for (const Handle handle : std::span(objects).first(std::min(kMost, objects.size())))
    text += (text.empty() ? L"" : L", ") + handleText(handle);
  return objects.size() > kMost ? text + L", ..." : text;
}

// --- Kinds of files --------------------------------------------------------------------------------------

struct KindRow {
  std::wstring_view name, format;
  std::wstring_view word{}, letter{};  // of the SAVEAS command; empty: it has none for this kind
};

constexpr KindRow kKinds[] = {
    {L"DWG", L"DWG"}, {L"DXF", L"DXF", L"DXF"}, {L"DWT", L"DWG", L"TEMPLATE", L"T"}};

const KindRow& row(FileKind kind) { return kKinds[static_cast<std::size_t>(kind)]; }

}  // namespace

FormatForTests::FormatForTests(const Format& format) : mark_(format.mark) {
  markedFormats().push_back(format);
}
FormatForTests::~FormatForTests() {
  std::erase_if(markedFormats(), [&](const Format& each) { return each.mark == mark_; });
}

Opened open(const std::filesystem::path& path) {
  auto file = base::FileBytes::open(path);
  if (!file) return file.failure();
  const auto source = std::make_shared<const SourceBytes>(std::move(file.value()));
  Opened result = read(source);
  if (base::Status unchanged = source->checkUnchanged(); !unchanged) return unchanged.failure();
  const std::wstring name = base::pathText(path);
  if (!result) {
    const base::Failure& failure = result.failure();
    return base::Failure{failure.place.empty() ? name : name + L", " + failure.place, failure.reason};
  }
  result.value()->setPath(path);
  return result;
}

Opened openBytes(std::string bytes) { return read(std::make_shared<const SourceBytes>(std::move(bytes))); }

std::vector<std::wstring> warningsAbout(const Drawing& drawing) {
  std::vector<std::wstring> warnings;
  const DrawingFacts& facts = drawing.facts();
  if (facts.lacksEnd && drawing.format() == L"DWG") {
    warnings.emplace_back(
        L"The drawing is damaged: its second header, at the file's end, is missing or damaged; nothing that "
        L"is "
        L"read stands there");
  } else if (facts.lacksEnd) {
    warnings.emplace_back(L"The file has no EOF; its last section is whole, so it was read as it stands");
  }
  const auto tell = [&](const std::vector<Handle>& objects, const wchar_t* one, const wchar_t* several) {
    if (objects.empty()) return;
    warnings.push_back(L"The drawing is damaged: " + std::to_wstring(objects.size()) +
                       (objects.size() == 1 ? one : several) + L" (" + firstHandles(objects) + L")");
  };
  tell(facts.damage.unreadable, L" of its objects cannot be read and stays as it came",
       L" of its objects cannot be read and stay as they came");
  tell(facts.damage.withWrongChecksum, L" of its objects has a wrong checksum and was read as it stands",
       L" of its objects have a wrong checksum and were read as they stand");
  tell(facts.damage.ownerless, L" of its entities belongs to no block and stays as it came",
       L" of its entities belong to no block and stay as they came");
  return warnings;
}

Opened create(Version version) {
  if (version >= Version::kR2000 && version < Version::kUnknown) return dxf::newDrawing(version);
  const std::string_view code = versionCode(version);
  return base::Failure{std::wstring(code.begin(), code.end()), L"New drawings of this version are not made"};
}

std::span<const std::wstring_view> extensions() {
  static constexpr std::wstring_view kExtensions[] = {L".dxf", L".dwg", L".dwt"};
  return kExtensions;
}

std::wstring_view kindName(FileKind kind) { return row(kind).name; }

FileKind kindOf(std::wstring_view extension) {
  return base::equalFolded(extension, L".DXF") ? FileKind::kDxf : FileKind::kDwg;
}

std::optional<FileKind> kindByWord(std::wstring_view word) {
  if (word.starts_with(L'_')) word.remove_prefix(1);  // as in every language of the host
  for (const FileKind kind : {FileKind::kDwg, FileKind::kDxf, FileKind::kDwt}) {
    const bool known = base::equalFolded(word, row(kind).word) || base::equalFolded(word, row(kind).letter);
    if (!word.empty() && known) return kind;
  }
  return std::nullopt;
}

bool canSave(const Drawing& drawing, FileKind kind) { return drawing.format() == row(kind).format; }

base::Status checkSavable(const Drawing& drawing, FileKind kind) {
  if (canSave(drawing, kind)) return {};
  return base::Failure{{},
                       L"saving a " + std::wstring(drawing.format()) + L" drawing as " +
                           std::wstring(kindName(kind)) + L" is not supported yet"};
}

}  // namespace cad::formats
