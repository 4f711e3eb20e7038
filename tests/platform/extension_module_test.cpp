#include "platform/extension_module.h"

#include <gtest/gtest.h>

namespace kiv {
namespace {

TEST(ExtensionModule, AttachedOnceAndReleased) {
  int instance = 0;
  ExtensionModule first;
  ExtensionModule second;
  EXPECT_FALSE(attachExtensionModule(first, nullptr));
  EXPECT_FALSE(first.initialised);
  EXPECT_TRUE(attachExtensionModule(first, &instance));
  EXPECT_TRUE(attachExtensionModule(second, &instance));
  EXPECT_TRUE(attachExtensionModule(first, &instance));
  ASSERT_EQ(resourceChain().size(), 2U);
  EXPECT_EQ(resourceChain().front(), &second);
  detachExtensionModule(first);
  detachExtensionModule(first);
  EXPECT_EQ(first.moduleInstance, nullptr);
  EXPECT_EQ(resourceChain().size(), 1U);
  detachExtensionModule(second);
}

TEST(ExtensionModule, ResourcesFirstForAWhile) {
  int instance = 0;
  ExtensionModule modules[3];
  for (ExtensionModule& module : modules) attachExtensionModule(module, &instance);
  const auto before = resourceChain();
  {
    const ResourcesFirst first(modules[0]);
    EXPECT_EQ(resourceChain().front(), &modules[0]);
    EXPECT_EQ(resourceChain().size(), before.size());
  }
  EXPECT_EQ(resourceChain(), before);
  {
    const ResourcesFirst first(modules[0]);
    detachExtensionModule(modules[0]);
  }
  EXPECT_EQ(resourceChain().size(), 2U);
  for (ExtensionModule& module : modules) detachExtensionModule(module);
}

}  // namespace
}  // namespace kiv
