#pragma once
// The command processor: finds a command by its name, lets it take its tokens, and runs what was queued
// when no command is running.

#include <deque>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "embedded/editor/script.h"
#include "embedded/editor/tokens.h"

class AcEdCommand;

namespace cad {

class Document;
class Drawing;
struct HostState;

enum class Outcome {
  kDone,
  kRefused,    // the command has reported why
  kNeedInput,  // nothing has happened yet; more tokens are needed
};

// A command of the host itself. Of typed text it changes nothing before it has all the tokens that it needs.
struct BuiltinCommand {
  const wchar_t* name;
  Outcome (*run)(TokenReader& input, HostState& state);
  bool undoable;  // its changes are one group of the undo journal
};
const BuiltinCommand* findBuiltin(std::wstring_view name);

// A command's name as it was typed: upper-case, without the marks before it, and what those ask for.
struct CommandName {
  std::wstring name;
  bool builtinOnly = false;  // a dot asks for the host's own command
  bool globalOnly = false;   // an underscore for the name that is the same in every language
};
CommandName readCommandName(std::wstring_view typed);

struct QueuedText {
  Document* document = nullptr;
  std::wstring text;
  bool activate = true;
  bool echo = true;
};

struct ReadDrawing {
  std::filesystem::path file;
  std::shared_ptr<const Drawing> drawing;
};

class CommandLine {
 public:
  // From a program: RTNORM or RTERROR. Refused unless a document's command is running. A command that still
  // asks at the end of the tokens is cancelled.
  int run(std::vector<Token> tokens);
  // Typed text, then everything that it has queued. A refusal stops the text that it stands in, and suspends
  // a script.
  base::Status type(const std::wstring& text);

  void send(QueuedText queued) { queue_.push_back(std::move(queued)); }
  Script& script() { return script_; }
  void drop(const Document* document);  // its queued texts
  void clear();
  bool isBusy() const { return depth_ > 0; }
  // A command that belongs to the application and to no document does not count.
  bool runsInDocument() const { return isBusy() && !isInSession_; }
  // A typed command wants more input: the next text goes to it, unless its prompt is cancelled.
  bool hasOpenPrompt() const { return !openText_.empty(); }
  void cancelPrompt();
  // What the command at the open prompt has read, for when it gets more input; empty when it has ended.
  ReadDrawing& readForOpenPrompt() { return readDrawing_; }
  std::wstring runningNames() const;  // outermost first, joined by apostrophes

 private:
  Outcome runOne(TokenReader& input, std::wstring_view name);
  Outcome runNamed(TokenReader& input, std::wstring_view name);
  Outcome runBuiltin(const BuiltinCommand& command, TokenReader& input);
  Outcome runRegistered(const AcEdCommand& command);
  void tellOutcome(Outcome outcome, const std::wstring& name);
  bool runKeys(std::wstring_view keys);
  bool runText(std::wstring text);
  bool runScript();
  bool runQueue();

  std::wstring openText_, openName_;  // of an unfinished command: what was typed for it, its global name
  ReadDrawing readDrawing_;
  std::deque<QueuedText> queue_;
  Script script_;
  std::vector<std::wstring> running_;
  int depth_ = 0;
  bool isInSession_ = false;  // the running command belongs to the application and to no document
};

}  // namespace cad
