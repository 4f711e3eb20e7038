#include "cadhost/script_file.h"

#include "base/codepage.h"
#include "base/files.h"

namespace cadhost {
namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF", kUtf16Mark = "\xFF\xFE";

std::wstring decodeUtf16(std::string_view bytes) {
  std::wstring out;
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
    const auto low = static_cast<unsigned char>(bytes[i]), high = static_cast<unsigned char>(bytes[i + 1]);
    out += static_cast<wchar_t>(low | high << 8);
  }
  return out;
}

}  // namespace

std::wstring decodeScript(std::string_view bytes) {
  if (bytes.starts_with(kUtf16Mark)) return decodeUtf16(bytes.substr(kUtf16Mark.size()));
  if (bytes.starts_with(kUtf8Mark)) bytes.remove_prefix(kUtf8Mark.size());
  base::Decoded text = base::decode(bytes, base::kUtf8);
  return text.clean ? std::move(text.text) : base::decode(bytes, base::kJapanese).text;
}

base::Result<std::wstring> readScript(const std::filesystem::path& path) {
  const base::Result<std::string> bytes = base::readFile(path);
  if (!bytes) return bytes.failure();
  std::wstring text = decodeScript(bytes.value());
  if (!text.empty() && text.back() != L'\n') text += L'\n';
  return text;
}

}  // namespace cadhost
