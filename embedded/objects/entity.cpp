// The properties that every entity has.

#include "base/lineweights.h"
#include "dbents.h"
#include "embedded/objects/object_access.h"
#include "embedded/objects/values.h"

using cad::Drawing;
using cad::ObjectAccess;
using cad::Property;
using cad::RecordId;
using cad::Table;

namespace {

// Sets the property on the entity and, where asked, on what hangs on it. Attributes are entities of their
// own and keep their properties; the sequence end of a block reference follows it.
template <class Set>
Acad::ErrorStatus writeWithSubents(AcDbEntity& entity, Property property, bool doSubents, Set set) {
  const Acad::ErrorStatus status = cad::checkWritable(entity);
  if (status != Acad::eOk) return status;
  Drawing& drawing = *ObjectAccess::drawing(entity);
  const RecordId record = ObjectAccess::record(entity);
  const auto subents = doSubents ? drawing.subRecordsOf(record) : std::span<const RecordId>();
  if (subents.empty()) return cad::outcome(drawing, record, property, set(drawing, record));

  const Drawing::ChangeScope scope(drawing);
  const Acad::ErrorStatus written = cad::outcome(drawing, record, property, set(drawing, record));
  if (written != Acad::eOk) return written;
  for (const RecordId subent : subents) {
    // A vertex that cannot hold the property goes without it.
    if (drawing.typeName(subent) != "ATTRIB") static_cast<void>(set(drawing, subent).ok());
  }
  return Acad::eOk;
}

Acad::ErrorStatus setReference(AcDbEntity& entity, Property property, RecordId named, bool doSubents) {
  const auto set = [property, named](Drawing& drawing, RecordId record) {
    return drawing.setReference(record, property, named);
  };
  return writeWithSubents(entity, property, doSubents, set);
}

Acad::ErrorStatus setByName(AcDbEntity& entity, Property property, Table table, const ACHAR* name,
                            bool doSubents) {
  if (!name) return Acad::eInvalidInput;
  const Acad::ErrorStatus status = cad::checkWritable(entity);
  if (status != Acad::eOk) return status;
  const auto named = ObjectAccess::state(entity)->find(table, name);
  if (named.record == cad::kNoRecord) return Acad::eKeyNotFound;
  return setReference(entity, property, named.record, doSubents);
}

Acad::ErrorStatus setById(AcDbEntity& entity, Property property, Table table, AcDbObjectId id,
                          bool doSubents) {
  Acad::ErrorStatus status = cad::checkWritable(entity);
  RecordId named = cad::kNoRecord;
  if (status == Acad::eOk) status = cad::checkedRecord(entity, id, table, named);
  if (status != Acad::eOk) return status;
  return setReference(entity, property, named, doSubents);
}

Acad::ErrorStatus setInteger(AcDbEntity& entity, Property property, std::int64_t value, bool doSubents) {
  return writeWithSubents(entity, property, doSubents, [property, value](Drawing& drawing, RecordId record) {
    return drawing.setInteger(record, property, value);
  });
}

}  // namespace

ACHAR* AcDbEntity::layer() const { return cad::newText(cad::readName(*this, Property::kLayer)); }

Acad::ErrorStatus AcDbEntity::layer(AcString& name) const {
  name = cad::readName(*this, Property::kLayer).c_str();
  return isNewObject() ? Acad::eNotInDatabase : Acad::eOk;
}

AcDbObjectId AcDbEntity::layerId() const { return cad::readId(*this, Property::kLayer, Table::kLayer); }

Acad::ErrorStatus AcDbEntity::setLayer(const ACHAR* name, Adesk::Boolean doSubents, bool) {
  return setByName(*this, Property::kLayer, Table::kLayer, name, doSubents);
}

Acad::ErrorStatus AcDbEntity::setLayer(AcDbObjectId layer, Adesk::Boolean doSubents, bool) {
  return setById(*this, Property::kLayer, Table::kLayer, layer, doSubents);
}

