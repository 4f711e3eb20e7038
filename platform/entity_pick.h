#pragma once
// Picking an entity in the drawing for the value of one item; done by a sibling module.

#include <cstdint>
#include <string>
#include <vector>

namespace kiv {

// The kinds of entities that a pick admits: bits of its mask.
inline constexpr std::uint32_t kPickBlockReferences = 0x0020;
inline constexpr std::uint32_t kPickTexts = 0x0040;  // TEXT, MTEXT, attribute definitions, attributes
inline constexpr std::uint32_t kPickAllButBlockReferences = 0xFFDF;
inline constexpr std::uint32_t kPickAll = 0xFFFF;

// The item that the picked values are for.
enum class PickItem : int {
  kLayer = 1,  // nine values: name, colour, linetype, then label and value: "表示 ON", "ロック OFF",
               // "フリーズ OFF", "印刷 ON", "線幅値 Default", "透過性 0"
  kLinetype,
  kColor,       // "1:赤", "256:BYLAYER"
  kTextStyle,   // of a dimension that of its text, as the three below
  kTextHeight,  // "2.5"
  kTextAngle,   // degrees
  kWidthFactor,
  kBlock,
  kDimStyle,
  kLineWeight,    // "0.25 mm", "ByLayer"
  kTransparency,  // percent: "30"; "ByLayer", "ByBlock"
  kLinetypeScale,
  kDisplay,  // "ON" or "OFF": these four are the states of the entity's layer
  kLock,
  kFreeze,
  kPlot
};

// Takes one picked value; `context` is the caller's own.
using TakePickedValue = void (*)(const wchar_t* value, void* context);

// dll_kiv_entsel: prompts, lets the user pick an entity that `mask` admits and hands over its values for
// the item, 1 to 16, one by one. 1, or 0 when nothing was picked, the entity is of a wrong kind or has no
// such value: `take` was not called then, and the command line has said why unless the user cancelled.
using PickEntityFunction = int (*)(const wchar_t* prompt, int item, unsigned mask, TakePickedValue take,
                                   void* context);

// The same through the sibling module. When that or its function is missing, the command line says so and
// the pick fails. `values` is replaced on success and emptied on failure.
bool pickEntity(const std::wstring& prompt, PickItem item, std::uint32_t mask,
                std::vector<std::wstring>& values);

}  // namespace kiv
