#include "engine/dimension_variables.h"

#include <array>
#include <string_view>
#include <vector>

#include "dbdim.h"
#include "dblead.h"
#include "engine/host_access.h"
#include "spec/color_text.h"
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
  return isLineWeight(weight) ? (dimension.*Set)(static_cast<AcDb::LineWeight>(weight)) : Acad::eInvalidInput;
}
Status writeTextStyle(AcDbDimension& dimension, const DimensionValue& value) {
  const AcDbObjectId style = findInTable(dimension.database()->textStyleTableId(), textOf(value));
  return style.isNull() ? Acad::eKeyNotFound : dimension.setDimtxsty(style);
}

// --- The variables ------------------------------------------------------------------------------------

struct Access {
  const wchar_t* name;
  ReadValue readDimension;
  ReadValue readLeader;  // null: leaders do not have it
  WriteValue write;
};

#define KIV_DIM(NAME, TYPE, GET, SET) \
  Access { NAME, read<AcDbDimension, &AcDbDimension::GET>, nullptr, write##TYPE<&AcDbDimension::SET> }
#define KIV_LEADER_DIM(NAME, TYPE, GET, SET)                                            \
  Access {                                                                              \
    NAME, read<AcDbDimension, &AcDbDimension::GET>, read<AcDbLeader, &AcDbLeader::GET>, \
        write##TYPE<&AcDbDimension::SET>                                                \
  }
#define KIV_DIM_TEXT(NAME, GET, SET)                                                            \
  Access {                                                                                      \
    NAME, read<AcDbDimension, static_cast<Getter<const ACHAR*>>(&AcDbDimension::GET)>, nullptr, \
        writeText<&AcDbDimension::SET>                                                          \
  }
// The setter has a form for the block's name and one for its id.
#define KIV_DIM_ARROW(NAME, GET, READ_LEADER, SET)               \
  Access {                                                       \
    NAME, read<AcDbDimension, &AcDbDimension::GET>, READ_LEADER, \
        writeArrow<&AcDbDimension::SET, &AcDbDimension::SET>     \
  }

// DIMASO and DIMSHO belong to the drawing and not to a dimension.
constexpr std::array kAccesses = {
    KIV_DIM(L"DIMADEC", Integer, dimadec, setDimadec),
    KIV_DIM(L"DIMALT", Bool, dimalt, setDimalt),
    KIV_DIM(L"DIMALTD", Integer, dimaltd, setDimaltd),
    KIV_DIM(L"DIMALTF", Real, dimaltf, setDimaltf),
    KIV_DIM(L"DIMALTRND", Real, dimaltrnd, setDimaltrnd),
    KIV_DIM(L"DIMALTTD", Integer, dimalttd, setDimalttd),
    KIV_DIM(L"DIMALTTZ", Integer, dimalttz, setDimalttz),
    KIV_DIM(L"DIMALTU", Integer, dimaltu, setDimaltu),
    KIV_DIM(L"DIMALTZ", Integer, dimaltz, setDimaltz),
    KIV_DIM_TEXT(L"DIMAPOST", dimapost, setDimapost),
    KIV_LEADER_DIM(L"DIMASZ", Real, dimasz, setDimasz),
    KIV_DIM(L"DIMATFIT", Integer, dimatfit, setDimatfit),
    KIV_DIM(L"DIMAUNIT", Integer, dimaunit, setDimaunit),
    KIV_DIM(L"DIMAZIN", Integer, dimazin, setDimazin),
    KIV_DIM_ARROW(L"DIMBLK", dimblk, nullptr, setDimblk),
    KIV_DIM_ARROW(L"DIMBLK1", dimblk1, nullptr, setDimblk1),
    KIV_DIM_ARROW(L"DIMBLK2", dimblk2, nullptr, setDimblk2),
    KIV_DIM(L"DIMCEN", Real, dimcen, setDimcen),
    KIV_LEADER_DIM(L"DIMCLRD", Color, dimclrd, setDimclrd),
    KIV_DIM(L"DIMCLRE", Color, dimclre, setDimclre),
    KIV_DIM(L"DIMCLRT", Color, dimclrt, setDimclrt),
    KIV_DIM(L"DIMDEC", Integer, dimdec, setDimdec),
    KIV_DIM(L"DIMDLE", Real, dimdle, setDimdle),
    KIV_DIM(L"DIMDLI", Real, dimdli, setDimdli),
    KIV_DIM(L"DIMDSEP", Character, dimdsep, setDimdsep),
    KIV_DIM(L"DIMEXE", Real, dimexe, setDimexe),
    KIV_DIM(L"DIMEXO", Real, dimexo, setDimexo),
    KIV_DIM(L"DIMFRAC", Integer, dimfrac, setDimfrac),
    KIV_LEADER_DIM(L"DIMGAP", Real, dimgap, setDimgap),
    KIV_DIM(L"DIMJUST", Integer, dimjust, setDimjust),
    KIV_DIM_ARROW(L"DIMLDRBLK", dimldrblk, (read<AcDbLeader, &AcDbLeader::dimldrblk>), setDimldrblk),
    KIV_DIM(L"DIMLFAC", Real, dimlfac, setDimlfac),
    KIV_DIM(L"DIMLIM", Bool, dimlim, setDimlim),
    KIV_DIM(L"DIMLUNIT", Integer, dimlunit, setDimlunit),
    KIV_LEADER_DIM(L"DIMLWD", Weight, dimlwd, setDimlwd),
    KIV_DIM(L"DIMLWE", Weight, dimlwe, setDimlwe),
    KIV_DIM_TEXT(L"DIMPOST", dimpost, setDimpost),
    KIV_DIM(L"DIMRND", Real, dimrnd, setDimrnd),
    KIV_LEADER_DIM(L"DIMSAH", Bool, dimsah, setDimsah),
    KIV_LEADER_DIM(L"DIMSCALE", Real, dimscale, setDimscale),
    KIV_DIM(L"DIMSD1", Bool, dimsd1, setDimsd1),
    KIV_DIM(L"DIMSD2", Bool, dimsd2, setDimsd2),
    KIV_DIM(L"DIMSE1", Bool, dimse1, setDimse1),
    KIV_DIM(L"DIMSE2", Bool, dimse2, setDimse2),
    KIV_DIM(L"DIMSOXD", Bool, dimsoxd, setDimsoxd),
    KIV_LEADER_DIM(L"DIMTAD", Integer, dimtad, setDimtad),
    KIV_DIM(L"DIMTDEC", Integer, dimtdec, setDimtdec),
    KIV_DIM(L"DIMTFAC", Real, dimtfac, setDimtfac),
    KIV_DIM(L"DIMTIH", Bool, dimtih, setDimtih),
    KIV_DIM(L"DIMTIX", Bool, dimtix, setDimtix),
    KIV_DIM(L"DIMTM", Real, dimtm, setDimtm),
    KIV_DIM(L"DIMTMOVE", Integer, dimtmove, setDimtmove),
    KIV_DIM(L"DIMTOFL", Bool, dimtofl, setDimtofl),
    KIV_DIM(L"DIMTOH", Bool, dimtoh, setDimtoh),
    KIV_DIM(L"DIMTOL", Bool, dimtol, setDimtol),
    KIV_DIM(L"DIMTOLJ", Integer, dimtolj, setDimtolj),
    KIV_DIM(L"DIMTP", Real, dimtp, setDimtp),
    KIV_DIM(L"DIMTSZ", Real, dimtsz, setDimtsz),
    KIV_DIM(L"DIMTVP", Real, dimtvp, setDimtvp),
    Access{L"DIMTXSTY", read<AcDbDimension, &AcDbDimension::dimtxsty>,
           read<AcDbLeader, &AcDbLeader::dimtxsty>, writeTextStyle},
    KIV_LEADER_DIM(L"DIMTXT", Real, dimtxt, setDimtxt),
    KIV_DIM(L"DIMTZIN", Integer, dimtzin, setDimtzin),
    KIV_DIM(L"DIMUPT", Bool, dimupt, setDimupt),
    KIV_DIM(L"DIMZIN", Integer, dimzin, setDimzin),
};

#undef KIV_DIM
#undef KIV_LEADER_DIM
#undef KIV_DIM_TEXT
#undef KIV_DIM_ARROW

std::vector<const Access*> accessesByRow() {
  std::vector<const Access*> byRow(dimensionCatalogue().size(), nullptr);
  for (const Access& access : kAccesses) {
    byRow[static_cast<std::size_t>(findDimensionVariable(access.name))] = &access;
  }
  return byRow;
}

// Asked for every entity that a condition looks at. Null: dimensions do not have the variable.
const Access* accessOf(int row) {
  static const std::vector<const Access*> byRow = accessesByRow();
  return byRow[static_cast<std::size_t>(row)];
}

}  // namespace

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
