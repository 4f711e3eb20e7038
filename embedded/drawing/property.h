#pragma once
// The typed properties of drawing objects: what the host interface sees of a record, whatever the file
// format. Each is declared once, in the table behind propertyInfo(); a file format adds its own place
// for each.

#include <cstdint>
#include <span>

#include "embedded/drawing/record.h"

namespace cad {

enum class Property : std::uint8_t {
  // Every entity
  kLayer,          // name
  kLinetype,       // name; absent means ByLayer
  kColorIndex,     // 0 ByBlock, 1..255, 256 ByLayer; setting it drops a true colour
  kLineWeight,     // hundredths of a millimetre, -1 ByLayer, -2 ByBlock, -3 default
  kTransparency,   // 0 ByLayer, 0x01000000 ByBlock, 0x02000000 | alpha (0 clear .. 255 solid)
  kLinetypeScale,  // > 0
  kInvisible,      // 0 or 1
  // Texts (TEXT, MTEXT, ATTDEF, ATTRIB)
  kTextStyle,    // name; absent means Standard
  kTextHeight,   // > 0, drawing units
  kRotation,     // degrees
  kWidthFactor,  // > 0; single-line texts only
  kTextString,   // the content as stored, MTEXT with its codes, all its pieces joined
  // Dimensions and leaders
  kDimStyle,      // name
  kTextRotation,  // degrees, dimension text
  kDimText,       // override text of a dimension
  kDimBlock,      // name of the anonymous geometry block
  // Block references
  kBlockName,  // name
  // Table records
  kName,
  kStandardFlags,   // the bits below
  kLayerColor,      // 1..255; negative: the layer is off
  kLayerLinetype,   // name
  kLayerPlottable,  // 0 or 1
  kFontFile,
  kBigFontFile,
  kTypeface,     // TrueType face name of a text style; empty: the font is a file
  kFontFlags,    // of a typeface: pitch and family, character set << 8, 1 << 24 italic, 1 << 25 bold
  kFixedHeight,  // 0: not fixed
  kStyleWidthFactor,
  kStyleOblique,  // degrees
  kDescription,
  kCount
};

// The bits of kStandardFlags, by what has them. A format's other bits are kept as they are.
struct RecordFlag {
  static constexpr std::int64_t kDependent = 16;  // of an external reference; records of every table
};
struct BlockFlag {
  static constexpr std::int64_t kExternal = 4;  // an external reference
};
struct LayerFlag {
  static constexpr std::int64_t kFrozen = 1, kLocked = 4;
};
struct TextStyleFlag {
  static constexpr std::int64_t kShapeFile = 1, kVertical = 4;
};
struct AttributeFlag {
  static constexpr std::int64_t kConstant = 2, kPreset = 8;  // of a definition
};

enum class PropertyType : std::uint8_t { kName, kText, kInteger, kReal };

struct PropertyInfo {
  Property property;
  const char* name;  // for messages and documentation
  PropertyType type;
  double defaultValue;         // numbers; names and texts default to their documented meaning
  double least, most;          // inclusive limits of a number; a setter refuses others
  Table names = Table::kNone;  // the table of what it refers to; kNone: it is no reference
  bool copied = true;  // with an entity into a drawing of another format, with a table's record always
};

const PropertyInfo& propertyInfo(Property property);
std::span<const PropertyInfo> allProperties();  // in their order

}  // namespace cad
