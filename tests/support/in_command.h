#pragma once
// A test's code as the body of a command: a program can run the host's commands only while a command of the
// document is running.

#include <functional>

#include "accmd.h"
#include "embedded/editor/host.h"

namespace test_support {

inline void inCommand(const std::function<void()>& body, Adesk::Int32 flags = ACRX_CMD_MODAL) {
  static const std::function<void()>* running = nullptr;
  running = &body;
  acedRegCmds->addCommand(L"TEST_BODY", L"TEST_BODY", L"TEST_BODY", flags, [] { (*running)(); });
  static_cast<void>(cad::Host::instance().execute(L"TEST_BODY"));
  acedRegCmds->removeGroup(L"TEST_BODY");
}

}  // namespace test_support
