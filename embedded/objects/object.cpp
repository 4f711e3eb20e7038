// Opening and closing objects, and what every object can do.

#include "dbmain.h"
#include "embedded/objects/object_access.h"
#include "embedded/objects/object_pool.h"

namespace cad {
namespace {

ObjectPool& poolFor(DatabaseState& state, RecordId number) {
  if (DatabaseState::isTable(number))
    return tablePool(static_cast<Table>(number - DatabaseState::kFirstTable));
  const Record& record = state.drawing.record(number);
  if (record.kind != RecordKind::kEntity) return recordPool(state.drawing, number);
  const NameId type = state.drawing.signature(record.signature).type;
  if (type >= state.poolsByType.size()) state.poolsByType.resize(type + 1, nullptr);
  ObjectPool*& pool = state.poolsByType[type];
  if (!pool) pool = &recordPool(state.drawing, number);
  return *pool;
}

constexpr Adesk::UInt16 kMostReaders = 256;

bool isOnLockedLayer(const Drawing& drawing, RecordId number) {
  if (DatabaseState::isTable(number)) return false;
  const Record& record = drawing.record(number);
  if (record.kind == RecordKind::kEntity)
    return drawing.isLayerLocked(drawing.signature(record.signature).layer);
  return record.kind == RecordKind::kSubEntity &&
         drawing.isLayerLocked(drawing.name(number, Property::kLayer));
}

}  // namespace

AcDbObject* ObjectAccess::open(DatabaseState& state, RecordId number, bool writing) {
  ObjectPool& pool = poolFor(state, number);
  AcDbObject* object = pool.take();
  object->state_ = &state;
  object->pool_ = &pool;
  object->record_ = number;
  object->readers_ = writing ? 0 : 1;
  object->writing_ = writing;
  state.slot(number) = object;
  ++state.openCount;
  if (writing) beginWriting(*object);
  return object;
}

void ObjectAccess::beginWriting(const AcDbObject& object) {
  if (object.pool_ && object.pool_->hasFollowers) object.state_->followers.opened(object.record_);
}

void ObjectAccess::endWriting(const AcDbObject& object) {
  if (object.state_ && object.pool_ && object.pool_->hasFollowers)
    object.state_->followers.closed(object.record_);
}

Acad::ErrorStatus ObjectAccess::openAgain(AcDbObject& object, bool writing) {
  if (object.writing_) return Acad::eWasOpenForWrite;
  if (writing) return Acad::eWasOpenForRead;
  if (object.readers_ == kMostReaders) return Acad::eAtMaxReaders;
  ++object.readers_;
  return Acad::eOk;
}

void ObjectAccess::adopt(AcDbObject& object, DatabaseState& state, RecordId number) {
  object.state_ = &state;
  object.record_ = number;
  object.readers_ = 0;
  object.writing_ = true;
  object.detached_.reset();
  state.slot(number) = &object;
  ++state.openCount;
}

void ObjectAccess::release(AcDbObject& object) {
  if (DatabaseState* state = object.state_) {
    state->slot(object.record_) = nullptr;
    --state->openCount;
  }
  object.state_ = nullptr;
  object.writing_ = false;
  object.readers_ = 0;
  object.iterators_ = 0;
  if (object.pool_) {
    object.pool_->closed.push_back(&object);
  } else {
    delete &object;
  }
}

void ObjectAccess::countIterator(AcDbObjectId walked, int change) {
  RecordId number = kNoRecord;
  DatabaseState* state = stateOf(walked, number);
  AcDbObject* object = state ? state->slot(number) : nullptr;
  if (object) object->iterators_ += change;
}

DetachedValues& ObjectAccess::detach(AcDbObject& object) {
  if (!object.detached_) object.detached_ = std::make_unique<DetachedValues>();
  return *object.detached_;
}

}  // namespace cad

