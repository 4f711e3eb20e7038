#include "cadhost/frame_window.h"

#include <commctrl.h>

#include <algorithm>

#include "base/files.h"
#include "base/fold.h"
#include "cadhost/color_dialog.h"
#include "cadhost/copied_data.h"
#include "cadhost/resource.h"
#include "cadhost/window_support.h"

namespace cadhost {
namespace {

constexpr wchar_t kClass[] = L"CadhostFrame", kProgram[] = L"CADHOST";
constexpr wchar_t kColorFunction[] = L"acad_colordlg";
constexpr UINT kRunLines = WM_APP + 1;
constexpr ULONGLONG kPaintEvery = 200;  // milliseconds
constexpr int kLeastWidth = 480, kLeastHeight = 360;

// Of a command that a person answers in a dialog; 0: of none.
int commandWithDialog(std::wstring_view name) {
  if (name == L"OPEN") return IDM_OPEN;
  if (name == L"SAVE") return IDM_SAVE;
  if (name == L"SAVEAS") return IDM_SAVE_AS;
  return name == L"COLOR" ? IDM_COLOR : 0;
}

}  // namespace

FrameWindow::FrameWindow(cad::Host& host)
    : host_(host),
      pump_(host, input_),
      runner_(host, input_),
      files_(host, [this](const std::wstring& line) { return runner_.run(line); }),
      view_(host, input_) {}

FrameWindow::~FrameWindow() {
  if (window_ != nullptr) DestroyWindow(window_);
  host_.setOutput({});
  host_.setInputSource({});
  host_.setBreakQuery({});
  host_.setMeterObserver({});
  host_.setScriptObserver({});
  host_.setHighlightObserver({});
  host_.setFunction(kColorFunction, {});
  host_.setMainWindow(nullptr);
}

bool FrameWindow::create(HINSTANCE instance, int width, int height) {
  if (!registerWindow<FrameWindow>(instance, kClass, LoadCursorW(nullptr, IDC_ARROW),
                                   reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1)))
    return false;
  const bool sized = width > 0 && height > 0;
  CreateWindowExW(0, kClass, kProgram, WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, sized ? 0 : CW_USEDEFAULT,
                  sized ? 0 : CW_USEDEFAULT, sized ? width : CW_USEDEFAULT, sized ? height : CW_USEDEFAULT,
                  nullptr, LoadMenuW(instance, MAKEINTRESOURCEW(IDR_FRAME)), instance, this);
  if (window_ == nullptr || !createParts()) return false;
  accelerators_ = LoadAcceleratorsW(instance, MAKEINTRESOURCEW(IDR_FRAME));
  pump_.setWindows({window_, view_.window(), accelerators_});
  files_.setOwner(window_);
  connectHost();
  return true;
}

bool FrameWindow::createParts() {
  const bool made =
      view_.create(window_,
                   {[this](DrawingPoint point) { status_.showPoint(point, view_.pixelsPerUnit()); },
                    [this](wchar_t c) { commands_.typeCharacter(c); }, [this] { sayIncomplete(); }}) &&
      commands_.create(window_, {[this](std::wstring line) { entered(std::move(line)); },
                                 [this](wchar_t c) { input_.pressKey(c); }, [this] { cancelled(); }}) &&
      status_.create(window_);
  if (made) layOut();
  return made;
}

void FrameWindow::connectHost() {
  host_.setMainWindow(window_);
  host_.setOutput([this](std::wstring_view text) { commands_.print(text); });
  host_.setInputSource([this] { return pump_.waitForEvent(); });
  host_.setBreakQuery([this] { return pump_.isBreakWanted(); });
  host_.setMeterObserver([this](const cad::Meter& meter) {
    status_.showMeter(meter);
    if (batch_.isRunning()) paintWhileRunning();
  });
  host_.setScriptObserver([this](const cad::ScriptProgress& progress) { scriptProgressed(progress); });
  host_.setHighlightObserver([this](cad::RecordId entity) { view_.setHighlight(entity); });
  host_.setFunction(kColorFunction, [this] { answerColorCall(window_); });
  pump_.setBeforeWait([this] { showState(); });
  runner_.setHands({[this](std::wstring_view text) { commands_.print(text); },
                    [this] { SetCursor(LoadCursorW(nullptr, IDC_WAIT)); }, [this] { commandEnded(); },
                    [this](bool discard) { return quit(discard); }});
}

void FrameWindow::show(int how) {
  ShowWindow(window_, how);
  showState();
  commands_.focus();
}

