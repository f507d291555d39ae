// One version in the header, the library that runs and the build that made its packages. What the
// DLL's resource says is looked at in loading_test.cpp.
#include <string>

#include <gtest/gtest.h>

#include "kvarnprog.h"

namespace {

TEST(Version, IsOneForLibraryHeaderAndBuild) {
    EXPECT_STREQ(KvarnProgVersion(), BUILD_VERSION);
    EXPECT_STREQ(KVARNPROG_VERSION, BUILD_VERSION);
    EXPECT_EQ(std::to_string(KVARNPROG_VERSION_NUMBER / 1000000) + '.' +
                  std::to_string(KVARNPROG_VERSION_NUMBER / 1000 % 1000) + '.' +
                  std::to_string(KVARNPROG_VERSION_NUMBER % 1000),
              BUILD_VERSION);
}

} // namespace
