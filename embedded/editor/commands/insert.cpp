#include "acdbads.h"
#include "base/files.h"
#include "embedded/drawing/current_space.h"
#include "embedded/editor/commands/builtin.h"
#include "embedded/editor/file_search.h"
#include "embedded/editor/host_state.h"
#include "embedded/editor/output.h"
#include "embedded/editor/variables.h"
#include "embedded/formats/drawing_files.h"

namespace cad {
namespace {

struct InsertAnswers {
  std::optional<Point> at;
  std::optional<double> scale, rotation;  // degrees
};

Outcome refuse(std::wstring_view why) {
  report({L"-INSERT", std::wstring(why)});
  return Outcome::kRefused;
}

struct InsertedBlock {
  std::wstring name;
  std::filesystem::path file;  // to define it from; empty: the drawing's own
};

bool isDefined(const Drawing& drawing, std::wstring_view name) {
  return drawing.find(Table::kBlock, name) != kNoRecord;
}

// An existing block, or one to be defined from a drawing file. "name=path" defines it in any case.
base::Result<InsertedBlock> findBlock(const Drawing& drawing, const std::wstring& typed) {
  const std::size_t equals = typed.find(L'=');
  std::wstring name = typed.substr(0, equals);
  if (equals == std::wstring::npos && isDefined(drawing, typed)) return InsertedBlock{name, {}};

  std::wstring wanted = equals == std::wstring::npos ? typed : typed.substr(equals + 1);
  if (wanted.empty()) wanted = name;
  std::filesystem::path file = findFile(wanted);
  for (const std::wstring_view extension : formats::extensions())
    if (file.empty()) file = findFile(wanted + std::wstring(extension));
  if (file.empty()) return base::Failure{wanted, L"There is no block and no file of this name."};
  if (equals == std::wstring::npos) {
    name = base::pathText(file.stem());
    if (isDefined(drawing, name)) return InsertedBlock{name, {}};
  }
  if (acdbSNValid(name.c_str(), 0) != RTNORM) return base::Failure{typed, L"A block cannot have this name."};
  return InsertedBlock{name, file};
}

std::int64_t sessionInteger(std::wstring_view name, HostState& state) {
  return std::get<std::int64_t>(readVariable(*findSystemVariable(name), state));
}

bool isScale(const Token& token) { return token.is(L"S") || token.is(L"SCALE"); }

// "Redefine it?", to which Enter says no. A program may go on with the scale instead, which means yes.
Outcome askToRedefine(TokenReader& input, HostState& state, const Drawing& drawing, InsertedBlock& block) {
  constexpr std::int64_t kAsksNoMore = 2;
  if (block.file.empty() || !isDefined(drawing, block.name)) return Outcome::kDone;
  if (sessionInteger(L"EXPERT", state) >= kAsksNoMore) return Outcome::kDone;
  const std::optional<Token> answer = input.peek();
  if (!answer) return Outcome::kNeedInput;
  if (input.isComplete() && isScale(*answer)) return Outcome::kDone;
  if (input.takeIf(L"Y", L"YES")) return Outcome::kDone;
  if (!input.takeIf(L"N", L"NO") && !input.takeIf(L"", L""))
    return refuse(L"\"" + answer->text + L"\" does not say whether to redefine the block: Yes or No.");
  block.file.clear();
  return Outcome::kDone;
}

// One answer at the insertion point's prompt: an option with its value, or the point.
Outcome readOption(TokenReader& input, const Token& token, InsertAnswers& answers) {
  const bool scales = isScale(token);
  if (scales || token.is(L"R") || token.is(L"ROTATE")) {
    const std::optional<Token> value = input.next();
    if (!value) return Outcome::kNeedInput;
    const std::optional<double> number = value->number();
    if (!number) return refuse(L"\"" + value->text + L"\" is not a number.");
    if (scales && *number == 0) return refuse(L"The scale must not be 0.");
    (scales ? answers.scale : answers.rotation) = *number;
    return Outcome::kDone;
  }
  answers.at = token.point();
  return answers.at ? Outcome::kDone : refuse(L"\"" + token.text + L"\" is not a point.");
}

Outcome readNumber(TokenReader& input, double preset, std::optional<double>& value) {
  if (value) return Outcome::kDone;
  const std::optional<Token> token = input.next();
  if (!token) return Outcome::kNeedInput;
  value = token->text.empty() ? std::optional(preset) : token->number();
  return value ? Outcome::kDone : refuse(L"\"" + token->text + L"\" is not a number.");
}

Outcome readAnswers(TokenReader& input, InsertAnswers& answers) {
  while (!answers.at) {
    const std::optional<Token> token = input.next();
    if (!token) return Outcome::kNeedInput;
    if (const Outcome outcome = readOption(input, *token, answers); outcome != Outcome::kDone) return outcome;
  }
  if (!answers.scale) {
    if (const Outcome outcome = readNumber(input, 1, answers.scale); outcome != Outcome::kDone)
      return outcome;
    std::optional<double> y;
    if (const Outcome outcome = readNumber(input, *answers.scale, y); outcome != Outcome::kDone)
      return outcome;
    if (*y != *answers.scale) return refuse(L"Different scales in X and Y are not supported yet.");
  }
  return readNumber(input, 0, answers.rotation);
}

// One value for each definition of an attribute that varies; asked for while ATTREQ is on.
Outcome readAttributes(TokenReader& input, HostState& state, const Drawing& from, RecordId block,
                       std::vector<std::wstring>& values) {
  const bool asks = sessionInteger(L"ATTREQ", state) != 0;
  for (const RecordId definition : from.attributeDefinitionsOf(block)) {
    values.push_back(from.text(definition, Property::kTextString).value_or(std::wstring()));
    const std::int64_t flags = from.integer(definition, Property::kStandardFlags).value_or(0);
    if (!asks || (flags & AttributeFlag::kPreset) != 0) continue;
    const std::optional<Token> token = input.nextPath();
    if (!token) return Outcome::kNeedInput;
    if (!token->text.empty()) values.back() = token->text;
  }
  return Outcome::kDone;
}

// A typed command is run again for each new piece of its text, and finds what it has read before.
base::Result<std::shared_ptr<const Drawing>> readOnce(CommandLine& commandLine,
                                                      const std::filesystem::path& file) {
  ReadDrawing& known = commandLine.readForOpenPrompt();
  if (known.drawing && known.file == file) return known.drawing;
  base::Result<std::unique_ptr<Drawing>> loaded = formats::open(file);
  if (!loaded) return loaded.failure();
  known = {file, std::move(loaded.value())};
  return known.drawing;
}

base::Status define(Drawing& drawing, InsertedBlock& block, const Drawing& source) {
  const base::Result<RecordId> defined = drawing.defineBlock(block.name, source);
  block.file.clear();
  return defined ? base::Status() : defined.failure();
}

base::Status place(HostState& state, const InsertedBlock& block, const InsertAnswers& answers,
                   const std::vector<std::wstring>& attributes) {
  Drawing& drawing = state.documents.current()->drawing();
  const RecordId space = currentSpace(drawing);
  const RecordId defined = drawing.find(Table::kBlock, block.name);
  if (defined == kNoRecord) return base::Failure{block.name, L"The drawing has no block of this name"};
  const base::Result<RecordId> inserted =
      drawing.addInsert(space, {defined, *answers.at, *answers.scale, *answers.rotation, attributes});
  return inserted ? base::Status() : inserted.failure();
}

// A program that inserts learns no reason: its user does, from what the host keeps.
Outcome refuseBlock(HostState& state, const base::Status& why) {
  report(why.failure());
  state.remarks.push_back(why.failure());
  return Outcome::kRefused;
}

}  // namespace

Outcome runInsert(TokenReader& input, HostState& state) {
  const std::optional<Token> name = input.next();
  if (!name) return Outcome::kNeedInput;
  if (name->text.empty() || name->text.front() == L'*' || name->text.front() == L'?')
    return refuse(L"A block's name or a file is needed.");
  Drawing& drawing = state.documents.current()->drawing();
  base::Result<InsertedBlock> found = findBlock(drawing, name->text);
  if (!found) return refuseBlock(state, found.failure());
  InsertedBlock& block = found.value();
  if (const Outcome outcome = askToRedefine(input, state, drawing, block); outcome != Outcome::kDone)
    return outcome;

  std::shared_ptr<const Drawing> source;
  if (!block.file.empty()) {
    const auto loaded = readOnce(state.commandLine, block.file);
    if (!loaded) return refuseBlock(state, loaded.failure());
    source = loaded.value();
  }
  // A program's block stays defined when the rest of its sequence comes to nothing.
  if (source && input.isComplete()) {
    if (const base::Status defined = define(drawing, block, *source); !defined)
      return refuseBlock(state, defined);
  }
  InsertAnswers answers;
  if (const Outcome outcome = readAnswers(input, answers); outcome != Outcome::kDone) return outcome;
  std::vector<std::wstring> attributes;
  const Drawing& holder = source ? *source : drawing;
  const RecordId content = source ? source->modelSpace() : drawing.find(Table::kBlock, block.name);
  if (const Outcome outcome = readAttributes(input, state, holder, content, attributes);
      outcome != Outcome::kDone)
    return outcome;

  if (!block.file.empty()) {
    if (const base::Status defined = define(drawing, block, *source); !defined)
      return refuseBlock(state, defined);
  }
  const base::Status placed = place(state, block, answers, attributes);
  return placed ? Outcome::kDone : refuseBlock(state, placed);
}

}  // namespace cad