void FrameWindow::openDrawing(const std::filesystem::path& path) {
  commands_.print(L"\n" + base::pathText(path) + L" を開いています...");
  const base::Status opened = host_.openDocument(path);
  commands_.print(opened ? std::wstring(L" 完了") : L"\n図面を開けませんでした: " + opened.failure().text());
}

void FrameWindow::loadModule(const std::filesystem::path& path) {
  const base::Status loaded = host_.loadModule(path);
  commands_.print(loaded ? L"\nモジュールをロードしました: " + base::pathText(path)
                         : L"\nモジュールをロードできませんでした: " + loaded.failure().text());
}

void FrameWindow::type(std::wstring_view text) {
  commands_.setLine(input_.type(text, commands_.line()));
  linesEntered();
}

// --- Windows ------------------------------------------------------------------------------------------

LRESULT FrameWindow::handle(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_SIZE:
      layOut();
      return 0;
    case WM_GETMINMAXINFO: {
      auto* limits = reinterpret_cast<MINMAXINFO*>(lParam);
      limits->ptMinTrackSize = {scaled(window_, kLeastWidth), scaled(window_, kLeastHeight)};
      return 0;
    }
    case WM_DPICHANGED:
      dpiChanged(*reinterpret_cast<const RECT*>(lParam));
      return 0;
    case WM_SETFOCUS:
      commands_.focus();
      return 0;
    case WM_COMMAND:
      return command(LOWORD(wParam));
    case WM_INITMENUPOPUP:
      prepareMenu(reinterpret_cast<HMENU>(wParam));
      return 0;
    case WM_COPYDATA:
      if (const auto text = copiedText(reinterpret_cast<const COPYDATASTRUCT*>(lParam))) {
        type(*text);
        return TRUE;
      }
      return FALSE;
    case kRunLines:
      runLines();
      return 0;
    case WM_ENABLE:
      if (wParam != FALSE) linesEntered();  // what came while a question was open
      return 0;
    case WM_CLOSE:
      if (mayEnd()) DestroyWindow(window_);
      return 0;
    case WM_QUERYENDSESSION:
      return mayEnd() ? TRUE : FALSE;
    case WM_ENDSESSION:
      if (wParam == FALSE) ending_ = false;  // another program has prevented it
      return 0;
    case WM_DESTROY:
      PostQuitMessage(0);
      return 0;
    case WM_NCDESTROY: {
      const HWND window = window_;
      SetWindowLongPtrW(window, GWLP_USERDATA, 0);
      window_ = nullptr;
      host_.setMainWindow(nullptr);  // modules still get their last message
      return DefWindowProcW(window, message, wParam, lParam);
    }
  }
  return DefWindowProcW(window_, message, wParam, lParam);
}

void FrameWindow::layOut() {
  if (status_.window() == nullptr) return;
  status_.layOut();
  RECT area{};
  GetClientRect(window_, &area);
  const int bottom = std::max<int>(area.bottom - status_.height(), 0);
  const int commands = std::min(commands_.preferredHeight(), bottom);
  MoveWindow(view_.window(), 0, 0, area.right, bottom - commands, TRUE);
  MoveWindow(commands_.window(), 0, bottom - commands, area.right, commands, TRUE);
}

void FrameWindow::dpiChanged(const RECT& proposed) {
  commands_.applyFont();
  status_.applyFont();
  SetWindowPos(window_, nullptr, proposed.left, proposed.top, proposed.right - proposed.left,
               proposed.bottom - proposed.top, SWP_NOZORDER | SWP_NOACTIVATE);
  layOut();
}

void FrameWindow::showTitle() {
  const cad::DocumentInfo document = host_.currentDocument();
  if (document.number == 0) return;
  std::wstring title = document.name + (document.isModified ? L"*" : L"");
  if (document.isReadOnly) title += L" (読み取り専用)";
  title += L" - ";
  title += kProgram;
  if (windowText(window_) != title) SetWindowTextW(window_, title.c_str());
}

void FrameWindow::sayIncomplete() {
  commands_.print(L"\n図形が多すぎるため、図面の一部は表示されません。");
  commands_.flush();
}

void FrameWindow::showState() {
  if (window_ == nullptr || ending_) return;
  commands_.flush();
  commands_.setPrompt(host_.hasOpenPrompt() ? L"入力:" : L"コマンド:");
  showTitle();
  view_.refresh();
}

// A script returns to the message loop when all its drawings are done.
void FrameWindow::scriptProgressed(const cad::ScriptProgress& progress) {
  if (progress.state != cad::ScriptProgress::State::kRunning) input_.forgetBreak();
  batch_.update(progress, BatchProgress::Time::clock::now());
  status_.showBatch(batch_.text(), batch_.isRunning());
  view_.keepPicture(batch_.isRunning());
  if (batch_.isRunning()) paintWhileRunning();
}

