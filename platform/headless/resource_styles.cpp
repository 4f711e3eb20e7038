#include "platform/headless/resource_styles.h"

namespace kiv::headless {
namespace {

struct NamedStyle {
  const wchar_t* name;
  std::uint32_t bits;
};

constexpr NamedStyle kStyles[] = {
    // Windows
    {L"WS_POPUP", 0x80000000},
    {L"WS_CHILD", 0x40000000},
    {L"WS_VISIBLE", style::kVisible},
    {L"WS_DISABLED", style::kDisabled},
    {L"WS_CAPTION", 0x00C00000},
    {L"WS_BORDER", 0x00800000},
    {L"WS_DLGFRAME", 0x00400000},
    {L"WS_VSCROLL", 0x00200000},
    {L"WS_HSCROLL", 0x00100000},
    {L"WS_SYSMENU", 0x00080000},
    {L"WS_THICKFRAME", 0x00040000},
    {L"WS_MAXIMIZEBOX", 0x00010000},
    {L"WS_GROUP", style::kGroup},
    {L"WS_TABSTOP", style::kTabStop},
    {L"WS_EX_CLIENTEDGE", 0x0200},
    // Dialogs
    {L"DS_SETFONT", 0x40},
    {L"DS_MODALFRAME", 0x80},
    {L"DS_SHELLFONT", 0x48},
    {L"DS_FIXEDSYS", 0x08},
    {L"DS_CENTER", 0x0800},
    {L"DS_CONTEXTHELP", 0x2000},
    // Buttons
    {L"BS_PUSHBUTTON", 0},
    {L"BS_DEFPUSHBUTTON", 1},
    {L"BS_AUTOCHECKBOX", 3},
    {L"BS_GROUPBOX", 7},
    {L"BS_AUTORADIOBUTTON", 9},
    {L"BS_OWNERDRAW", 0x0B},
    {L"BS_ICON", style::kPicture},
    {L"BS_LEFT", 0x0100},
    {L"BS_CENTER", 0x0300},
    {L"BS_PUSHLIKE", 0x1000},
    {L"BS_MULTILINE", 0x2000},
    // Labels
    {L"SS_LEFT", 0},
    {L"SS_CENTER", 1},
    {L"SS_RIGHT", 2},
    {L"SS_ICON", 3},
    {L"SS_BITMAP", 0x0E},
    {L"SS_NOPREFIX", style::kNoPrefix},
    {L"SS_CENTERIMAGE", 0x0200},
    {L"SS_SUNKEN", 0x1000},
    {L"SS_ENDELLIPSIS", 0x4000},
    {L"SS_PATHELLIPSIS", 0x8000},
    // Edits
    {L"ES_LEFT", 0},
    {L"ES_RIGHT", 2},
    {L"ES_MULTILINE", 4},
    {L"ES_AUTOVSCROLL", 0x40},
    {L"ES_AUTOHSCROLL", 0x80},
    {L"ES_READONLY", style::kReadOnly},
    {L"ES_NUMBER", 0x2000},
    // Combo and list boxes
    {L"CBS_SIMPLE", 1},
    {L"CBS_DROPDOWN", 2},
    {L"CBS_DROPDOWNLIST", style::kDropDownList},
    {L"CBS_OWNERDRAWFIXED", 0x10},
    {L"CBS_AUTOHSCROLL", 0x40},
    {L"CBS_SORT", 0x0100},
    {L"CBS_HASSTRINGS", 0x0200},
    {L"LBS_NOTIFY", 1},
    {L"LBS_SORT", 2},
    {L"LBS_NOINTEGRALHEIGHT", 0x0100},
    // Trees and lists
    {L"TVS_HASBUTTONS", 1},
    {L"TVS_HASLINES", 2},
    {L"TVS_LINESATROOT", 4},
    {L"TVS_DISABLEDRAGDROP", 0x10},
    {L"TVS_SHOWSELALWAYS", 0x20},
    {L"LVS_REPORT", 1},
    {L"LVS_SINGLESEL", style::kSingleSelection},
    {L"LVS_SHOWSELALWAYS", 8},
    {L"LVS_NOCOLUMNHEADER", 0x4000},
    {L"LVS_NOSORTHEADER", 0x8000},
};

}  // namespace

std::optional<std::uint32_t> styleBits(std::wstring_view name) {
  for (const NamedStyle& known : kStyles) {
    if (name == known.name) return known.bits;
  }
  return std::nullopt;
}

}  // namespace kiv::headless
