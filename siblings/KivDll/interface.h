#pragma once
// What this module and the modules that load it agree on. Its functions are plain ones, found by their names;
// nothing is thrown.

#include <cstdint>

namespace kiv {

// --- Settings; keys are compared ignoring case -------------------------------------------------------------

// dll_kiv_getcfgCmn: the length of the key's text, or -1 when no text is kept under it, neither by the person
// nor in the file settings/common.cfg that came along with the module. With a buffer of `capacity` characters
// the text and its terminating zero are copied, cut to fit.
using GetCommonSetting = int(const wchar_t* key, wchar_t* text, int capacity);

// dll_kiv_setcfgCmn: 1, or 0 when the text could not be kept.
using SetCommonSetting = int(const wchar_t* key, const wchar_t* text);

// --- Picking an entity for the value of one item -----------------------------------------------------------

// The kinds of entities that a pick admits: bits of its mask. A table is no block reference.
inline constexpr std::uint32_t kPickBlockReferences = 0x0020;
// TEXT, MTEXT, attribute definitions, attributes; for the style, the height and the angle of texts dimensions
// too, whose text has these (DIMTXSTY, DIMTXT, its rotation), but no width factor.
inline constexpr std::uint32_t kPickTexts = 0x0040;
inline constexpr std::uint32_t kPickAllButBlockReferences = 0xFFDF;
inline constexpr std::uint32_t kPickAll = 0xFFFF;

// The item that the picked values are for.
enum class PickItem : int {
  kLayer = 1,  // nine values: name, colour, linetype, then label and value: "表示 ON", "ロック OFF",
               // "フリーズ OFF", "印刷 ON", "線幅値 Default", "透過性 0"
  kLinetype,
  kColor,       // "1:赤", "256:BYLAYER"
  kTextStyle,   // name, font (the file of a shape font, else the typeface) and, of a shape font that has one,
                // big font; of a dimension those of its text, as the two below
  kTextHeight,  // "2.5"
  kTextAngle,   // degrees
  kWidthFactor,  // of texts only
  kBlock,
  kDimension,   // of a dimension or leader the value of a variable, as it is typed: "2.5", a whole number
                // where specifications have one; of an arrow the block's name; without a variable the name of
                // the style
  kLineWeight,  // "0.25 mm", "ByLayer"
  kTransparency,  // percent: "30"; "ByLayer", "ByBlock"
  kLinetypeScale,
  kDisplay,  // "ON" or "OFF": these four are the states of the entity's layer
  kLock,
  kFreeze,
  kPlot,
  kEnd  // behind the last
};

// Takes one picked value; `context` is the caller's own.
using TakePickedValue = void(const wchar_t* value, void* context);

// dll_kiv_entsel: prompts, lets the user pick an entity that `mask` admits and hands over its values for
// the item, a PickItem, one by one. `variable` is the dimension variable that kDimension asks for; null or
// empty: none. 1, or 0 when nothing was picked, the entity is of a wrong kind or has no such value: `take`
// was not called then, and the command line has said why unless the user cancelled.
using PickEntity = int(const wchar_t* prompt, int item, const wchar_t* variable, std::uint32_t mask,
                       TakePickedValue* take, void* context);

}  // namespace kiv
