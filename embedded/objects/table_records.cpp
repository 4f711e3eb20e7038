// Layers, linetypes, text styles and blocks.

#include "dbsymtb.h"

#include <cstdlib>

#include "base/lineweights.h"
#include "embedded/drawing/angles.h"
#include "embedded/objects/database_access.h"
#include "embedded/objects/object_access.h"
#include "embedded/objects/values.h"
#include "embedded/support/font_files.h"

using cad::Drawing;
using cad::LayerFlag;
using cad::ObjectAccess;
using cad::Property;
using cad::RecordId;
using cad::Table;

namespace {

constexpr std::int64_t kWhite = 7;
constexpr int kCharsetShift = 8, kItalic = 1 << 24, kBold = 1 << 25;

Acad::ErrorStatus setFlag(AcDbObject& object, std::int64_t flag, bool on) {
  const std::int64_t flags = cad::readInteger(object, Property::kStandardFlags);
  return cad::writeInteger(object, Property::kStandardFlags, on ? flags | flag : flags & ~flag);
}

bool hasFlag(const AcDbObject& object, std::int64_t flag) {
  return (cad::readInteger(object, Property::kStandardFlags) & flag) != 0;
}

// The number of a layer's colour; negative while the layer is off.
std::int64_t storedColor(const AcDbObject& layer) {
  const std::int64_t color = cad::readInteger(layer, Property::kLayerColor);
  return color == 0 ? kWhite : color;
}

Acad::ErrorStatus give(AcString& to, const AcDbObject& object, Property property) {
  to = cad::readText(object, property).c_str();
  return Acad::eOk;
}

}  // namespace

bool AcDbLayerTableRecord::isOff() const { return storedColor(*this) < 0; }

void AcDbLayerTableRecord::setIsOff(bool off) {
  const std::int64_t index = std::abs(storedColor(*this));
  static_cast<void>(cad::writeInteger(*this, Property::kLayerColor, off ? -index : index));
}

bool AcDbLayerTableRecord::isFrozen() const { return hasFlag(*this, LayerFlag::kFrozen); }

Acad::ErrorStatus AcDbLayerTableRecord::setIsFrozen(bool frozen) {
  if (frozen && !isNewObject() && database()->clayer() == objectId()) return Acad::eInvalidLayer;
  return setFlag(*this, LayerFlag::kFrozen, frozen);
}

bool AcDbLayerTableRecord::isLocked() const { return hasFlag(*this, LayerFlag::kLocked); }
void AcDbLayerTableRecord::setIsLocked(bool locked) {
  static_cast<void>(setFlag(*this, LayerFlag::kLocked, locked));
}

bool AcDbLayerTableRecord::isPlottable() const {
  return cad::readInteger(*this, Property::kLayerPlottable) != 0;
}
Acad::ErrorStatus AcDbLayerTableRecord::setIsPlottable(bool plottable) {
  return cad::writeInteger(*this, Property::kLayerPlottable, plottable ? 1 : 0);
}

AcCmColor AcDbLayerTableRecord::color() const {
  AcCmColor color;
  color.setColorIndex(static_cast<Adesk::UInt16>(std::abs(storedColor(*this))));
  return color;
}

void AcDbLayerTableRecord::setColor(const AcCmColor& color) {
  if (!color.isByACI()) return;
  const std::int64_t index = color.colorIndex();
  static_cast<void>(cad::writeInteger(*this, Property::kLayerColor, isOff() ? -index : index));
}

AcDbObjectId AcDbLayerTableRecord::linetypeObjectId() const {
  return cad::readId(*this, Property::kLayerLinetype, Table::kLinetype);
}

Acad::ErrorStatus AcDbLayerTableRecord::setLinetypeObjectId(AcDbObjectId linetype) {
  if (const AcDbDatabase* source = linetype.database()) {
    const Drawing& drawing = cad::DatabaseAccess::state(*source).drawing;
    const RecordId record = cad::recordOf(linetype);
    if (record == drawing.find(Table::kLinetype, L"ByLayer") ||
        record == drawing.find(Table::kLinetype, L"ByBlock"))
      return Acad::eInvalidInput;
  }
  return cad::writeId(*this, Property::kLayerLinetype, Table::kLinetype, linetype);
}

AcDb::LineWeight AcDbLayerTableRecord::lineWeight() const {
  const std::int64_t weight = cad::readInteger(*this, Property::kLineWeight);
  // Layers have no layer to follow: what would mean by layer or by block is the default.
  return weight < 0 ? AcDb::kLnWtByLwDefault : static_cast<AcDb::LineWeight>(weight);
}

