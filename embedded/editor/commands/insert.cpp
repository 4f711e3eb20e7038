#include "base/files.h"
#include "embedded/dxf/loader.h"
#include "embedded/editor/commands/builtin.h"
#include "embedded/editor/file_search.h"
#include "embedded/editor/host_state.h"
#include "embedded/editor/output.h"

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

// The block's name: an existing block, or one defined from a drawing file. "name=path" redefines.
base::Result<std::wstring> resolveBlock(Drawing& drawing, const std::wstring& typed) {
  const std::size_t equals = typed.find(L'=');
  std::wstring name = typed.substr(0, equals);
  if (equals == std::wstring::npos && drawing.find(Table::kBlock, typed) != kNoRecord) return name;

  std::wstring wanted = equals == std::wstring::npos ? typed : typed.substr(equals + 1);
  if (wanted.empty()) wanted = name;
  std::filesystem::path file = findFile(wanted);
  if (file.empty()) file = findFile(wanted + L".dxf");
  if (file.empty()) return base::Failure{wanted, L"There is no block and no file of this name."};
  if (equals == std::wstring::npos) name = base::pathText(file.stem());
  if (name.empty()) return base::Failure{typed, L"The block has no name."};
  if (equals == std::wstring::npos && drawing.find(Table::kBlock, name) != kNoRecord) return name;

  const base::Result<std::unique_ptr<Drawing>> source = dxf::load(file);
  if (!source) return source.failure();
  const base::Result<RecordId> defined = drawing.defineBlock(name, *source.value());
  if (!defined) return defined.failure();
  return name;
}

// One answer at the insertion point's prompt: an option with its value, or the point.
Outcome readOption(TokenReader& input, const Token& token, InsertAnswers& answers) {
  const bool scales = token.is(L"S") || token.is(L"SCALE");
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

}  // namespace

Outcome runInsert(TokenReader& input, HostState& state) {
  const std::optional<Token> name = input.next();
  if (!name) return Outcome::kNeedInput;
  if (name->text.empty() || name->text.front() == L'*' || name->text.front() == L'?')
    return refuse(L"A block's name or a file is needed.");
  InsertAnswers answers;
  if (const Outcome outcome = readAnswers(input, answers); outcome != Outcome::kDone) return outcome;

  Drawing& drawing = state.documents.current()->drawing();
  const base::Result<std::wstring> block = resolveBlock(drawing, name->text);
  if (!block) {
    report(block.failure());
    return Outcome::kRefused;
  }
  const std::optional<Variable> tile = drawing.headerVariable("TILEMODE");
  const bool inPaper = tile && std::get_if<std::int64_t>(&*tile) && std::get<std::int64_t>(*tile) == 0;
  const RecordId space = inPaper ? drawing.paperSpace() : drawing.modelSpace();
  const base::Result<RecordId> inserted =
      drawing.addInsert(space, block.value(), *answers.at, *answers.scale, *answers.rotation);
  if (inserted) return Outcome::kDone;
  report(inserted.failure());
  return Outcome::kRefused;
}

}  // namespace cad
