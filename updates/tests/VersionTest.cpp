#include "updates/Version.hpp"

#include <gtest/gtest.h>

#include <compare>
#include <string>

namespace {

using vornix::updates::Version;

Version v(const std::string& text) {
    auto version = Version::parse(text);
    EXPECT_TRUE(version.has_value()) << text;
    return version.value_or(*Version::parse("0"));
}

struct Pair {
    const char* older;
    const char* newer;
};

// Each pair: the first is older than the second.
const Pair olderNewer[] = {
    {"1.9", "1.10"},
    {"1.2.9", "1.2.10"},
    {"1.0", "1.0.1"},
    {"1", "1.0.0.1"},
    {"0.9.99", "1.0"},
    {"2.0.0", "10.0.0"},
    {"1.0b1", "1.0"},
    {"1.0-beta.2", "1.0"},
    {"1.0a1", "1.0b1"},
    {"1.0b1", "1.0b2"},
    {"1.0b2", "1.0b10"},
    {"1.0b5", "1.0rc1"},
    {"1.0 beta", "1.0 beta 2"},
    {"1.0-1", "1.0-alpha"},
    {"1.0rc1", "1.0.1"},
    {"1.0", "1.1b1"},
    {"99999999999999999999", "100000000000000000000"},
    {"1.0.Beta", "1.0.RC"},
    {"41", "42"},
};

TEST(Version, ComparesEachTablePairInOrder) {
    for (const auto& [older, newer] : olderNewer) {
        EXPECT_LT(v(older), v(newer)) << older << " < " << newer;
        EXPECT_GT(v(newer), v(older)) << newer << " > " << older;
        EXPECT_NE(v(older), v(newer)) << older << " != " << newer;
    }
}

// Each pair: the two are the same version.
const Pair same[] = {
    {"1.0", "1.0.0"},
    {"1", "1.0.0.0"},
    {"01.002", "1.2"},
    {"v1.2.3", "1.2.3"},
    {" 1.2.3\n", "1.2.3"},
    {"1.2.3+build.7", "1.2.3"},
    {"1.2.3+7", "1.2.3+8"},
    {"1.0b1", "1.0-B1"},
    {"1.0-beta.1", "1.0beta1"},
    {"2.0-", "2.0"},
};

TEST(Version, TreatsMissingComponentsAsZeroAndIgnoresBuildMetadata) {
    for (const auto& [left, right] : same) {
        EXPECT_EQ(v(left), v(right)) << left << " == " << right;
        EXPECT_EQ(v(left) <=> v(right), std::strong_ordering::equal) << left << " <=> " << right;
    }
}

TEST(Version, NumericComponentsCompareAsNumbersNotText) {
    EXPECT_GT(v("1.10"), v("1.9"));
    EXPECT_GT(v("1.10"), v("1.2"));
}

TEST(Version, APreReleaseIsOlderThanTheReleaseItPrecedes) {
    EXPECT_TRUE(v("3.1b2").isPreRelease());
    EXPECT_FALSE(v("3.1").isPreRelease());
    EXPECT_LT(v("3.1b2"), v("3.1"));
    EXPECT_GT(v("3.1b2"), v("3.0.9"));
}

TEST(Version, RejectsTextThatDoesNotStartWithANumber) {
    for (const char* text : {"", "   ", "beta", "v", "vx1", ".1", "-1", "version 1"}) {
        EXPECT_FALSE(Version::parse(text).has_value()) << '"' << text << '"';
    }
}

TEST(Version, KeepsItsTextWithoutSurroundingSpace) {
    EXPECT_EQ(v("  2.4.1 ").text(), "2.4.1");
}

}  // namespace