void FrameWindow::paintWhileRunning() {
  const ULONGLONG now = GetTickCount64();
  if (now < nextPaint_) return;
  nextPaint_ = now + kPaintEvery;
  commands_.flush();
  MessagePump::paint();
}

// --- Menu ---------------------------------------------------------------------------------------------

void FrameWindow::prepareMenu(HMENU menu) {
  const UINT idle = input_.isRunning() ? MF_GRAYED : MF_ENABLED;
  for (const int id : {IDM_OPEN, IDM_SAVE, IDM_SAVE_AS, IDM_CLOSE, IDM_EXIT, IDM_UNDO, IDM_COLOR})
    EnableMenuItem(menu, static_cast<UINT>(id), MF_BYCOMMAND | idle);
  if (menu == GetSubMenu(GetMenu(window_), GetMenuItemCount(GetMenu(window_)) - 1)) fillWindowMenu(menu);
}

void FrameWindow::fillWindowMenu(HMENU menu) {
  while (DeleteMenu(menu, 0, MF_BYPOSITION)) {
  }
  const int current = host_.currentDocument().number;
  UINT id = IDM_FIRST_DRAWING;
  for (const cad::DocumentInfo& each : host_.documents()) {
    if (id > IDM_LAST_DRAWING) break;
    std::wstring name;
    for (const wchar_t c : each.name) name.append(c == L'&' ? 2 : 1, c);
    const UINT state =
        (each.number == current ? MF_CHECKED : MF_UNCHECKED) | (input_.isRunning() ? MF_GRAYED : MF_ENABLED);
    AppendMenuW(menu, MF_STRING | state, id++, name.c_str());
  }
}

LRESULT FrameWindow::command(int id) {
  if (id == IDM_ZOOM_EXTENTS) {
    view_.zoomExtents();
    return 0;
  }
  if (input_.isRunning()) {
    if ((id >= IDM_OPEN && id <= IDM_UNDO) || id == IDM_COLOR) MessageBeep(MB_OK);
    return 0;
  }
  runner_.cancelPrompt();
  fileCommand(id);
  showState();
  return 0;
}

void FrameWindow::fileCommand(int id) {
  if (id == IDM_OPEN) files_.open();
  if (id == IDM_SAVE) files_.save();
  if (id == IDM_SAVE_AS) files_.saveAs();
  if (id == IDM_CLOSE) files_.closeCurrent();
  if (id == IDM_UNDO) type(L"_.U\n");
  if (id == IDM_COLOR && !askDrawingColor(window_)) commands_.print(L"\n色を設定できませんでした。");
  if (id == IDM_EXIT) PostMessageW(window_, WM_CLOSE, 0, 0);
  const std::vector<cad::DocumentInfo> documents = host_.documents();
  const auto index = static_cast<std::size_t>(id - IDM_FIRST_DRAWING);
  if (id >= IDM_FIRST_DRAWING && index < documents.size()) host_.activateDocument(documents[index].number);
}

// --- Command line -------------------------------------------------------------------------------------

void FrameWindow::entered(std::wstring line) {
  const bool idle = !input_.isRunning() && !input_.hasLine() && !host_.hasOpenPrompt();
  // A person chooses a file or a colour from a list rather than types it.
  if (idle && base::trim(line).find(L' ') == std::wstring_view::npos) {
    const std::wstring name = cad::commandName(line);
    if (const int id = commandWithDialog(name); id != 0) {
      commands_.print(L"\nコマンド: " + line);
      command(id);
      return;
    }
  }
  input_.enter(std::move(line));
  linesEntered();
}

void FrameWindow::cancelled() {
  input_.cancel();
  linesEntered();
}

void FrameWindow::linesEntered() {
  if (window_ != nullptr && input_.hasLine()) PostMessageW(window_, kRunLines, 0, 0);
}

void FrameWindow::runLines() {
  if (!IsWindowEnabled(window_)) return;
  runner_.runLines();
}

void FrameWindow::commandEnded() {
  host_.clearHighlight();
  showState();
  linesEntered();  // those that were typed meanwhile
}

bool FrameWindow::quit(bool discardChanges) {
  if (!discardChanges && !files_.mayCloseAll()) {
    showState();
    return false;
  }
  ending_ = true;
  DestroyWindow(window_);
  return true;
}

bool FrameWindow::mayEnd() {
  if (input_.isRunning()) {
    commands_.print(L"\nコマンドの実行中は終了できません。");
    commands_.flush();
    MessageBeep(MB_ICONWARNING);
    return false;
  }
  ending_ = files_.mayCloseAll();
  showState();
  return ending_;
}

}  // namespace cadhost
