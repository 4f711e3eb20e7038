// Dimensions, leaders, and the dimension variables of both and of dimension styles.

#include <algorithm>

#include "dbapserv.h"
#include "dbdim.h"
#include "dblead.h"
#include "dbsymtb.h"
#include "embedded/drawing/angles.h"
#include "embedded/objects/dim_values.h"
#include "embedded/objects/object_access.h"
#include "embedded/objects/values.h"
#include "embedded/support/arrow_blocks.h"

using cad::Property;
using cad::Table;

ACHAR* AcDbDimension::dimensionText() const { return cad::newText(cad::readText(*this, Property::kDimText)); }

Acad::ErrorStatus AcDbDimension::dimensionText(AcString& text) const {
  text = cad::readText(*this, Property::kDimText).c_str();
  return isNewObject() ? Acad::eNotInDatabase : Acad::eOk;
}

Acad::ErrorStatus AcDbDimension::setDimensionText(const ACHAR* text) {
  return cad::writeText(*this, Property::kDimText, text);
}

double AcDbDimension::textRotation() const {
  return cad::readReal(*this, Property::kTextRotation) * cad::kRadiansPerDegree;
}

Acad::ErrorStatus AcDbDimension::setTextRotation(double radians) {
  return cad::writeReal(*this, Property::kTextRotation, cad::degreesFromRadians(radians));
}

AcDbObjectId AcDbDimension::dimensionStyle() const {
  return cad::readId(*this, Property::kDimStyle, Table::kDimStyle);
}

Acad::ErrorStatus AcDbDimension::setDimensionStyle(AcDbObjectId style) {
  return cad::writeId(*this, Property::kDimStyle, Table::kDimStyle, style);
}

AcDbObjectId AcDbDimension::dimBlockId() const {
  if (cad::DatabaseState* state = cad::ObjectAccess::state(*this))
    state->followers.finish(cad::ObjectAccess::record(*this));
  return cad::readId(*this, Property::kDimBlock, Table::kBlock);
}

Acad::ErrorStatus AcDmUtil::getArrowId(const ACHAR* name, AcDbObjectId& blockId, AcDbDatabase* database) {
  if (!name) return Acad::eInvalidInput;
  if (!database) database = acdbHostApplicationServices()->workingDatabase();
  if (!database) return Acad::eNoDatabase;
  blockId = AcDbObjectId::kNull;
  const std::wstring_view wanted = name;
  if (wanted.empty() || wanted == L".") return Acad::eOk;
  const std::wstring blockName = L"_" + std::wstring(wanted);
  if (!cad::support::findArrowBlock(blockName)) return Acad::eInvalidKey;
  cad::DatabaseState& state = cad::DatabaseAccess::state(*database);
  const base::Result<cad::RecordId> block = cad::support::ensureArrowBlock(state.drawing, blockName);
  if (!block) return Acad::eNotApplicable;
  blockId = state.id(block.value());
  return Acad::eOk;
}

Acad::ErrorStatus AcDbDimension::recomputeDimBlock(bool) {
  const Acad::ErrorStatus status = cad::checkWritable(*this);
  if (status != Acad::eOk) return status;
  const AcDbDatabase* current = acdbHostApplicationServices()->workingDatabase();
  if (current && current != database()) return Acad::eWrongDatabase;
  cad::ObjectAccess::state(*this)->followers.wantDrawn(cad::ObjectAccess::record(*this));
  return Acad::eOk;
}

AcDbObjectId AcDbLeader::dimensionStyle() const {
  return cad::readId(*this, Property::kDimStyle, Table::kDimStyle);
}

Acad::ErrorStatus AcDbLeader::setDimensionStyle(AcDbObjectId style) {
  return cad::writeId(*this, Property::kDimStyle, Table::kDimStyle, style);
}

