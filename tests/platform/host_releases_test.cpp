#include "siblings/common/host_releases.h"

#include <gtest/gtest.h>

#include <string>

namespace {

enum class Charset { kUndefined = 0, kDefault = 1 };
enum class Pitch { kDefault = 0 };
enum class Family { kDoNotCare = 0 };

// The forms that only other releases than the one of these headers have.
struct OldLayer {
  AcDbObjectId linetype;
  bool takes = true;
  void setLinetypeObjectId(AcDbObjectId id) { linetype = takes ? id : linetype; }
  AcDbObjectId linetypeObjectId() const { return linetype; }
};
struct NewStyle {
  std::wstring typeface;
  Charset set = Charset::kUndefined;
  Acad::ErrorStatus setFont(const ACHAR* name, bool, bool, Charset charset, Pitch, Family, bool = false) {
    typeface = name;
    set = charset;
    return Acad::eOk;
  }
  Acad::ErrorStatus font(AcString& name, bool&, bool&, Charset&, Pitch&, Family&) const {
    name = typeface.c_str();
    return Acad::eOk;
  }
};

TEST(HostReleases, TheFormsOfOthersAreCalled) {
  const AcDbObjectId linetype = AcDbObjectId().setFromOldId(7);
  OldLayer old;
  EXPECT_EQ(kiv::setLayerLinetype(old, linetype), Acad::eOk);
  EXPECT_EQ(old.linetype, linetype);
  old.takes = false;
  EXPECT_EQ(kiv::setLayerLinetype(old, AcDbObjectId().setFromOldId(8)), Acad::eInvalidInput);
  NewStyle style;
  EXPECT_EQ(kiv::setTypeface(style, L"Arial"), Acad::eOk);
  EXPECT_STREQ(kiv::typefaceOf(style).kwszPtr(), L"Arial");
  EXPECT_EQ(style.set, Charset::kDefault);
}

}  // namespace
