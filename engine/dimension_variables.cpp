#include "engine/dimension_variables.h"

#include <algorithm>
#include <array>

#include "base/dimension_variables.h"
#include "base/fold.h"
#include "dbdim.h"
#include "dblead.h"
#include "spec/color_text.h"
#include "spec/leading_number.h"
#include "spec/value_forms.h"

namespace kiv {
namespace {

using Status = Acad::ErrorStatus;
using ReadValue = DimensionValue (*)(const AcDbEntity&, SymbolNames&);
using WriteValue = Status (*)(AcDbDimension&, const DimensionValue&);

// --- Reading, by the host's type --------------------------------------------------------------------

DimensionValue toValue(bool value, SymbolNames&) { return value ? 1.0 : 0.0; }
DimensionValue toValue(int value, SymbolNames&) { return static_cast<double>(value); }
DimensionValue toValue(double value, SymbolNames&) { return value; }
DimensionValue toValue(AcDb::LineWeight value, SymbolNames&) { return static_cast<double>(value); }
DimensionValue toValue(const AcCmColor& value, SymbolNames&) {
  return static_cast<double>(value.colorIndex());
}
DimensionValue toValue(const ACHAR* value, SymbolNames&) {
  return std::wstring(value != nullptr ? value : L"");
}
DimensionValue toValue(ACHAR value, SymbolNames&) {
  return value != 0 ? std::wstring(1, value) : std::wstring();
}
DimensionValue toValue(AcDbObjectId value, SymbolNames& names) {
  return value.isNull() ? std::wstring(L".") : names.of(value).name;
}

template <class Entity, auto Get>
DimensionValue read(const AcDbEntity& entity, SymbolNames& names) {
  return toValue((static_cast<const Entity&>(entity).*Get)(), names);
}

// Readers that the host offers in two forms, by their return type.
template <class T>
using Getter = T (AcDbDimension::*)() const;

// --- Writing, by the host's type ---------------------------------------------------------------------

double numberOf(const DimensionValue& value) { return std::get<double>(value); }
const std::wstring& textOf(const DimensionValue& value) { return std::get<std::wstring>(value); }

template <Status (AcDbDimension::*Set)(bool)>
Status writeBool(AcDbDimension& dimension, const DimensionValue& value) {
  const double number = numberOf(value);
  return number == 0 || number == 1 ? (dimension.*Set)(number == 1) : Acad::eInvalidInput;
}
template <Status (AcDbDimension::*Set)(int)>
Status writeInteger(AcDbDimension& dimension, const DimensionValue& value) {
  return (dimension.*Set)(static_cast<int>(numberOf(value)));
}
template <Status (AcDbDimension::*Set)(double)>
Status writeReal(AcDbDimension& dimension, const DimensionValue& value) {
  return (dimension.*Set)(numberOf(value));
}
template <Status (AcDbDimension::*Set)(const ACHAR*)>
Status writeText(AcDbDimension& dimension, const DimensionValue& value) {
  return (dimension.*Set)(textOf(value).c_str());
}
// The host makes the block of a built-in arrow when it is asked for it; its own name for the arrow is without
// the underscore of the block's. That waits until the setter has not found the block, so that a dimension
// that cannot have the variable at all brings no block into the drawing.
template <Status (AcDbDimension::*SetName)(const ACHAR*), Status (AcDbDimension::*SetId)(AcDbObjectId)>
Status writeArrow(AcDbDimension& dimension, const DimensionValue& value) {
  const std::wstring& name = textOf(value);
  const Status status = (dimension.*SetName)(name.c_str());
  if (status == Acad::eOk || status == Acad::eNotApplicable || !name.starts_with(L'_')) return status;
  AcDbObjectId block;
  const bool isMade = AcDmUtil::getArrowId(name.c_str() + 1, block, dimension.database()) == Acad::eOk;
  return isMade ? (dimension.*SetId)(block) : status;
}
template <Status (AcDbDimension::*Set)(ACHAR)>
Status writeCharacter(AcDbDimension& dimension, const DimensionValue& value) {
  return textOf(value).size() == 1 ? (dimension.*Set)(textOf(value).front()) : Acad::eInvalidInput;
}
template <Status (AcDbDimension::*Set)(const AcCmColor&)>
Status writeColor(AcDbDimension& dimension, const DimensionValue& value) {
  const double index = numberOf(value);
  if (index < kColorByBlock || index > kColorByLayer) return Acad::eInvalidInput;
  AcCmColor color;
  const Status status = color.setColorIndex(static_cast<Adesk::UInt16>(index));
  return status == Acad::eOk ? (dimension.*Set)(color) : status;
}
template <Status (AcDbDimension::*Set)(AcDb::LineWeight)>
Status writeWeight(AcDbDimension& dimension, const DimensionValue& value) {
  const int weight = static_cast<int>(numberOf(value));
  return base::isLineweight(weight) ? (dimension.*Set)(static_cast<AcDb::LineWeight>(weight))
                                    : Acad::eInvalidInput;
}
Status writeTextStyle(AcDbDimension& dimension, const DimensionValue& value) {
  const AcDbObjectId style = findInTable(dimension.database()->textStyleTableId(), textOf(value));
  return style.isNull() ? Acad::eKeyNotFound : dimension.setDimtxsty(style);
}

// --- The variables ------------------------------------------------------------------------------------

struct Access {
  std::uint8_t row;
  ReadValue readDimension;
  ReadValue readLeader;  // null: leaders do not have it
  WriteValue write;
};

#define KIV_DIM(NAME, TYPE, GET, SET)                                           \
  Access {                                                                      \
    base::dimRow(#NAME).row, read<AcDbDimension, &AcDbDimension::GET>, nullptr, \
        write##TYPE<&AcDbDimension::SET>                                        \
  }
#define KIV_LEADER_DIM(NAME, TYPE, GET, SET)                                                               \
  Access {                                                                                                 \
    base::dimRow(#NAME).row, read<AcDbDimension, &AcDbDimension::GET>, read<AcDbLeader, &AcDbLeader::GET>, \
        write##TYPE<&AcDbDimension::SET>                                                                   \
  }
#define KIV_DIM_TEXT(NAME, GET, SET)                                                                      \
  Access {                                                                                                \
    base::dimRow(#NAME).row, read<AcDbDimension, static_cast<Getter<const ACHAR*>>(&AcDbDimension::GET)>, \
        nullptr, writeText<&AcDbDimension::SET>                                                           \
  }
// The setter has a form for the block's name and one for its id.
#define KIV_DIM_ARROW(NAME, GET, READ_LEADER, SET)                                  \
  Access {                                                                          \
    base::dimRow(#NAME).row, read<AcDbDimension, &AcDbDimension::GET>, READ_LEADER, \
        writeArrow<&AcDbDimension::SET, &AcDbDimension::SET>                        \
  }

// DIMASO and DIMSHO belong to the drawing and not to a dimension.
constexpr std::array kAccesses = {
    KIV_DIM(DIMADEC, Integer, dimadec, setDimadec),
    KIV_DIM(DIMALT, Bool, dimalt, setDimalt),
    KIV_DIM(DIMALTD, Integer, dimaltd, setDimaltd),
    KIV_DIM(DIMALTF, Real, dimaltf, setDimaltf),
    KIV_DIM(DIMALTRND, Real, dimaltrnd, setDimaltrnd),
    KIV_DIM(DIMALTTD, Integer, dimalttd, setDimalttd),
    KIV_DIM(DIMALTTZ, Integer, dimalttz, setDimalttz),
    KIV_DIM(DIMALTU, Integer, dimaltu, setDimaltu),
    KIV_DIM(DIMALTZ, Integer, dimaltz, setDimaltz),
    KIV_DIM_TEXT(DIMAPOST, dimapost, setDimapost),
    KIV_LEADER_DIM(DIMASZ, Real, dimasz, setDimasz),
    KIV_DIM(DIMATFIT, Integer, dimatfit, setDimatfit),
    KIV_DIM(DIMAUNIT, Integer, dimaunit, setDimaunit),
    KIV_DIM(DIMAZIN, Integer, dimazin, setDimazin),
    KIV_DIM_ARROW(DIMBLK, dimblk, nullptr, setDimblk),
    KIV_DIM_ARROW(DIMBLK1, dimblk1, nullptr, setDimblk1),
    KIV_DIM_ARROW(DIMBLK2, dimblk2, nullptr, setDimblk2),
    KIV_DIM(DIMCEN, Real, dimcen, setDimcen),
    KIV_LEADER_DIM(DIMCLRD, Color, dimclrd, setDimclrd),
    KIV_DIM(DIMCLRE, Color, dimclre, setDimclre),
    KIV_DIM(DIMCLRT, Color, dimclrt, setDimclrt),
    KIV_DIM(DIMDEC, Integer, dimdec, setDimdec),
    KIV_DIM(DIMDLE, Real, dimdle, setDimdle),
    KIV_DIM(DIMDLI, Real, dimdli, setDimdli),
    KIV_DIM(DIMDSEP, Character, dimdsep, setDimdsep),
    KIV_DIM(DIMEXE, Real, dimexe, setDimexe),
    KIV_DIM(DIMEXO, Real, dimexo, setDimexo),
    KIV_DIM(DIMFRAC, Integer, dimfrac, setDimfrac),
    KIV_LEADER_DIM(DIMGAP, Real, dimgap, setDimgap),
    KIV_DIM(DIMJUST, Integer, dimjust, setDimjust),
    KIV_DIM_ARROW(DIMLDRBLK, dimldrblk, (read<AcDbLeader, &AcDbLeader::dimldrblk>), setDimldrblk),
    KIV_DIM(DIMLFAC, Real, dimlfac, setDimlfac),
    KIV_DIM(DIMLIM, Bool, dimlim, setDimlim),
    KIV_DIM(DIMLUNIT, Integer, dimlunit, setDimlunit),
    KIV_LEADER_DIM(DIMLWD, Weight, dimlwd, setDimlwd),
    KIV_DIM(DIMLWE, Weight, dimlwe, setDimlwe),
    KIV_DIM_TEXT(DIMPOST, dimpost, setDimpost),
    KIV_DIM(DIMRND, Real, dimrnd, setDimrnd),
    KIV_LEADER_DIM(DIMSAH, Bool, dimsah, setDimsah),
    KIV_LEADER_DIM(DIMSCALE, Real, dimscale, setDimscale),
    KIV_DIM(DIMSD1, Bool, dimsd1, setDimsd1),
    KIV_DIM(DIMSD2, Bool, dimsd2, setDimsd2),
    KIV_DIM(DIMSE1, Bool, dimse1, setDimse1),
    KIV_DIM(DIMSE2, Bool, dimse2, setDimse2),
    KIV_DIM(DIMSOXD, Bool, dimsoxd, setDimsoxd),
    KIV_LEADER_DIM(DIMTAD, Integer, dimtad, setDimtad),
    KIV_DIM(DIMTDEC, Integer, dimtdec, setDimtdec),
    KIV_DIM(DIMTFAC, Real, dimtfac, setDimtfac),
    KIV_DIM(DIMTIH, Bool, dimtih, setDimtih),
    KIV_DIM(DIMTIX, Bool, dimtix, setDimtix),
    KIV_DIM(DIMTM, Real, dimtm, setDimtm),
    KIV_DIM(DIMTMOVE, Integer, dimtmove, setDimtmove),
    KIV_DIM(DIMTOFL, Bool, dimtofl, setDimtofl),
    KIV_DIM(DIMTOH, Bool, dimtoh, setDimtoh),
    KIV_DIM(DIMTOL, Bool, dimtol, setDimtol),
    KIV_DIM(DIMTOLJ, Integer, dimtolj, setDimtolj),
    KIV_DIM(DIMTP, Real, dimtp, setDimtp),
    KIV_DIM(DIMTSZ, Real, dimtsz, setDimtsz),
    KIV_DIM(DIMTVP, Real, dimtvp, setDimtvp),
    Access{base::dimRow("DIMTXSTY").row, read<AcDbDimension, &AcDbDimension::dimtxsty>,
           read<AcDbLeader, &AcDbLeader::dimtxsty>, writeTextStyle},
    KIV_LEADER_DIM(DIMTXT, Real, dimtxt, setDimtxt),
    KIV_DIM(DIMTZIN, Integer, dimtzin, setDimtzin),
    KIV_DIM(DIMUPT, Bool, dimupt, setDimupt),
    KIV_DIM(DIMZIN, Integer, dimzin, setDimzin),
};

#undef KIV_DIM
#undef KIV_LEADER_DIM
#undef KIV_DIM_TEXT
#undef KIV_DIM_ARROW

constexpr auto kAccessByRow = [] {
  std::array<Access, base::kDimVariables.size()> byRow{};
  for (const Access& access : kAccesses) byRow[access.row] = access;
  return byRow;
}();

constexpr bool hasAccess(const base::DimVariableInfo& info) {
  return kAccessByRow[info.row].write != nullptr;
}
static_assert(std::ranges::all_of(base::kDimVariables, [](const base::DimVariableInfo& info) {
  const bool isOffered = info.offer.type != base::DimOffer::Type::kNotOffered;
  return hasAccess(info) == (isOffered && !info.isOfHeaderOnly());
}));

// Asked for every entity that a condition looks at. Null: dimensions do not have the variable.
const Access* accessOf(int row) {
  const base::DimVariableInfo& info = *dimensionCatalogueRow(row).info;
  return info.isOfHeaderOnly() ? nullptr : &kAccessByRow[info.row];
}

}  // namespace

std::wstring hostArrowName(std::wstring_view name) {
  return std::wstring(base::equalFolded(name, L"_ARCHTIC") ? L"_ARCHTICK" : name);
}

std::optional<DimensionValue> dimensionValue(int row, std::wstring_view text) {
  const DimensionVariable& variable = dimensionCatalogueRow(row);
  if (variable.isInteger()) return static_cast<double>(leadingInteger(text));
  if (variable.isReal()) return leadingReal(text);
  if (!variable.isArrow()) return std::wstring(text);
  const auto block = blockNameOfDisplayForm(text);
  if (!block) return std::nullopt;
  return block->empty() ? L"." : hostArrowName(*block);
}

std::optional<DimensionValue> dimensionVariable(const AcDbEntity& entity, bool isLeader, int row,
                                                SymbolNames& names) {
  const Access* access = accessOf(row);
  if (access == nullptr) return std::nullopt;
  const ReadValue reader = isLeader ? access->readLeader : access->readDimension;
  if (reader == nullptr) return std::nullopt;
  return reader(entity, names);
}

Acad::ErrorStatus setDimensionVariable(AcDbEntity& dimension, int row,
                                       const std::optional<DimensionValue>& value) {
  const Access* access = accessOf(row);
  if (access == nullptr) return Acad::eNotThatKindOfClass;
  return value ? access->write(static_cast<AcDbDimension&>(dimension), *value) : Acad::eInvalidInput;
}

}  // namespace kiv
