#include "base/Version.hpp"

#include <gtest/gtest.h>

#include <regex>
#include <string>

namespace {

TEST(Version, IsThreeDottedNumbers) {
    EXPECT_TRUE(std::regex_match(std::string(vornix::base::hostVersion()), std::regex(R"(\d+\.\d+\.\d+)")));
}

}  // namespace
