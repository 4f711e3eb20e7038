#include "platform/host_output.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "embedded/editor/host.h"

namespace {

TEST(Guard, ErrorsAreToldAndGoNoFurther) {
  std::wstring printed;
  cad::Host::instance().setOutput([&](std::wstring_view text) { printed += text; });
  EXPECT_EQ(kiv::guarded(0, [] { return 7; }), 7);
  EXPECT_EQ(printed, L"");
  EXPECT_EQ(kiv::guarded(-1, []() -> int { throw std::runtime_error("out of tune"); }), -1);
  EXPECT_EQ(printed.find(L"\nKivｴﾗｰ:"), 0U);
  EXPECT_NE(printed.find(L"out of tune"), std::wstring::npos);
  kiv::guarded([] { throw 1; });
  EXPECT_NE(printed.find(L"\nKivｴﾗｰ:", 1), std::wstring::npos);
  cad::Host::instance().setOutput({});
}

}  // namespace