Acad::ErrorStatus AcDbLayerTableRecord::setLineWeight(AcDb::LineWeight weight) {
  if (!base::isLineweight(weight) || weight == AcDb::kLnWtByLayer || weight == AcDb::kLnWtByBlock)
    return Acad::eInvalidInput;
  return cad::writeInteger(*this, Property::kLineWeight, weight);
}

AcCmTransparency AcDbLayerTableRecord::transparency() const {
  const auto stored = cad::transparencyFromStored(cad::readInteger(*this, Property::kTransparency));
  return stored.isByAlpha() ? stored : AcCmTransparency(Adesk::UInt8{255});
}

Acad::ErrorStatus AcDbLayerTableRecord::setTransparency(const AcCmTransparency& transparency) {
  if (transparency.isInvalid()) return Acad::eInvalidInput;
  const AcCmTransparency own = transparency.isByAlpha() ? transparency : AcCmTransparency(Adesk::UInt8{255});
  // Every layer is solid without saying so, in drawings of any version.
  if (!isNewObject() && own == this->transparency()) return cad::checkWritable(*this);
  return cad::writeInteger(*this, Property::kTransparency, cad::storedTransparency(own));
}

ACHAR* AcDbLinetypeTableRecord::comments() const {
  return cad::newText(cad::readText(*this, Property::kDescription));
}
Acad::ErrorStatus AcDbLinetypeTableRecord::comments(AcString& text) const {
  return give(text, *this, Property::kDescription);
}

Acad::ErrorStatus AcDbTextStyleTableRecord::fileName(AcString& name) const {
  return give(name, *this, Property::kFontFile);
}
Acad::ErrorStatus AcDbTextStyleTableRecord::fileName(const ACHAR*& name) const {
  name = cad::readKeptText(*this, Property::kFontFile);
  return Acad::eOk;
}
Acad::ErrorStatus AcDbTextStyleTableRecord::setFileName(const ACHAR* name) {
  const Acad::ErrorStatus status = cad::writeText(*this, Property::kFontFile, name);
  if (status != Acad::eOk || cad::readText(*this, Property::kTypeface).empty()) return status;
  return cad::writeText(*this, Property::kTypeface, L"");
}

Acad::ErrorStatus AcDbTextStyleTableRecord::bigFontFileName(AcString& name) const {
  return give(name, *this, Property::kBigFontFile);
}
Acad::ErrorStatus AcDbTextStyleTableRecord::bigFontFileName(const ACHAR*& name) const {
  name = cad::readKeptText(*this, Property::kBigFontFile);
  return Acad::eOk;
}
Acad::ErrorStatus AcDbTextStyleTableRecord::setBigFontFileName(const ACHAR* name) {
  return cad::writeText(*this, Property::kBigFontFile, name);
}

Acad::ErrorStatus AcDbTextStyleTableRecord::font(AcString& typeface, bool& bold, bool& italic, int& charset,
                                                 int& pitchAndFamily) const {
  const std::int64_t flags = cad::readInteger(*this, Property::kFontFlags);
  bold = (flags & kBold) != 0;
  italic = (flags & kItalic) != 0;
  charset = static_cast<int>(flags >> kCharsetShift & 0xFF);
  pitchAndFamily = static_cast<int>(flags & 0xFF);
  return give(typeface, *this, Property::kTypeface);
}
Acad::ErrorStatus AcDbTextStyleTableRecord::setFont(const ACHAR* typeface, bool bold, bool italic,
                                                    int charset, int pitchAndFamily) {
  if (typeface == nullptr || charset < 0 || charset > 0xFF || pitchAndFamily < 0 || pitchAndFamily > 0xFF)
    return Acad::eInvalidInput;
  if (*typeface == 0) return cad::writeText(*this, Property::kTypeface, typeface);
  // Readers that know no typefaces go by the file; old drawings have nothing else.
  const std::wstring_view file = cad::support::fontFileOf(typeface);
  Acad::ErrorStatus status =
      cad::writeText(*this, Property::kFontFile, file.empty() ? typeface : std::wstring(file).c_str());
  const Drawing* drawing = ObjectAccess::drawing(*this);
  const bool holdsTypeface = !drawing || drawing->canHold(ObjectAccess::record(*this), Property::kTypeface);
  if (status == Acad::eOk && holdsTypeface) status = cad::writeText(*this, Property::kTypeface, typeface);
  if (status != Acad::eOk || !holdsTypeface) return status;
  return cad::writeInteger(
      *this, Property::kFontFlags,
      pitchAndFamily | charset << kCharsetShift | (italic ? kItalic : 0) | (bold ? kBold : 0));
}

