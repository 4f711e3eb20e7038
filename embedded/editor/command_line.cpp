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
  const std::wstring name = base::upper(registered != nullptr ? registered->globalName() : builtin->name);
  const EditorReactors& reactors = hostState().editorReactors;
  // What an open prompt waited for belongs to a command that has started already.
  if (std::exchange(openName_, {}).empty()) reactors.tell(&AcEditorReactor::commandWillStart, name);
  Outcome outcome = Outcome::kDone;
  {
    const CommandGroup group(depth_ == 0 && (registered != nullptr || builtin->undoable));
    const RunningCommand running(depth_, running_, wanted.name);
    outcome = registered != nullptr ? runRegistered(*registered) : runBuiltin(*builtin, input);
  }
  tellOutcome(outcome, name);
  return outcome;
}

Outcome CommandLine::runBuiltin(const BuiltinCommand& command, TokenReader& input) {
  try {
    return command.run(input, hostState());
  } catch (...) {
    return endedWithError(command.name);
  }
}

void CommandLine::tellOutcome(Outcome outcome, const std::wstring& name) {
  const EditorReactors& reactors = hostState().editorReactors;
  if (outcome == Outcome::kDone) reactors.tell(&AcEditorReactor::commandEnded, name);
  if (outcome == Outcome::kRefused) reactors.tell(&AcEditorReactor::commandFailed, name);
  if (outcome == Outcome::kNeedInput) openName_ = name;
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
      report({openName_, L"The command was cancelled: it needs more input."});
      cancelPrompt();
    }
    if (outcome != Outcome::kDone) return RTERROR;
  }
  return RTNORM;
}

bool CommandLine::runText(std::wstring text) {
  TextReader reader(std::move(text));
  while (true) {
    const std::size_t start = reader.position();
    const std::optional<Token> name = reader.nextName();
    if (!name) return true;
    const Outcome outcome = runOne(reader, name->text);
    if (outcome == Outcome::kNeedInput) {
      openText_ = reader.from(start);
      return true;
    }
    const bool scriptRan = runScript();
    if (outcome == Outcome::kRefused || !scriptRan) return false;
  }
}

// What a command has started or resumed.
bool CommandLine::runScript() {
  const HostState& state = hostState();
  while (depth_ == 0 && (script_.takeNext() || script_.isRunning())) {
    ScriptReader& reader = script_.reader();
    const std::size_t start = reader.position();
    const std::optional<Token> name = script_.nextCommand();
    const Outcome outcome = name ? runOne(reader, name->text) : Outcome::kDone;
    if (script_.hasNext()) continue;
    if (outcome == Outcome::kNeedInput) {
      openText_ = reader.typedFrom(start);
      script_.end();
    } else if (outcome == Outcome::kRefused) {
      script_.suspend();
      return false;
    } else if (script_.isAtEnd()) {
      script_.end();
    } else if (script_.mayBeBroken() && state.breakQuery && state.breakQuery()) {
      script_.suspend();
      return false;
    }
  }
  return true;
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
    ok = runKeys(queued.text) && ok;
  }
}

// What stands before a cancel has been entered as far as a blank or a line end; the rest of it is gone.
bool CommandLine::runKeys(std::wstring_view keys) {
  while (true) {
    const std::size_t cancel = keys.find(kCancel);
    std::wstring_view entered = keys.substr(0, cancel);
    if (cancel != std::wstring_view::npos) entered = entered.substr(0, entered.find_last_of(L" \t\r\n") + 1);
    if (!entered.empty() && !runText(std::exchange(openText_, {}).append(entered))) return false;
    if (cancel == std::wstring_view::npos) return true;
    cancelPrompt();
    keys.remove_prefix(cancel + 1);
  }
}

base::Status CommandLine::type(const std::wstring& text) {
  hostState().newestFailure.reset();
  if (depth_ == 0 && script_.isRunning()) script_.forget();  // an exception has left it
  const bool isEntered = !text.empty() && text.back() == L'\n';
  bool ok = runKeys(isEntered ? text : text + L'\n');
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
  const std::wstring name = std::exchange(openName_, {});
  if (!name.empty()) hostState().editorReactors.tell(&AcEditorReactor::commandCancelled, name);
}

void CommandLine::clear() {
  cancelPrompt();
  queue_.clear();
  script_.forget();
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
