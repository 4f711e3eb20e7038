#include "base/codepage.h"
#include "base/files.h"
#include "embedded/editor/commands/builtin.h"
#include "embedded/editor/file_search.h"
#include "embedded/editor/host_state.h"
#include "embedded/editor/output.h"

namespace cad {
namespace {

std::wstring decodeScript(std::string_view bytes) {
  if (bytes.starts_with("\xFF\xFE")) return base::decodeUtf16(bytes.substr(2));
  if (bytes.starts_with("\xEF\xBB\xBF")) return base::decode(bytes.substr(3), base::kUtf8).text;
  base::Decoded utf8 = base::decode(bytes, base::kUtf8);
  return utf8.clean ? std::move(utf8.text) : base::decode(bytes, base::kJapanese).text;
}

}  // namespace

Outcome runScript(TokenReader& input, HostState& state) {
  const std::optional<Token> typed = input.nextPath();
  if (!typed) return Outcome::kNeedInput;
  std::filesystem::path path = findFile(typed->text);
  if (path.empty()) path = findFile(typed->text + L".scr");
  if (path.empty()) path = base::pathFromText(typed->text);
  const base::Result<std::string> bytes = base::readFile(path);
  if (!bytes) {
    report(bytes.failure());
    return Outcome::kRefused;
  }
  state.commandLine.script().start(path, decodeScript(bytes.value()));
  return Outcome::kDone;
}

Outcome runResume(TokenReader&, HostState& state) {
  if (state.commandLine.script().resume()) return Outcome::kDone;
  report({L"RESUME", L"No script is suspended."});
  return Outcome::kRefused;
}

}  // namespace cad
