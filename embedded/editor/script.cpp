#include "embedded/editor/script.h"

#include <algorithm>
#include <utility>

#include "base/files.h"
#include "embedded/editor/command_line.h"
#include "embedded/editor/host_state.h"
#include "embedded/editor/output.h"

namespace cad {
namespace {

bool opensDrawing(const Token& command) { return readCommandName(command.text).name == L"OPEN"; }

// How many lines begin with OPEN. What is asked for in between cannot be told before it runs.
int drawingsIn(const std::wstring& text) {
  int count = 0;
  ScriptReader lines(text);
  while (true) {
    const bool isFirst = lines.isLineStart();
    const std::optional<Token> token = lines.next();
    if (!token) return count;
    if (isFirst && opensDrawing(*token)) ++count;
  }
}

}  // namespace

void Script::start(std::filesystem::path file, std::wstring text) {
  next_ = Started{std::move(file), std::move(text)};
}

bool Script::takeNext() {
  if (!next_) return false;
  file_ = std::move(next_->file);
  progress_ = {};
  progress_.drawings = drawingsIn(next_->text);
  reader_ = ScriptReader(std::move(next_->text));
  next_.reset();
  state_ = State::kRunning;
  tell(ScriptProgress::State::kRunning);
  return true;
}

bool Script::resume() {
  if (state_ != State::kSuspended || next_) return false;
  state_ = State::kRunning;
  tell(ScriptProgress::State::kRunning);
  return true;
}

void Script::suspend() {
  state_ = State::kSuspended;
  const std::wstring line = std::to_wstring(reader_.line());
  printText(L"\n" + base::Failure{base::pathText(file_), L"The script was suspended in line " + line +
                                                             L"; RESUME goes on behind it."}
                        .text());
  tell(ScriptProgress::State::kSuspended);
}

void Script::forget() {
  next_.reset();
  end();
}

void Script::end() {
  if (std::exchange(state_, State::kNone) != State::kNone) tell(ScriptProgress::State::kEnded);
}

std::optional<Token> Script::nextCommand() {
  const std::optional<Token> name = reader_.nextName();
  hasOpened_ = name && opensDrawing(*name);
  if (!hasOpened_) return name;
  const std::size_t here = reader_.position();
  const std::optional<Token> path = reader_.nextPath();
  reader_.rewind(here);
  progress_.drawings = std::max(progress_.drawings, ++progress_.drawing);
  progress_.name = path ? base::pathText(base::pathFromText(path->text).filename()) : L"";
  tell(ScriptProgress::State::kRunning);
  return name;
}

bool Script::isAtEnd() {
  const std::size_t here = reader_.position();
  const bool atEnd = !reader_.nextName();
  reader_.rewind(here);
  return atEnd;
}

void Script::tell(ScriptProgress::State state) {
  progress_.state = state;
  const auto& observer = hostState().scriptObserver;
  if (observer) observer(progress_);
}

}  // namespace cad