ACHAR* AcDbEntity::linetype() const { return cad::newText(cad::readName(*this, Property::kLinetype)); }

Acad::ErrorStatus AcDbEntity::linetype(AcString& name) const {
  name = cad::readName(*this, Property::kLinetype).c_str();
  return isNewObject() ? Acad::eNotInDatabase : Acad::eOk;
}

AcDbObjectId AcDbEntity::linetypeId() const {
  return cad::readId(*this, Property::kLinetype, Table::kLinetype);
}

Acad::ErrorStatus AcDbEntity::setLinetype(const ACHAR* name, Adesk::Boolean doSubents) {
  return setByName(*this, Property::kLinetype, Table::kLinetype, name, doSubents);
}

Acad::ErrorStatus AcDbEntity::setLinetype(AcDbObjectId linetype, Adesk::Boolean doSubents) {
  return setById(*this, Property::kLinetype, Table::kLinetype, linetype, doSubents);
}

AcCmColor AcDbEntity::color() const {
  AcCmColor color;
  color.setColorIndex(colorIndex());
  return color;
}

Adesk::UInt16 AcDbEntity::colorIndex() const {
  const std::int64_t index = cad::readInteger(*this, Property::kColorIndex);
  // A negative number is how old programs hid an entity.
  return static_cast<Adesk::UInt16>(index < 0 ? -index : index);
}

Acad::ErrorStatus AcDbEntity::setColorIndex(Adesk::UInt16 color, Adesk::Boolean doSubents) {
  if (color > AcCmColor::kACIbyLayer) return Acad::eInvalidInput;
  return setInteger(*this, Property::kColorIndex, color, doSubents);
}

Acad::ErrorStatus AcDbEntity::setColor(const AcCmColor& color, Adesk::Boolean doSubents) {
  return color.isByColor() ? Acad::eNotApplicable : setColorIndex(color.colorIndex(), doSubents);
}

AcDb::LineWeight AcDbEntity::lineWeight() const {
  return static_cast<AcDb::LineWeight>(cad::readInteger(*this, Property::kLineWeight));
}

Acad::ErrorStatus AcDbEntity::setLineWeight(AcDb::LineWeight weight, Adesk::Boolean doSubents) {
  if (!base::isLineweight(weight)) return Acad::eInvalidInput;
  return setInteger(*this, Property::kLineWeight, weight, doSubents);
}

double AcDbEntity::linetypeScale() const { return cad::readReal(*this, Property::kLinetypeScale); }

Acad::ErrorStatus AcDbEntity::setLinetypeScale(double scale, Adesk::Boolean doSubents) {
  const auto set = [scale](Drawing& drawing, RecordId record) {
    return drawing.setReal(record, Property::kLinetypeScale, scale);
  };
  return writeWithSubents(*this, Property::kLinetypeScale, doSubents, set);
}

AcCmTransparency AcDbEntity::transparency() const {
  return cad::transparencyFromStored(cad::readInteger(*this, Property::kTransparency));
}

Acad::ErrorStatus AcDbEntity::setTransparency(const AcCmTransparency& transparency,
                                              Adesk::Boolean doSubents) {
  if (transparency.isInvalid()) return Acad::eInvalidInput;
  return setInteger(*this, Property::kTransparency, cad::storedTransparency(transparency), doSubents);
}

AcDb::Visibility AcDbEntity::visibility() const {
  return cad::readInteger(*this, Property::kInvisible) != 0 ? AcDb::kInvisible : AcDb::kVisible;
}

Acad::ErrorStatus AcDbEntity::setVisibility(AcDb::Visibility visibility, Adesk::Boolean doSubents) {
  return setInteger(*this, Property::kInvisible, visibility == AcDb::kInvisible ? 1 : 0, doSubents);
}

AcDbObjectId AcDbBlockReference::blockTableRecord() const {
  return cad::readId(*this, Property::kBlockName, Table::kBlock);
}
