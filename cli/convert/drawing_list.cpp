#include "cli/convert/drawing_list.h"

#include <algorithm>
#include <iostream>
#include <iterator>
#include <set>
#include <system_error>

#include "base/codepage.h"
#include "base/file_errors.h"
#include "base/files.h"
#include "base/utf8.h"
#include "cli/drawing_folders.h"
#include "cli/language/language.h"
#include "cli/opened_drawing.h"

namespace kivcli {
namespace {

namespace fs = std::filesystem;

class FolderWalk {
 public:
  FolderWalk(std::vector<ListedDrawing>& drawings, const fs::path& outputFolder) : drawings_(drawings) {
    std::error_code error;
    const fs::path output = fs::canonical(outputFolder, error);
    if (!error) entered_.insert(output);
  }

  void enter(const fs::path& folder, const fs::path& below) {
    std::error_code error;
    const fs::path real = fs::canonical(folder, error);
    if (!error && !entered_.insert(real).second) return;
    std::vector<fs::path> names;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
      names.push_back(entry->path().filename());
    }
    if (error) {
      drawings_.push_back(
          {base::pathText(folder), below,
           tr(L"this folder cannot be read: %1", {translated(base::fileFailure(folder, error).reason)})});
      return;
    }
    std::ranges::sort(names);
    for (const fs::path& name : names) take(folder / name, below);
  }

 private:
  void take(const fs::path& path, const fs::path& below) {
    std::error_code unknown;
    if (fs::is_directory(path, unknown)) {
      enter(path, below / path.filename());
    } else if (hasNameOfDrawing(path)) {
      const std::wstring name = base::pathText(path);
      drawings_.push_back(
          {name, below, isStream(name) ? tr(L"this is a pipe or a device, and no file") : L""});
    }
  }

  std::vector<ListedDrawing>& drawings_;
  std::set<fs::path> entered_;
};

void add(std::vector<ListedDrawing>& drawings, const std::wstring& name, const Arguments& arguments) {
  const fs::path path = base::pathFromText(name);
  std::error_code unknown;
  if (!fs::is_directory(path, unknown)) {
    drawings.push_back({name, {}, arguments.isDryRun ? whyNotReadTwice(name) : L""});
  } else if (!arguments.recursive) {
    drawings.push_back(
        {name, {}, tr(L"this is a folder; --recursive converts the drawings in it and below it")});
  } else {
    const std::size_t before = drawings.size();
    FolderWalk(drawings, base::pathFromText(arguments.outputFolder)).enter(path, {});
    if (drawings.size() == before) {
      drawings.push_back({name, {}, tr(L"there is no drawing in this folder or below it")});
    }
  }
}

base::Result<std::string> contentOf(const std::wstring& list) {
  if (list != L"-") return base::readFile(base::pathFromText(list));
  std::string content(std::istreambuf_iterator<char>(std::cin), {});
  if (std::cin.bad()) return base::Failure{L"", tr(L"standard input cannot be read")};
  return content;
}

// A name that is no UTF-8 is one of the system's own, or comes from a list in code page 932.
std::wstring nameOnThisSystem(const std::wstring& name) {
  if (base::utf8::encode(name).clean) return name;
  std::error_code unknown;
  if (fs::exists(base::pathFromText(name), unknown)) return name;
  const base::Decoded japanese = base::decode(base::utf8::encodeName(name), base::kJapanese);
  return japanese.clean ? japanese.text : name;
}

}  // namespace

std::vector<std::wstring> namesInList(const std::string& bytes) {
  constexpr std::string_view kMark = "\xEF\xBB\xBF", kWideMark = "\xFF\xFE";
  if (bytes.starts_with(kWideMark))
    return namesInList(base::utf8::encodeName(base::decodeUtf16(std::string_view(bytes).substr(2))));
  std::string_view rest = bytes;
  if (rest.starts_with(kMark)) rest.remove_prefix(kMark.size());
  const bool hasZeros = rest.find('\0') != std::string_view::npos;
  std::vector<std::wstring> names;
  while (!rest.empty()) {
    const std::size_t end = std::min(rest.find(hasZeros ? '\0' : '\n'), rest.size());
    std::string_view name = rest.substr(0, end);
    if (!hasZeros && name.ends_with('\r')) name.remove_suffix(1);
    if (name.find_first_not_of(hasZeros ? "" : " \t") != std::string_view::npos) {
      names.push_back(base::utf8::decodeName(name));
    }
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  return names;
}

base::Result<std::vector<ListedDrawing>> listDrawings(const Arguments& arguments) {
  std::vector<ListedDrawing> drawings;
  for (const std::wstring& name : arguments.files) add(drawings, name, arguments);
  if (arguments.filesFrom.empty()) return drawings;
  const base::Result<std::string> content = contentOf(arguments.filesFrom);
  if (!content) return base::Failure{L"--files-from " + arguments.filesFrom, content.failure().reason};
  const std::vector<std::wstring> names = namesInList(content.value());
  for (const std::wstring& name : names) add(drawings, nameOnThisSystem(name), arguments);
  if (names.empty()) {
    const bool isStream = arguments.filesFrom == L"-";
    drawings.push_back(
        {isStream ? tr(L"standard input") : arguments.filesFrom, {}, tr(L"this list names no drawing")});
  }
  return drawings;
}

}  // namespace kivcli
