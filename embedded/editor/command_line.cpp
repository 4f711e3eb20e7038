#include "embedded/editor/command_line.h"

#include <algorithm>
#include <cstdarg>
#include <utility>

#include "acedCmdNF.h"
#include "base/fold.h"
#include "embedded/editor/host_state.h"
#include "embedded/editor/output.h"
#include "embedded/editor/result_buffer.h"

namespace cad {
namespace {

constexpr wchar_t kCancel = 3;

const AcEdCommand* findRegistered(const CommandName& wanted) {
  if (wanted.builtinOnly) return nullptr;
  const CommandStack& commands = hostState().commands;
  const AcEdCommand* found =
      wanted.globalOnly ? nullptr : commands.lookupCmd(wanted.name.c_str(), false, true);
  return found != nullptr ? found : commands.lookupCmd(wanted.name.c_str(), true, true);
}

// One command is one undo group, unless it runs inside another or the user has opened a group.
class CommandGroup {
 public:
  CommandGroup(bool wanted) : document_(hostState().documents.current()) {
    begun_ = wanted && document_ != nullptr && !document_->undoGroupOpen;
    if (begun_) document_->drawing().beginUndoGroup();
  }
  ~CommandGroup() {
    if (begun_ && hostState().documents.contains(document_) && !document_->undoGroupOpen)
      document_->drawing().endUndoGroup();
  }
  CommandGroup(const CommandGroup&) = delete;
  CommandGroup& operator=(const CommandGroup&) = delete;

 private:
  Document* document_;
  bool begun_ = false;
};

// Counts a command as running for as long as it lives, however the command ends.
class RunningCommand {
 public:
  RunningCommand(int& depth, std::vector<std::wstring>& names, std::wstring name)
      : depth_(depth), names_(names) {
    names_.push_back(std::move(name));
    ++depth_;
  }
  ~RunningCommand() {
    --depth_;
    names_.pop_back();
  }
  RunningCommand(const RunningCommand&) = delete;
  RunningCommand& operator=(const RunningCommand&) = delete;

