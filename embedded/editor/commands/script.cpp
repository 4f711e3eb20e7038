#include "base/codepage.h"
#include "base/files.h"
#include "embedded/editor/commands/builtin.h"
#include "embedded/editor/file_search.h"
#include "embedded/editor/host_state.h"
#include "embedded/editor/output.h"

namespace cad {
namespace {

std::wstring decodeUtf16(std::string_view bytes) {
  std::wstring out;
  const auto unit = [&](std::size_t at) {
    return static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[at])) |
           static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[at + 1])) << 8;
  };
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
    std::uint32_t c = unit(i);
    const bool isPair = sizeof(wchar_t) == 4 && c >= 0xD800 && c < 0xDC00 && i + 3 < bytes.size();
    if (isPair) {
      c = 0x10000 + ((c - 0xD800) << 10) + (unit(i + 2) - 0xDC00);
      i += 2;
    }
    out += static_cast<wchar_t>(c);
  }
  return out;
}

std::wstring decodeScript(std::string_view bytes) {
  if (bytes.starts_with("\xFF\xFE")) return decodeUtf16(bytes.substr(2));
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
