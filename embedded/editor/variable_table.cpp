#include "embedded/editor/variable_table.h"

#include <ctime>
#include <map>
#include <string>

#include "base/codepage.h"
#include "base/files.h"
#include "base/fold.h"
#include "embedded/drawing/dim_variables.h"
#include "embedded/editor/file_search.h"
#include "embedded/editor/host_state.h"
#include "embedded/formats/drawing_files.h"

namespace cad {
namespace {

// --- Values that the host makes up when somebody asks for them

std::wstring withSeparator(const std::filesystem::path& folder) {
  return folder.empty() ? L"" : base::pathText(folder / "");
}

std::int64_t flag(bool value) { return value ? 1 : 0; }

// DWGNAME: "plan.dxf"
Variable drawingName(HostState& state) { return state.documents.current()->name(); }

// DWGPREFIX, with its last separator
Variable drawingFolder(HostState& state) {
  const std::filesystem::path& path = state.documents.current()->drawing().path();
  std::error_code error;
  return withSeparator(path.empty() ? std::filesystem::current_path(error) : path.parent_path());
}

// DWGTITLED
Variable drawingHasFile(HostState& state) {
  return flag(!state.documents.current()->drawing().path().empty());
}

// DBMOD: 0 or 1
Variable drawingModified(HostState& state) { return flag(state.documents.current()->drawing().isModified()); }

// DWGCODEPAGE, as the drawing declares it
Variable drawingCodePage(HostState& state) {
  return base::fromUtf8(state.documents.current()->drawing().facts().codePageName);
}

// WRITESTAT
Variable drawingWritable(HostState& state) { return flag(!state.documents.current()->isReadOnly()); }

// ACADPREFIX, each with a semicolon
Variable supportFolders(HostState& state) {
  std::wstring out;
  for (const std::filesystem::path& folder : state.supportPath) out += withSeparator(folder) + L";";
  return out;
}

// TEMPPREFIX, with its last separator
Variable temporaryFolder(HostState&) { return temporaryFolderText(); }

// SAVEFORMATS: the kinds of files that drawings are saved as, separated by commas
Variable saveFormats(HostState&) {
  using formats::FileKind;
  std::wstring out;
  for (const FileKind kind : {FileKind::kDwg, FileKind::kDxf, FileKind::kDwt})
    out += (out.empty() ? L"" : L",") + std::wstring(formats::kindName(kind));
  return out;
}

// CDATE: YYYYMMDD.HHMMSS
Variable dateAndTime(HostState&) {
  const std::time_t now = std::time(nullptr);
  const std::tm* local = std::localtime(&now);
  if (local == nullptr) return 0.0;
  const double date = (local->tm_year + 1900) * 10000.0 + (local->tm_mon + 1) * 100.0 + local->tm_mday;
  return date + (local->tm_hour * 10000.0 + local->tm_min * 100.0 + local->tm_sec) / 1e6;
}

// CMDNAMES: the running commands, outermost first
Variable commandNames(HostState& state) { return state.commandLine.runningNames(); }

// CMDACTIVE: bit 1 while a command runs, bit 4 while a script does
Variable commandsActive(HostState& state) {
  CommandLine& commandLine = state.commandLine;
  return std::int64_t{commandLine.isBusy() ? 1 : 0} + (commandLine.script().isRunning() ? 4 : 0);
}

// --- The rows

using Home = VariableHome;
using Type = VariableType;
using Meaning = VariableMeaning;

SystemVariable integer(std::string_view name, Home home, double value, base::NumberLimits limits = {},
                       Version first = Version::kR12) {
  return {name, Type::kShort, home, Meaning::kPlain, false, value, L"", limits, nullptr, first};
}
SystemVariable real(std::string_view name, Home home, double value, base::NumberLimits limits = {},
                    Version first = Version::kR12) {
  return {name, Type::kReal, home, Meaning::kPlain, false, value, L"", limits, nullptr, first};
}
SystemVariable text(std::string_view name, Home home, const wchar_t* value, Meaning meaning = Meaning::kPlain,
                    Version first = Version::kR12) {
  return {name, Type::kText, home, meaning, false, 0, value, {}, nullptr, first};
}
SystemVariable computed(std::string_view name, Type type, Variable (*compute)(HostState&)) {
  return {name, type, Home::kComputed, Meaning::kPlain, true, 0, L"", {}, compute};
}

constexpr double kLargest = 1e99;
constexpr double kSmallest = 1e-99;  // of what must be above 0

const std::vector<SystemVariable>& drawingRows() {
  static const std::vector<SystemVariable> rows = {
      real("ANGBASE", Home::kDrawing, 0),
      integer("ANGDIR", Home::kDrawing, 0, {0, 1}),
      integer("ATTMODE", Home::kDrawing, 1, {0, 2}),
      integer("AUNITS", Home::kDrawing, 0, {0, 4}),
      integer("AUPREC", Home::kDrawing, 0, {0, 8}),
      text("CECOLOR", Home::kDrawing, L"BYLAYER", Meaning::kColor),
      real("CELTSCALE", Home::kDrawing, 1, {kSmallest, kLargest}, Version::kR13),
      text("CELTYPE", Home::kDrawing, L"ByLayer", Meaning::kLinetype),
      integer("CELWEIGHT", Home::kDrawing, -1, base::kLineweightLimits, Version::kR2000),
      text("CLAYER", Home::kDrawing, L"0", Meaning::kLayer),
      real("ELEVATION", Home::kDrawing, 0),
      real("FILLETRAD", Home::kDrawing, 0, {0, kLargest}),
      integer("FILLMODE", Home::kDrawing, 1, {0, 1}),
      integer("INSUNITS", Home::kDrawing, 0, {0, 24}, Version::kR2000),
      integer("LIMCHECK", Home::kDrawing, 0, {0, 1}),
      real("LTSCALE", Home::kDrawing, 1, {kSmallest, kLargest}),
      integer("LUNITS", Home::kDrawing, 2, {1, 5}),
      integer("LUPREC", Home::kDrawing, 4, {0, 8}),
      integer("LWDISPLAY", Home::kDrawing, 0, {0, 1}, Version::kR2000),
      integer("MEASUREMENT", Home::kDrawing, 0, {0, 1}, Version::kR14),
      integer("MIRRTEXT", Home::kDrawing, 0, {0, 1}),
      integer("ORTHOMODE", Home::kDrawing, 0, {0, 1}),
      integer("PDMODE", Home::kDrawing, 0, {0, 100}),
      real("PDSIZE", Home::kDrawing, 0),
      real("PLINEWID", Home::kDrawing, 0, {0, kLargest}),
      integer("PSLTSCALE", Home::kDrawing, 1, {0, 1}),
      integer("QTEXTMODE", Home::kDrawing, 0, {0, 1}),
      integer("REGENMODE", Home::kDrawing, 1, {0, 1}),
      real("TEXTSIZE", Home::kDrawing, 0.2, {kSmallest, kLargest}),
      text("TEXTSTYLE", Home::kDrawing, L"Standard", Meaning::kTextStyle),
      real("THICKNESS", Home::kDrawing, 0),
      integer("TILEMODE", Home::kDrawing, 1, {0, 1}),
      real("TRACEWID", Home::kDrawing, 0.05, {0, kLargest}),
      integer("USERI1", Home::kDrawing, 0),
      integer("USERI2", Home::kDrawing, 0),
      integer("USERI3", Home::kDrawing, 0),
      integer("USERI4", Home::kDrawing, 0),
      integer("USERI5", Home::kDrawing, 0),
      real("USERR1", Home::kDrawing, 0),
      real("USERR2", Home::kDrawing, 0),
      real("USERR3", Home::kDrawing, 0),
      real("USERR4", Home::kDrawing, 0),
      real("USERR5", Home::kDrawing, 0),
      integer("VISRETAIN", Home::kDrawing, 1, {0, 1}),
  };
  return rows;
}

const std::vector<SystemVariable>& sessionRows() {
  static const std::vector<SystemVariable> rows = {
      computed("ACADPREFIX", Type::kText, supportFolders),
      computed("CDATE", Type::kReal, dateAndTime),
      computed("CMDACTIVE", Type::kShort, commandsActive),
      computed("CMDNAMES", Type::kText, commandNames),
      computed("DBMOD", Type::kShort, drawingModified),
      computed("DWGCODEPAGE", Type::kText, drawingCodePage),
      computed("DWGNAME", Type::kText, drawingName),
      computed("DWGPREFIX", Type::kText, drawingFolder),
      computed("DWGTITLED", Type::kShort, drawingHasFile),
      computed("SAVEFORMATS", Type::kText, saveFormats),
      computed("TEMPPREFIX", Type::kText, temporaryFolder),
      computed("WRITESTAT", Type::kShort, drawingWritable),
      integer("ATTDIA", Home::kSession, 0, {0, 1}),
      integer("ATTREQ", Home::kSession, 1, {0, 1}),
      integer("CMDDIA", Home::kSession, 0, {0, 1}),
      integer("CMDECHO", Home::kSession, 1, {0, 1}),
      integer("ERRNO", Home::kSession, 0),
      integer("EXPERT", Home::kSession, 0, {0, 5}),
      integer("FILEDIA", Home::kSession, 0, {0, 1}),
      integer("HIGHLIGHT", Home::kSession, 1, {0, 1}),
      integer("NOMUTT", Home::kSession, 0, {0, 1}),
      integer("OSMODE", Home::kSession, 0, {0, 32767}),
      integer("PICKFIRST", Home::kSession, 0, {0, 1}),
      integer("SDI", Home::kSession, 0, {0, 3}),
      text("USERS1", Home::kSession, L""),
      text("USERS2", Home::kSession, L""),
      text("USERS3", Home::kSession, L""),
      text("USERS4", Home::kSession, L""),
      text("USERS5", Home::kSession, L""),
  };
  return rows;
}

SystemVariable dimensionRow(const DimVariableInfo& info) {
  SystemVariable row{info.name, Type::kText, Home::kDrawing};
  row.first = info.versions.first;
  row.last = info.versions.last;
  row.defaultNumber = info.defaultValue;
  row.limits = info.limits;
  switch (info.type) {
    case DimType::kInteger:
    case DimType::kLineWeight:
      row.type = Type::kShort;
      break;
    case DimType::kReal:
      row.type = Type::kReal;
      break;
    case DimType::kCharacter:
      row.meaning = Meaning::kCharacter;
      break;
    case DimType::kTextStyle:
      row.meaning = Meaning::kTextStyle;
      row.defaultText = L"Standard";
      break;
    case DimType::kArrow:
      row.meaning = Meaning::kArrow;
      break;
    case DimType::kLinetype:
      row.meaning = Meaning::kLinetype;
      break;
    case DimType::kText:
      break;
  }
  return row;
}

std::map<std::string_view, SystemVariable> makeTable() {
  std::map<std::string_view, SystemVariable> table;
  for (const SystemVariable& row : drawingRows()) table.emplace(row.name, row);
  for (const SystemVariable& row : sessionRows()) table.emplace(row.name, row);
  for (const DimVariableInfo& info : kDimVariables) table.emplace(info.name, dimensionRow(info));
  SystemVariable style = text("DIMSTYLE", Home::kDrawing, L"Standard", Meaning::kDimStyle);
  style.readOnly = true;
  table.emplace(style.name, style);
  SystemVariable release = text("ACADVER", Home::kSession, L"26.0s (embedded)");
  release.readOnly = true;
  table.emplace(release.name, release);
  return table;
}

}  // namespace

const SystemVariable* findSystemVariable(std::wstring_view name) {
  static const std::map<std::string_view, SystemVariable> table = makeTable();
  std::string wanted;
  for (const wchar_t c : base::upper(name)) {
    if (c >= 0x80) return nullptr;
    wanted += static_cast<char>(c);
  }
  const auto found = table.find(wanted);
  return found == table.end() ? nullptr : &found->second;
}

}  // namespace cad