#define DIM_INTEGER(get, set, variable)                                                                   \
  int DIM_CLASS::get() const { return static_cast<int>(cad::dimInteger(*this, cad::dimRow(#variable))); } \
  Acad::ErrorStatus DIM_CLASS::set(int value) {                                                           \
    return cad::setDimInteger(*this, cad::dimRow(#variable), value);                                      \
  }
#define DIM_BOOL(get, set, variable)                                                          \
  bool DIM_CLASS::get() const { return cad::dimInteger(*this, cad::dimRow(#variable)) != 0; } \
  Acad::ErrorStatus DIM_CLASS::set(bool value) {                                              \
    return cad::setDimInteger(*this, cad::dimRow(#variable), value ? 1 : 0);                  \
  }
#define DIM_REAL(get, set, variable)                                                    \
  double DIM_CLASS::get() const { return cad::dimReal(*this, cad::dimRow(#variable)); } \
  Acad::ErrorStatus DIM_CLASS::set(double value) {                                      \
    return cad::setDimReal(*this, cad::dimRow(#variable), value);                       \
  }
#define DIM_TEXT(get, set, variable)                                                              \
  const ACHAR* DIM_CLASS::get() const { return cad::dimKeptText(*this, cad::dimRow(#variable)); } \
  Acad::ErrorStatus DIM_CLASS::get(AcString& text) const {                                        \
    text = cad::dimText(*this, cad::dimRow(#variable)).c_str();                                   \
    return isNewObject() ? Acad::eNotInDatabase : Acad::eOk;                                      \
  }                                                                                               \
  Acad::ErrorStatus DIM_CLASS::set(const ACHAR* value) {                                          \
    return cad::setDimText(*this, cad::dimRow(#variable), value);                                 \
  }
#define DIM_CHARACTER(get, set, variable)                                      \
  ACHAR DIM_CLASS::get() const {                                               \
    return static_cast<ACHAR>(cad::dimInteger(*this, cad::dimRow(#variable))); \
  }                                                                            \
  Acad::ErrorStatus DIM_CLASS::set(ACHAR value) {                              \
    return cad::setDimInteger(*this, cad::dimRow(#variable), value);           \
  }
#define DIM_ID(get, set, variable)                                                          \
  AcDbObjectId DIM_CLASS::get() const { return cad::dimId(*this, cad::dimRow(#variable)); } \
  Acad::ErrorStatus DIM_CLASS::set(AcDbObjectId value) {                                    \
    return cad::setDimId(*this, cad::dimRow(#variable), value);                             \
  }                                                                                         \
  Acad::ErrorStatus DIM_CLASS::set(const ACHAR* name) {                                     \
    return cad::setDimName(*this, cad::dimRow(#variable), name);                            \
  }
#define DIM_COLOR(get, set, variable)                                                       \
  AcCmColor DIM_CLASS::get() const { return cad::dimColor(*this, cad::dimRow(#variable)); } \
  Acad::ErrorStatus DIM_CLASS::set(const AcCmColor& value) {                                \
    return cad::setDimColor(*this, cad::dimRow(#variable), value);                          \
  }
#define DIM_WEIGHT(get, set, variable)                                                    \
  AcDb::LineWeight DIM_CLASS::get() const {                                               \
    return static_cast<AcDb::LineWeight>(cad::dimInteger(*this, cad::dimRow(#variable))); \
  }                                                                                       \
  Acad::ErrorStatus DIM_CLASS::set(AcDb::LineWeight value) {                              \
    return cad::setDimInteger(*this, cad::dimRow(#variable), value);                      \
  }
#define DIM_ROWS(ROWS) \
  ROWS(DIM_INTEGER, DIM_BOOL, DIM_REAL, DIM_TEXT, DIM_CHARACTER, DIM_ID, DIM_COLOR, DIM_WEIGHT)

namespace {

using cad::DimType;
using cad::DimVariableInfo;

struct DimFunctions {
  const DimVariableInfo& variable;
  bool (*fits)(const DimVariableInfo& variable);  // the functions' type to the variable
};

constexpr bool isCount(const DimVariableInfo& variable) { return variable.type == DimType::kInteger; }
constexpr bool isSwitch(const DimVariableInfo& variable) {
  return isCount(variable) && variable.limits.least == 0 && variable.limits.most == 1;
}
constexpr bool isColor(const DimVariableInfo& variable) {
  return isCount(variable) && variable.limits.most == 256;
}
constexpr bool isName(const DimVariableInfo& variable) { return variable.isName(); }
template <DimType kType>
constexpr bool isOf(const DimVariableInfo& variable) {
  return variable.type == kType;
}

#define DIM_INTEGER_ROW(get, set, variable) {cad::dimRow(#variable), isCount},
#define DIM_BOOL_ROW(get, set, variable) {cad::dimRow(#variable), isSwitch},
#define DIM_REAL_ROW(get, set, variable) {cad::dimRow(#variable), isOf<DimType::kReal>},
#define DIM_TEXT_ROW(get, set, variable) {cad::dimRow(#variable), isOf<DimType::kText>},
#define DIM_CHARACTER_ROW(get, set, variable) {cad::dimRow(#variable), isOf<DimType::kCharacter>},
#define DIM_ID_ROW(get, set, variable) {cad::dimRow(#variable), isName},
#define DIM_COLOR_ROW(get, set, variable) {cad::dimRow(#variable), isColor},
#define DIM_WEIGHT_ROW(get, set, variable) {cad::dimRow(#variable), isOf<DimType::kLineWeight>},
#define DIM_TABLE(ROWS)                                                                          \
  ROWS(DIM_INTEGER_ROW, DIM_BOOL_ROW, DIM_REAL_ROW, DIM_TEXT_ROW, DIM_CHARACTER_ROW, DIM_ID_ROW, \
       DIM_COLOR_ROW, DIM_WEIGHT_ROW)

constexpr DimFunctions kDimFunctions[] = {DIM_TABLE(ACDB_LEADER_DIM_VARIABLES)
                                              DIM_TABLE(ACDB_OTHER_DIM_VARIABLES)};
constexpr bool fits(const DimFunctions& row) { return row.fits(row.variable); }
static_assert(std::ranges::all_of(kDimFunctions, fits), "functions of another type than their variable");

constexpr bool hasFunctionsOnce(const DimVariableInfo& variable) {
  const bool isOfToday = variable.versions.last == cad::Version::kUnknown && !variable.isOfHeaderOnly();
  const auto isThis = [&](const DimFunctions& row) { return row.variable.row == variable.row; };
  return std::ranges::count_if(kDimFunctions, isThis) == (isOfToday ? 1 : 0);
}
static_assert(std::ranges::all_of(cad::kDimVariables, hasFunctionsOnce), "a variable lacks its functions");

}  // namespace

#define DIM_CLASS AcDbDimension
DIM_ROWS(ACDB_LEADER_DIM_VARIABLES)
DIM_ROWS(ACDB_OTHER_DIM_VARIABLES)
#undef DIM_CLASS
#define DIM_CLASS AcDbDimStyleTableRecord
DIM_ROWS(ACDB_LEADER_DIM_VARIABLES)
DIM_ROWS(ACDB_OTHER_DIM_VARIABLES)
#undef DIM_CLASS
#define DIM_CLASS AcDbLeader
DIM_ROWS(ACDB_LEADER_DIM_VARIABLES)
#undef DIM_CLASS
