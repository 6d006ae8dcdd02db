#include "base/FatalError.hpp"

#include <gtest/gtest.h>

namespace {

TEST(FatalErrorDeathTest, WritesOneLineNamingTheCauseAndAborts) {
    EXPECT_DEATH(vornix::base::fatalError("the shared updater is unavailable"),
                 "^Fatal error: the shared updater is unavailable\n$");
}

}  // namespace
