#include "base/Diagnostics.hpp"

#include <gtest/gtest.h>

namespace {

TEST(Diagnostics, PrintLineWritesTheTextAndOneLineEnd) {
    testing::internal::CaptureStdout();
    vornix::base::printLine("finished launching");
    vornix::base::printLine("");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "finished launching\n\n");
}

}  // namespace