 private:
  int& depth_;
  std::vector<std::wstring>& names_;
};

Outcome endedWithError(const std::wstring& name) {
  report({name, L"The command ended with an error."});
  return Outcome::kRefused;
}

}  // namespace

CommandName readCommandName(std::wstring_view typed) {
  CommandName out;
  while (!typed.empty() && std::wstring_view(L"._'\x03").find(typed.front()) != std::wstring_view::npos) {
    out.builtinOnly |= typed.front() == L'.';
    out.globalOnly |= typed.front() == L'_';
    typed.remove_prefix(1);
  }
  out.name = base::upper(typed);
  return out;
}

Outcome CommandLine::runRegistered(const AcEdCommand& command) {
  const AcRxFunctionPtr function = command.functionAddr();
  const std::wstring name = command.globalName();
  const bool outer = std::exchange(isInSession_, (command.commandFlags() & ACRX_CMD_SESSION) != 0);
  bool ended = true;
  try {
    function();
  } catch (...) {
    ended = false;
  }
  isInSession_ = outer;
  return ended ? Outcome::kDone : endedWithError(name);
}

Outcome CommandLine::runOne(TokenReader& input, std::wstring_view typed) {
  const Outcome outcome = runNamed(input, typed);
  if (outcome != Outcome::kNeedInput) readDrawing_ = {};
  if (depth_ == 0) hostState().documents.closeWaiting();
  return outcome;
}

Outcome CommandLine::runNamed(TokenReader& input, std::wstring_view typed) {
  const CommandName wanted = readCommandName(typed);
  if (wanted.name.empty()) return Outcome::kDone;
  const AcEdCommand* registered = findRegistered(wanted);
  const BuiltinCommand* builtin = registered == nullptr ? findBuiltin(wanted.name) : nullptr;
  if (registered == nullptr && builtin == nullptr) {
    report({L"", L"Unknown command \"" + wanted.name + L"\"."});
    return Outcome::kRefused;
  }
  HostState& state = hostState();
  const CommandGroup group(depth_ == 0 && (registered != nullptr || builtin->undoable));
  const RunningCommand running(depth_, running_, wanted.name);
  if (registered != nullptr) return runRegistered(*registered);
  try {
    return builtin->run(input, state);
  } catch (...) {
    return endedWithError(wanted.name);
  }
}

int CommandLine::run(std::vector<Token> tokens) {
  if (!runsInDocument()) {
    report({L"", L"A program can run commands only while a command of the document is running."});
    return RTERROR;
  }
  ListReader reader(std::move(tokens));
  while (const std::optional<Token> name = reader.nextName()) {
    const Outcome outcome = runOne(reader, name->text);
    if (outcome == Outcome::kNeedInput) {
      readDrawing_ = {};
      report({readCommandName(name->text).name, L"The command was cancelled: it needs more input."});
    }
    if (outcome != Outcome::kDone) return RTERROR;
  }
  return RTNORM;
}

// A script that a command has asked for: inside a script it takes the place of what is left of that one.
bool CommandLine::takeScript(TextReader& reader, bool& isScript, bool& ok) {
  if (!script_ || depth_ > 0) return false;
  std::wstring text = std::move(*script_);
  script_.reset();
  if (isScript)
    reader = TextReader(std::move(text));
  else
    ok = runText(std::move(text), true) && ok;
  return true;
}

bool CommandLine::runText(std::wstring text, bool isScript) {
  TextReader reader(std::move(text));
  bool ok = true;
  while (ok) {
    const std::size_t start = reader.position();
    const std::optional<Token> name = reader.nextName();
    if (!name) break;
    const Outcome outcome = runOne(reader, name->text);
    if (outcome == Outcome::kNeedInput) {
      openText_ = reader.from(start);
      break;
    }
    if (outcome == Outcome::kRefused) {
      if (isScript) printText(L"\nThe script has been stopped.");
      return false;
    }
    takeScript(reader, isScript, ok);
    const HostState& state = hostState();
    if (isScript && state.breakQuery && state.breakQuery()) return false;
  }
  return ok;
}

bool CommandLine::runQueue() {
  bool ok = true;
  Documents& documents = hostState().documents;
  while (true) {
    const auto next = std::find_if(queue_.begin(), queue_.end(), [&](const QueuedText& each) {
      return each.activate || each.document == documents.current();
    });
    if (next == queue_.end()) return ok;
    const QueuedText queued = std::move(*next);
    queue_.erase(next);
    documents.activate(queued.document);
    if (queued.echo) printText(L"\n" + queued.text);
    ok = runText(queued.text, false) && ok;
  }
}

base::Status CommandLine::type(std::wstring text) {
  hostState().newestFailure.reset();
  if (text.find(kCancel) != std::wstring::npos) cancelPrompt();
  if (text.empty() || text.back() != L'\n') text += L'\n';
  std::wstring whole = std::move(openText_) + text;
  openText_.clear();
  bool ok = runText(std::move(whole), false);
  if (depth_ == 0) ok = runQueue() && ok;
  if (ok) return {};
  return hostState().newestFailure.value_or(base::Failure{L"", L"The command was cancelled."});
}

void CommandLine::drop(const Document* document) {
  std::erase_if(queue_, [&](const QueuedText& each) { return each.document == document; });
}

std::wstring CommandLine::runningNames() const {
  std::wstring out;
  for (const std::wstring& name : running_) out += (out.empty() ? L"" : L"'") + name;
  return out;
}

void CommandLine::cancelPrompt() {
  openText_.clear();
  readDrawing_ = {};
}

void CommandLine::clear() {
  cancelPrompt();
  queue_.clear();
  script_.reset();
}

}  // namespace cad

int acedCommandS(int type, ...) {
  cad::ResultChain chain;
  va_list arguments;
  va_start(arguments, type);
  const bool read = cad::readPairs(type, arguments, chain);
  va_end(arguments);
  return read ? acedCmdS(chain.head()) : RTERROR;
}

int acedCommandS() { return acedCmdS(nullptr); }

int acedCmdS(const resbuf* tokens, bool, AcApDocument*) {
  std::vector<cad::Token> list;
  if (!cad::tokensOf(tokens, list)) return RTERROR;
  return cad::hostState().commandLine.run(std::move(list));
}
