#include "base/files.h"
#include "base/paths.h"
#include "embedded/editor/commands/builtin.h"
#include "embedded/editor/host_state.h"
#include "embedded/editor/output.h"
#include "embedded/formats/drawing_files.h"

namespace cad {
namespace {

using formats::FileKind;

// Beside a document of the same file, a drawing that was opened read-only must not take its place.
base::Status write(Document& document, const std::filesystem::path& path) {
  std::error_code error;
  const std::filesystem::path& own = document.drawing().path();
  if (document.isReadOnly() && (own == path || std::filesystem::equivalent(own, path, error)))
    return base::Failure{base::pathText(path), L"the drawing was opened read-only; give it another name"};
  const base::Status saved = document.drawing().save(path);
  if (saved) document.setReadOnly(false);
  return saved;
}

Outcome keep(HostState& state, const std::filesystem::path& path, const base::Status& status) {
  state.lastSave = SaveReport{path, status};
  if (status) return Outcome::kDone;
  report(status.failure());
  return Outcome::kRefused;
}

Outcome refuse(HostState& state, const std::filesystem::path& path, std::wstring why) {
  return keep(state, path, base::Failure{base::pathText(path), std::move(why)});
}

bool isNumber(const Token& token) { return token.number().has_value(); }

// The options of a format before the file's name: the version, the precision, the format once more.
std::optional<Token> readPath(TokenReader& input, FileKind kind) {
  while (true) {
    const std::optional<Token> token = input.nextPath();
    if (!token) return std::nullopt;
    if (token->is(L"V") || token->is(L"VERSION")) {
      if (!input.next()) return std::nullopt;  // a drawing keeps its version
    } else if (!token->text.empty() && formats::kindByWord(token->text) != kind && !isNumber(*token)) {
      return token;
    }
  }
}

// A file may have nothing else as its name.
std::wstring extensionOf(const std::filesystem::path& path) {
  return base::splitPath(base::pathText(path.filename())).extension;
}

Outcome save(TokenReader& input, HostState& state, FileKind kind, std::filesystem::path path) {
  const std::wstring kindName(formats::kindName(kind));
  if (extensionOf(path).empty()) path += base::pathFromText(L"." + kindName);
  Document* document = state.documents.current();
  if (base::Status savable = formats::checkSavable(document->drawing(), kind); !savable) {
    input.takeIf(L"Y", L"YES");
    return refuse(state, path, savable.failure().reason);
  }
  const bool overwrite = input.takeIf(L"Y", L"YES");
  std::error_code error;
  if (std::filesystem::exists(path, error) && !overwrite) {
    const base::Failure failure{base::pathText(path), L"the file exists and was not overwritten"};
    state.lastSave = SaveReport{path, failure};
    if (!input.peek()) return Outcome::kNeedInput;
    input.takeIf(L"N", L"NO");
    return keep(state, path, failure);
  }
  if (state.documents.find(path, document) != nullptr)
    return refuse(state, path, L"the file is open as another drawing");
  return keep(state, path, write(*document, path));
}

}  // namespace

Outcome runSaveAs(TokenReader& input, HostState& state) {
  const std::optional<Token> first = input.nextPath();
  if (!first) return Outcome::kNeedInput;
  std::optional<Token> path;
  const std::optional<FileKind> kind = formats::kindByWord(first->text);
  if (kind == FileKind::kDwt) {
    path = input.nextPath();
  } else if (kind) {
    path = readPath(input, *kind);
  } else if (first->text.empty() || isNumber(*first)) {
    path = input.nextPath();
  } else {
    path = first;
  }
  if (!path) return Outcome::kNeedInput;
  const std::filesystem::path target = base::pathFromText(path->text);
  if (target.empty()) return refuse(state, target, L"a file name is needed");
  return save(input, state, kind.value_or(formats::kindOf(extensionOf(target))), target);
}

Outcome runQuickSave(TokenReader&, HostState& state) {
  Document& document = *state.documents.current();
  const std::filesystem::path path = document.drawing().path();
  if (path.empty()) {
    report({document.name(), L"the drawing has no file yet; use SAVEAS"});
    return Outcome::kRefused;
  }
  return keep(state, path, write(document, path));
}

}  // namespace cad