using cad::DatabaseState;
using cad::ObjectAccess;
using cad::RecordId;
using cad::RecordKind;

Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode,
                                     bool openErased) {
  object = nullptr;
  if (id.isNull()) return Acad::eNullObjectId;
  RecordId number = cad::kNoRecord;
  DatabaseState* state = cad::stateOf(id, number);
  if (!state || (!state->isRecord(number) && !DatabaseState::isTable(number))) return Acad::eInvalidKey;
  const bool writing = mode == AcDb::kForWrite;
  if (writing && state->needsLock()) return Acad::eLockViolation;
  if (!openErased && state->isRecord(number) && state->drawing.record(number).erased())
    return Acad::eWasErased;
  if (AcDbObject* open = state->slot(number)) {
    const Acad::ErrorStatus status = ObjectAccess::openAgain(*open, writing);
    if (status == Acad::eOk) object = open;
    return status;
  }
  if (writing && cad::isOnLockedLayer(state->drawing, number)) return Acad::eOnLockedLayer;
  object = ObjectAccess::open(*state, number, writing);
  return Acad::eOk;
}

Acad::ErrorStatus acdbOpenAcDbEntity(AcDbEntity*& entity, AcDbObjectId id, AcDb::OpenMode mode,
                                     bool openErased) {
  return acdbOpenObject(entity, id, mode, openErased);
}

AcDbObject::AcDbObject() = default;
AcDbObject::~AcDbObject() = default;

AcDbObjectId AcDbObject::objectId() const { return state_ ? state_->id(record_) : AcDbObjectId(); }

AcDbDatabase* AcDbObject::database() const { return state_ ? &state_->database : nullptr; }

void AcDbObject::getAcDbHandle(AcDbHandle& handle) const { handle = objectId().handle(); }

AcDbObjectId AcDbObject::ownerId() const {
  if (!state_ || DatabaseState::isTable(record_)) return {};
  const cad::Record& record = state_->drawing.record(record_);
  if (record.kind == RecordKind::kEntity || record.kind == RecordKind::kSubEntity)
    return state_->id(record.owner);
  return record.table == cad::Table::kNone ? AcDbObjectId()
                                           : state_->id(DatabaseState::tableNumber(record.table));
}

Acad::ErrorStatus AcDbObject::close() {
  if (!writing_ && readers_ > 1) {
    --readers_;
    return Acad::eOk;
  }
  if (state_ && iterators_ > 0) return Acad::eInvalidOpenState;
  if (writing_) ObjectAccess::endWriting(*this);
  ObjectAccess::release(*this);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::upgradeOpen() {
  if (!state_) return Acad::eNotInDatabase;
  if (writing_) return Acad::eWasOpenForWrite;
  if (readers_ > 1) return Acad::eHadMultipleReaders;
  if (state_->needsLock()) return Acad::eLockViolation;
  if (cad::isOnLockedLayer(state_->drawing, record_)) return Acad::eOnLockedLayer;
  writing_ = true;
  readers_ = 0;
  ObjectAccess::beginWriting(*this);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::downgradeOpen() {
  if (!writing_) return Acad::eWasNotOpenForWrite;
  ObjectAccess::endWriting(*this);
  writing_ = false;
  readers_ = 1;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::erase(bool erasing) {
  if (!state_) return Acad::eNotInDatabase;
  if (!writing_) return Acad::eNotOpenForWrite;
  if (DatabaseState::isTable(record_) || state_->drawing.record(record_).kind != RecordKind::kEntity)
    return Acad::eCannotBeErasedByCaller;
  return state_->drawing.setErased(record_, erasing).ok() ? Acad::eOk : Acad::eCannotBeErasedByCaller;
}

bool AcDbObject::isErased() const { return objectId().isErased(); }

bool AcDbObject::isReadEnabled() const { return state_ && (writing_ || readers_ > 0); }

bool AcDbObject::isWriteEnabled() const { return state_ && writing_; }
