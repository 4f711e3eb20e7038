// cadhost: the embedded host in a window.

#include <windows.h>

#include <commctrl.h>
#include <objbase.h>
#include <shellapi.h>

#include <string>
#include <vector>

#include "base/files.h"
#include "cadhost/arguments.h"
#include "cadhost/frame_window.h"
#include "cadhost/script_file.h"
#include "embedded/editor/host.h"

namespace cadhost {
namespace {

constexpr wchar_t kProgram[] = L"CADHOST", kModule[] = L"KIVGUI.ARX";
constexpr char kSpecificationFolder[] = "CFG";  // beside the programs, where the module keeps them
constexpr int kUnusable = 2;
constexpr wchar_t kUsage[] =
    L"\n\n使い方: cadhost [--module ファイル] [--script ファイル] [--size 幅x高さ] [図面...]";

int complain(const std::wstring& text) {
  MessageBoxW(nullptr, text.c_str(), kProgram, MB_OK | MB_ICONERROR);
  return kUnusable;
}

std::vector<std::wstring> commandLineWords() {
  int count = 0;
  wchar_t** words = CommandLineToArgvW(GetCommandLineW(), &count);
  std::vector<std::wstring> out;
  for (int i = 1; words != nullptr && i < count; ++i) out.emplace_back(words[i]);
  LocalFree(words);
  return out;
}

void fill(FrameWindow& frame, const Arguments& arguments, const std::wstring& script) {
  const std::filesystem::path beside = cad::programFolder() / kModule;
  frame.loadModule(beside);
  for (const std::wstring& module : arguments.modules) frame.loadModule(base::pathFromText(module));
  for (const std::wstring& drawing : arguments.drawings) frame.openDrawing(base::pathFromText(drawing));
  frame.type(script);
}

int run(HINSTANCE instance, int how) {
  const base::Result<Arguments> parsed = parseArguments(commandLineWords());
  if (!parsed) return complain(parsed.failure().text() + kUsage);
  const Arguments& arguments = parsed.value();
  std::wstring script;
  if (!arguments.script.empty()) {
    base::Result<std::wstring> read = readScript(base::pathFromText(arguments.script));
    if (!read) return complain(L"スクリプトを読み込めませんでした。\n\n" + read.failure().text());
    script = std::move(read.value());
  }

  cad::Host& host = cad::Host::instance();
  FrameWindow frame(host);
  host.setSupportPath(cad::usualSupportPath(cad::programFolder() / kSpecificationFolder));
  host.start();
  if (!frame.create(instance, arguments.width, arguments.height))
    return complain(L"ウィンドウを作成できませんでした。");
  fill(frame, arguments, script);
  frame.show(how);
  const int status = frame.run();
  host.stop();
  return status;
}

}  // namespace
}  // namespace cadhost

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, PWSTR, int how) {
  INITCOMMONCONTROLSEX controls{sizeof controls, ICC_BAR_CLASSES | ICC_PROGRESS_CLASS | ICC_STANDARD_CLASSES};
  InitCommonControlsEx(&controls);
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  const int status = cadhost::run(instance, how);
  CoUninitialize();
  return status;
}
