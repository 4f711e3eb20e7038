#include "rxregsvc.h"
#include "tests/embedded/editor/host_fixture.h"

namespace {

using cad_test::HostTest;

TEST_F(HostTest, AModuleLivesFromItsFirstMessageToItsLast) {
  ASSERT_TRUE(host().loadModule(TEST_MODULE).ok());
  ASSERT_TRUE(host().loadModule(TEST_MODULE).ok());
  EXPECT_EQ(printed_, L"<message 1>");
  ASSERT_TRUE(host().execute(L"HI").ok());
  EXPECT_TRUE(printedHas(L"\nhello from the module"));
  const auto answer = reinterpret_cast<int (*)()>(host().moduleSymbol(L"editortest.arx", "answer"));
  ASSERT_NE(answer, nullptr);
  EXPECT_EQ(answer(), 42);
  EXPECT_EQ(host().moduleSymbol(L"EDITORTEST.ARX", "question"), nullptr);
  open();
  EXPECT_TRUE(printedHas(L"<message 3>"));
  ASSERT_TRUE(host().unloadModule(L"EDITORTEST.ARX").ok());
  EXPECT_TRUE(printedHas(L"<message 2>"));
  EXPECT_FALSE(host().execute(L"HI").ok());
  EXPECT_FALSE(host().unloadModule(L"EDITORTEST.ARX").ok());
}

TEST_F(HostTest, AModuleIsFoundByNameAndLoadedAgain) {
  host().setSupportPath({std::filesystem::path(TEST_MODULE).parent_path()});
  EXPECT_TRUE(acrxLoadModule(L"EditorTest.arx", true));
  EXPECT_TRUE(acrxUnloadModule(L"EDITORTEST.ARX"));
  EXPECT_TRUE(acrxLoadModule(L"EDITORTEST.ARX", true));
  EXPECT_TRUE(host().execute(L"HELLO").ok());
  host().stop();
  EXPECT_TRUE(printedHas(L"<message 8>"));
  host().start();
  EXPECT_FALSE(host().execute(L"HELLO").ok());
}

TEST_F(HostTest, WhatIsNoModuleIsRefusedWithItsName) {
  const base::Status missing = host().loadModule(folder_ / "missing.arx");
  ASSERT_FALSE(missing.ok());
  EXPECT_NE(missing.failure().text().find(L"missing.arx"), std::wstring::npos);
  EXPECT_FALSE(host().loadModule(make("text.arx", "no library")).ok());
  const base::Status old = host().loadModule(TEST_MODULE_WITHOUT_VERSION);
  ASSERT_FALSE(old.ok());
  EXPECT_NE(old.failure().text().find(L"acrxGetApiVersion"), std::wstring::npos);
  EXPECT_FALSE(printedHas(L"<message 1>"));
  EXPECT_FALSE(acrxLoadModule(L"missing.arx", true));
  EXPECT_TRUE(printedHas(L"missing.arx"));
}

}  // namespace
