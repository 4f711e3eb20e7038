#include "embedded/editor/computed_variables.h"

#include <ctime>

#include "base/codepage.h"
#include "base/files.h"
#include "embedded/editor/host_state.h"

namespace cad {
namespace {

std::wstring withSeparator(const std::filesystem::path& folder) {
  return folder.empty() ? L"" : base::pathText(folder / "");
}

std::int64_t flag(bool value) { return value ? 1 : 0; }

}  // namespace

Variable drawingName(HostState& state) { return state.documents.current()->name(); }

Variable drawingFolder(HostState& state) {
  const std::filesystem::path& path = state.documents.current()->drawing().path();
  std::error_code error;
  return withSeparator(path.empty() ? std::filesystem::current_path(error) : path.parent_path());
}

Variable drawingHasFile(HostState& state) {
  return flag(!state.documents.current()->drawing().path().empty());
}
Variable drawingModified(HostState& state) { return flag(state.documents.current()->drawing().isModified()); }

Variable drawingCodePage(HostState& state) {
  return base::fromUtf8(state.documents.current()->drawing().facts().codePageName);
}
Variable drawingWritable(HostState& state) { return flag(!state.documents.current()->isReadOnly()); }

Variable supportFolders(HostState& state) {
  std::wstring out;
  for (const std::filesystem::path& folder : state.supportPath) out += withSeparator(folder) + L";";
  return out;
}

Variable temporaryFolder(HostState&) {
  std::error_code error;
  return withSeparator(std::filesystem::temp_directory_path(error));
}

Variable dateAndTime(HostState&) {
  const std::time_t now = std::time(nullptr);
  const std::tm* local = std::localtime(&now);
  if (local == nullptr) return 0.0;
  const double date = (local->tm_year + 1900) * 10000.0 + (local->tm_mon + 1) * 100.0 + local->tm_mday;
  return date + (local->tm_hour * 10000.0 + local->tm_min * 100.0 + local->tm_sec) / 1e6;
}

Variable commandNames(HostState& state) { return state.commandLine.runningNames(); }
Variable commandsActive(HostState& state) { return flag(state.commandLine.isBusy()); }

}  // namespace cad
