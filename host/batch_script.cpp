#include "host/batch_script.h"

#include <cstdint>
#include <filesystem>
#include <system_error>

#include "acedCmdNF.h"
#include "acedads.h"
#include "adscodes.h"
#include "base/files.h"
#include "base/media.h"
#include "base/paths.h"
#include "dbapserv.h"
#include "platform/file_access.h"
#include "platform/host_documents.h"
#include "platform/host_output.h"
#include "ui/messages.h"

namespace kiv {
namespace {

void addUnit(std::string& bytes, std::uint32_t unit) {
  bytes += static_cast<char>(unit & 0xFF);
  bytes += static_cast<char>(unit >> 8);
}

// Little-endian, with its mark.
std::string encodeUtf16(std::wstring_view text) {
  constexpr std::uint32_t kMark = 0xFEFF, kFirstOfPairs = 0x10000;
  std::string bytes;
  addUnit(bytes, kMark);
  for (const wchar_t character : text) {
    const auto code = static_cast<std::uint32_t>(character);
    if (code < kFirstOfPairs) {
      addUnit(bytes, code);
    } else {
      addUnit(bytes, 0xD800 + ((code - kFirstOfPairs) >> 10));
      addUnit(bytes, 0xDC00 + ((code - kFirstOfPairs) & 0x3FF));
    }
  }
  return bytes;
}

// The host asks before it opens such a drawing, unless the drive says it all.
bool asksForReading(const std::wstring& path) {
  return isOpenInHost(path) || (!canBeWritten(path) && !base::isOnCompactDisc(base::pathFromText(path)));
}

// In the host's folder for temporary files, in the current one when no system tells any.
std::wstring scriptFile() {
  const ACHAR* const given = acdbHostApplicationServices()->getEnv(L"TempDirectory");
  std::wstring folder = given != nullptr ? given : L"";
  if (folder.empty()) {
    std::error_code error;
    folder = base::pathText(std::filesystem::temp_directory_path(error));
  }
  return base::joinPath(folder, L"DWGOPEN.SCR");
}

base::Status write(const std::wstring& file, const std::wstring& text) {
  std::wstring lines;
  for (const wchar_t character : text) {
    if (character == L'\n') lines += L'\r';
    lines += character;
  }
  return base::writeFileAtomically(base::pathFromText(file), encodeUtf16(lines));
}

// Whoever watches the variable is told that a script follows; its value stays.
void writeBackUserNumber() {
  resbuf value{};
  if (acedGetVar(L"USERR1", &value) == RTNORM) acedSetVar(L"USERR1", &value);
}

}  // namespace

bool canStandInScript(const std::wstring& path) {
  return path.find_first_of(L"\"\r\n") == std::wstring::npos;
}

std::wstring batchScript(const std::vector<std::wstring>& drawings) {
  std::wstring text;
  for (const std::wstring& path : drawings) {
    text += L"_.OPEN\n\"" + path + L"\"\n";
    if (asksForReading(path)) text += L"Y\n";
    text += L"KIV_TOACAD2\n";
  }
  return text;
}

bool startScript(const std::wstring& text) {
  const std::wstring file = scriptFile();
  if (const base::Status written = write(file, text); !written) {
    printError(refusalText(L"ｽｸﾘﾌﾟﾄを書き出せません.", written.failure()));
    return false;
  }
  writeBackUserNumber();
  const int started = acedCommandS(RTSTR, L"SCRIPT", RTSTR, file.c_str(), RTNONE);
  acedCommandS(RTNONE);
  if (started == RTNORM) return true;
  printError(L"ｽｸﾘﾌﾟﾄを開始できません: " + file);
  return false;
}

}  // namespace kiv
