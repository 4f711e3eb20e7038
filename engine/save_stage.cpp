#include "engine/save_stage.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <system_error>

#include "acedCmdNF.h"
#include "adscodes.h"
#include "base/files.h"
#include "engine/buffer_chain.h"
#include "engine/host_variables.h"
#include "engine/messages.h"

namespace kiv {
namespace {

constexpr std::array<const wchar_t*, 3> kExtensions = {L"DWG", L"DXF", L"DWT"};

bool exists(const std::wstring& path) {
  std::error_code error;
  return std::filesystem::exists(base::pathFromText(path), error);
}

void addTokens(int saveFormat, const std::wstring& target, BufferChain& tokens) {
  tokens.text(RTSTR, L"SAVEAS");
  switch (saveFormat) {
    case 0:
      tokens.text(RTSTR, L"");
      break;
    case 1:
      tokens.text(RTSTR, L"DXF").text(RTSTR, L"V").text(RTSTR, L"").text(RTSTR, L"").text(RTSTR, L"DXF");
      break;
    default:
      tokens.text(RTSTR, L"T");
  }
  tokens.text(RTSTR, target);
}

bool save(int saveFormat, const std::wstring& target) {
  BufferChain tokens;
  addTokens(saveFormat, target, tokens);
  if (exists(target)) tokens.text(RTSTR, L"Y");
  if (!tokens.isWhole()) return false;
  const int result = acedCmdS(tokens.get());
  acedCommandS(RTNONE);
  return result == RTNORM && exists(target);
}

void closeDrawing() {
  if (integerVariable(L"DBMOD").value_or(0) > 0) {
    acedCommandS(RTSTR, L"CLOSE", RTSTR, L"Y", RTNONE);
  } else {
    acedCommandS(RTSTR, L"CLOSE", RTNONE);
  }
}

}  // namespace

std::wstring savedPathFor(const std::wstring& outputFolder, const std::wstring& drawingName, int saveFormat) {
  std::wstring base = drawingName;
  if (base.size() >= 4 && base[base.size() - 4] == L'.') base.resize(base.size() - 4);
  const auto format = static_cast<std::size_t>(std::clamp(saveFormat, 0, 2));
  return outputFolder + base + L"." + kExtensions[format];
}

RunOutcome saveAndClose(const RunParameters& parameters, ProblemSink& problems) {
  const std::wstring target =
      savedPathFor(parameters.outputFolder, textVariable(L"DWGNAME").value_or(L""), parameters.saveFormat);
  const bool saved = save(parameters.saveFormat, target);
  if (!saved) problems.addProblem(saveProblem(target));
  closeDrawing();
  return {RunEnd::kConverted, saved ? target : std::wstring(), true};
}

}  // namespace kiv
