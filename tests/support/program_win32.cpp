#include <windows.h>

#include <fstream>
#include <iterator>

#include "base/codepage.h"
#include "tests/support/program.h"
#include "tests/support/temp_path.h"

namespace test_support {
namespace {

namespace fs = std::filesystem;

// As the system's own splitting of a command line undoes it: backslashes count before a quote only.
void appendWord(std::wstring& line, const std::wstring& word) {
  if (!line.empty()) line += L' ';
  line += L'"';
  std::size_t backslashes = 0;
  for (const wchar_t c : word) {
    if (c == L'"') line.append(backslashes + 1, L'\\');
    backslashes = c == L'\\' ? backslashes + 1 : 0;
    line += c;
  }
  line.append(backslashes, L'\\');
  line += L'"';
}

HANDLE openForChild(const fs::path& path, DWORD access, DWORD disposition) {
  SECURITY_ATTRIBUTES inherited{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
  return CreateFileW(path.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited, disposition,
                     FILE_ATTRIBUTE_NORMAL, nullptr);
}

std::string takeContent(const fs::path& path) {
  std::string content;
  {
    std::ifstream file(path, std::ios::binary);
    content.assign(std::istreambuf_iterator<char>(file), {});
  }
  std::error_code ignored;
  fs::remove(path, ignored);
  return content;
}

int runToEnd(const std::wstring& program, std::wstring line, const fs::path& folder, STARTUPINFOW& start) {
  PROCESS_INFORMATION process{};
  if (CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, TRUE, CREATE_NO_WINDOW, nullptr,
                     folder.c_str(), &start, &process) == 0) {
    return -1;
  }
  WaitForSingleObject(process.hProcess, INFINITE);
  DWORD status = 0;
  GetExitCodeProcess(process.hProcess, &status);
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  return static_cast<int>(status);
}

}  // namespace

ProgramRun runProgram(const fs::path& program, const std::vector<std::string>& words,
                      const fs::path& folder) {
  const std::wstring full = fs::absolute(program).make_preferred().wstring();
  std::wstring line;
  appendWord(line, full);
  for (const std::string& word : words) appendWord(line, base::fromUtf8(word));

  const fs::path out = tempPath("kiv-out"), err = tempPath("kiv-err");
  STARTUPINFOW start{};
  start.cb = sizeof start;
  start.dwFlags = STARTF_USESTDHANDLES;
  start.hStdInput = openForChild("NUL", GENERIC_READ, OPEN_EXISTING);
  start.hStdOutput = openForChild(out, GENERIC_WRITE, CREATE_ALWAYS);
  start.hStdError = openForChild(err, GENERIC_WRITE, CREATE_ALWAYS);
  const int status = runToEnd(full, line, folder, start);
  for (HANDLE handle : {start.hStdInput, start.hStdOutput, start.hStdError}) CloseHandle(handle);
  return {status, takeContent(out), takeContent(err)};
}

void* hostFunction(const char* mangledName) {
  const HMODULE host = GetModuleHandleW(L"libembedded_host.dll");
  return reinterpret_cast<void*>(GetProcAddress(host, mangledName));
}

}  // namespace test_support