double AcDbTextStyleTableRecord::textSize() const { return cad::readReal(*this, Property::kFixedHeight); }
Acad::ErrorStatus AcDbTextStyleTableRecord::setTextSize(double size) {
  return cad::writeReal(*this, Property::kFixedHeight, size);
}
double AcDbTextStyleTableRecord::xScale() const { return cad::readReal(*this, Property::kStyleWidthFactor); }
Acad::ErrorStatus AcDbTextStyleTableRecord::setXScale(double scale) {
  return cad::writeReal(*this, Property::kStyleWidthFactor, scale);
}
double AcDbTextStyleTableRecord::obliquingAngle() const {
  return cad::readReal(*this, Property::kStyleOblique) * cad::kRadiansPerDegree;
}
Acad::ErrorStatus AcDbTextStyleTableRecord::setObliquingAngle(double radians) {
  return cad::writeReal(*this, Property::kStyleOblique, cad::degreesFromRadians(radians));
}

bool AcDbBlockTableRecord::isLayout() const {
  const Drawing* drawing = ObjectAccess::drawing(*this);
  return drawing && drawing->isLayoutSpace(ObjectAccess::record(*this));
}

bool AcDbBlockTableRecord::isAnonymous() const {
  const ACHAR* name = nullptr;
  getName(name);
  return name[0] == L'*' && !isLayout();
}

Acad::ErrorStatus AcDbBlockTableRecord::newIterator(AcDbBlockTableRecordIterator*& iterator, bool atBeginning,
                                                    bool skipDeleted) const {
  iterator = nullptr;
  if (isNewObject()) return Acad::eNotInDatabase;
  iterator = new AcDbBlockTableRecordIterator;
  iterator->block_ = objectId();
  ObjectAccess::countIterator(iterator->block_, 1);
  iterator->start(atBeginning, skipDeleted);
  return Acad::eOk;
}

namespace {

// The entities of a block as long as its drawing is open.
struct BlockContent {
  explicit BlockContent(AcDbObjectId block) {
    RecordId number = cad::kNoRecord;
    state = cad::stateOf(block, number);
    if (state) entities = &state->drawing.entitiesOf(number);
  }
  bool holds(std::ptrdiff_t position) const {
    return entities && position >= 0 && position < static_cast<std::ptrdiff_t>(entities->size());
  }
  RecordId at(std::ptrdiff_t position) const { return (*entities)[static_cast<std::size_t>(position)]; }
  std::ptrdiff_t skipErased(std::ptrdiff_t position, std::ptrdiff_t direction) const {
    while (holds(position) && state->drawing.record(at(position)).erased()) position += direction;
    return position;
  }

  const cad::DatabaseState* state = nullptr;
  const std::vector<RecordId>* entities = nullptr;
};

}  // namespace

AcDbBlockTableRecordIterator::~AcDbBlockTableRecordIterator() { ObjectAccess::countIterator(block_, -1); }

void AcDbBlockTableRecordIterator::start(bool atBeginning, bool skipDeleted) {
  const BlockContent content(block_);
  const auto size = content.entities ? static_cast<std::ptrdiff_t>(content.entities->size()) : 0;
  position_ = atBeginning ? 0 : size - 1;
  if (skipDeleted) position_ = content.skipErased(position_, atBeginning ? 1 : -1);
}

bool AcDbBlockTableRecordIterator::done() const { return !BlockContent(block_).holds(position_); }

void AcDbBlockTableRecordIterator::step(bool forward, bool skipDeleted) {
  const std::ptrdiff_t direction = forward ? 1 : -1;
  position_ += direction;
  if (skipDeleted) position_ = BlockContent(block_).skipErased(position_, direction);
}

Acad::ErrorStatus AcDbBlockTableRecordIterator::getEntityId(AcDbObjectId& id) const {
  const BlockContent content(block_);
  id = content.holds(position_) ? content.state->id(content.at(position_)) : AcDbObjectId();
  return id.isNull() ? Acad::eInvalidIndex : Acad::eOk;
}

Acad::ErrorStatus AcDbBlockTableRecordIterator::getEntity(AcDbEntity*& entity, AcDb::OpenMode mode,
                                                          bool openErased) const {
  AcDbObjectId id;
  entity = nullptr;
  const Acad::ErrorStatus status = getEntityId(id);
  return status == Acad::eOk ? acdbOpenObject(entity, id, mode, openErased) : status;
}
