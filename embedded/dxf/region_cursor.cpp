#include "embedded/dxf/region_cursor.h"

namespace cad::dxf {

Region RegionTracker::turn(int code, std::string_view value) {
  if (code >= 1000) {
    application_ = false;
    return outer_ = Region::kExtendedData;
  }
  if (outer_ == Region::kExtendedData) return outer_;
  if (code == 102) {
    const std::string_view text = trimmed(value);
    application_ = !text.empty() && text.front() == '{';
    return Region::kApplication;
  }
  if (application_) return Region::kApplication;
  if (code == 101) return outer_ = Region::kEmbedded;
  if (code == 100 && outer_ != Region::kEmbedded) {
    subclass_ = trimmed(value);
    outer_ = Region::kSubclass;
    common_.marker(subclass_);
  }
  return outer_;
}

}  // namespace cad::dxf
