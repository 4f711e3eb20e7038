#pragma once
// Closed objects kept for the next opening: opening an entity costs no allocation once a pool is warm.

#include <string_view>
#include <vector>

#include "dbmain.h"
#include "embedded/drawing/drawing.h"

namespace cad {

struct ObjectPool {
  AcDbObject* (*make)(AcRxClass* type) = nullptr;
  AcRxClass* type = nullptr;  // of classes that stand for many types
  std::vector<AcDbObject*> closed;
  bool hasFollowers = false;  // see followers.h

  AcDbObject* take() {
    if (closed.empty()) return make(type);
    AcDbObject* object = closed.back();
    closed.pop_back();
    return object;
  }
};

ObjectPool& entityPool(std::string_view typeName);  // "TEXT"; unknown types have a pool each
ObjectPool& tablePool(Table table);
ObjectPool& recordPool(const Drawing& drawing, RecordId record);  // any record that is not a main entity

}  // namespace cad
