#pragma once
// The small drawing of office.dxf for the tests of the host's objects.

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>

#include "dbobjptr.h"
#include "embedded/objects/database_access.h"
#include "tests/embedded/dxf/dxf_text.h"
#include "tests/embedded/memory/tested_storage.h"
#include "tests/support/test_file.h"

namespace cad::test {

inline std::string officeDrawing(std::string_view version = "AC1024") {
  return dxf::replaced(test_support::testFile("embedded/objects/office.dxf"), "AC1024", version);
}

class ObjectTest : public ::testing::Test {
 protected:
  void SetUp() override { load(officeDrawing()); }
  void load(std::string dxf) {
    database_.reset();
    auto loaded = dxf::loadBytes(std::move(dxf));
    if (!loaded) FAIL() << "the test drawing is refused";
    drawing_ = tested(std::move(loaded.value()));
    database_ = makeDatabase(*drawing_);
  }
  AcDbObjectId id(Handle handle) const {
    AcDbObjectId found;
    database_->getAcDbObjectId(found, false, AcDbHandle(handle));
    return found;
  }
  AcDbObjectId layerId(const wchar_t* name) const { return recordId<AcDbLayerTable>(name); }
  template <class TableClass>
  AcDbObjectId recordId(const wchar_t* name) const {
    AcDbObjectId found;
    AcDbSymbolTablePointer<TableClass>(database_.get())->getAt(name, found);
    return found;
  }
  std::wstring layerOf(Handle handle) const {
    AcString name;
    AcDbEntityPointer(id(handle))->layer(name);
    return name.kACharPtr();
  }

  std::unique_ptr<Drawing> drawing_;
  std::unique_ptr<AcDbDatabase> database_;
};

template <class ObjectClass>
using Writing = AcDbObjectPointer<ObjectClass>;

}  // namespace cad::test
