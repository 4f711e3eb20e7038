// New records, blocks and variables: the file's format knows how they are written.

#include "embedded/drawing/drawing.h"

namespace cad {

base::Result<RecordId> Drawing::addTableRecord(Table table, std::wstring_view name) {
  if (name.empty()) return base::Failure{{}, L"A name must not be empty"};
  ChangeScope scope(*this);
  if (const RecordId existing = find(table, name); existing != kNoRecord) {
    if (!records_[existing].implied())
      return base::Failure{std::wstring(name), L"The drawing has a record of this name"};
    if (const base::Status status = materialise(existing); !status) return status.failure();
    return existing;
  }
  base::Result<NewRecord> built = storage_->buildTableRecord(*this, table, name);
  if (!built) {
    scope.rollBack();
    return built.failure();
  }
  return insertRecord(std::move(built.value()));
}

base::Result<RecordId> Drawing::defineBlock(std::wstring_view name, std::span<const Shape> shapes) {
  return storage_->defineBlock(*this, name, shapes);
}

base::Result<RecordId> Drawing::defineBlock(std::wstring_view name, const Drawing& source) {
  return storage_->defineBlock(*this, name, source);
}

base::Result<RecordId> Drawing::addInsert(RecordId space, std::wstring_view blockName, Point at, double scale,
                                          double rotationDegrees, std::span<const std::wstring> attributes) {
  return storage_->addInsert(*this, space, blockName, at, scale, rotationDegrees, attributes);
}

Geometry Drawing::geometry(RecordId entity) const {
  if (records_[entity].implied()) return {};
  return storage_->readGeometry(*this, entity);
}

std::optional<Variable> Drawing::dimVariable(RecordId id, int code) const {
  return storage_->dimVariable(*this, id, code);
}

base::Status Drawing::setDimVariable(RecordId id, int code, const Variable& value) {
  return storage_->setDimVariable(*this, id, code, value);
}

base::Status Drawing::removeDimOverride(RecordId id, int code) {
  return storage_->removeDimOverride(*this, id, code);
}

std::optional<Variable> Drawing::headerVariable(std::string_view name) const {
  return storage_->headerVariable(*this, name);
}

base::Status Drawing::setHeaderVariable(std::string_view name, const Variable& value) {
  return storage_->setHeaderVariable(*this, name, value);
}

}  // namespace cad
