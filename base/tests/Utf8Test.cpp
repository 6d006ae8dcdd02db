#include "base/Utf8.hpp"

#include <gtest/gtest.h>

namespace {

using vornix::base::isUtf8;

TEST(Utf8, AsciiAndWellFormedSequencesAreUtf8) {
    EXPECT_TRUE(isUtf8(""));
    EXPECT_TRUE(isUtf8("plain"));
    EXPECT_TRUE(isUtf8("caf\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x98\x80"));
}

TEST(Utf8, StrayOverlongSurrogateAndTooLargeFormsAreNot) {
    EXPECT_FALSE(isUtf8("\x80"));
    EXPECT_FALSE(isUtf8("\xC0\xAF"));
    EXPECT_FALSE(isUtf8("\xED\xA0\x80"));
    EXPECT_FALSE(isUtf8("\xF4\x90\x80\x80"));
    EXPECT_FALSE(isUtf8("\xE2\x82"));
}

}  // namespace
