#include "updates/UpdateSelection.hpp"

#include <gtest/gtest.h>

namespace {

using vornix::updates::Appcast;
using vornix::updates::AppcastItem;
using vornix::updates::selectUpdate;
using vornix::updates::Version;

AppcastItem item(std::string version, std::string minimumSystem = "") {
    AppcastItem result;
    result.version = std::move(version);
    result.minimumSystemVersion = std::move(minimumSystem);
    result.enclosureUrl = "https://example.com/" + result.version + ".zip";
    return result;
}

Version v(const char* text) { return *Version::parse(text); }

TEST(UpdateSelection, OffersANewerRelease) {
    const auto update = selectUpdate({"", {item("1.1")}}, v("1.0"), v("6.1"));
    ASSERT_TRUE(update.has_value());
    EXPECT_EQ(update->version, "1.1");
}

TEST(UpdateSelection, OffersNothingForTheSameOrAnOlderRelease) {
    EXPECT_FALSE(selectUpdate({"", {item("1.0")}}, v("1.0"), v("6.1")).has_value());
    EXPECT_FALSE(selectUpdate({"", {item("1.0.0")}}, v("1.0"), v("6.1")).has_value());
    EXPECT_FALSE(selectUpdate({"", {item("0.9")}}, v("1.0"), v("6.1")).has_value());
    EXPECT_FALSE(selectUpdate({"", {}}, v("1.0"), v("6.1")).has_value());
}

TEST(UpdateSelection, PicksTheNewestOfItemsOutOfOrder) {
    const auto update = selectUpdate({"", {item("1.2"), item("1.10"), item("1.9"), item("1.10b1")}}, v("1.0"), v("6.1"));
    ASSERT_TRUE(update.has_value());
    EXPECT_EQ(update->version, "1.10");
}

TEST(UpdateSelection, SkipsItemsWhoseMinimumSystemVersionIsAboveTheRunningSystem) {
    const auto update =
        selectUpdate({"", {item("3.0", "7.0"), item("2.0", "6.1"), item("2.5", "6.2")}}, v("1.0"), v("6.1"));
    ASSERT_TRUE(update.has_value());
    EXPECT_EQ(update->version, "2.0");
    EXPECT_FALSE(selectUpdate({"", {item("3.0", "7.0")}}, v("1.0"), v("6.1")).has_value());
}

TEST(UpdateSelection, SkipsItemsWithoutAReadableVersionOrADownload) {
    AppcastItem noDownload = item("5.0");
    noDownload.enclosureUrl.clear();
    const auto update =
        selectUpdate({"", {item(""), item("latest"), noDownload, item("1.5", "not a version"), item("1.1")}},
                     v("1.0"), v("6.1"));
    ASSERT_TRUE(update.has_value());
    EXPECT_EQ(update->version, "1.1");
}

TEST(UpdateSelection, AnItemWithOnlyAPageIsOfferedWithThePageAsItsDownload) {
    AppcastItem pageOnly = item("2.0");
    pageOnly.enclosureUrl.clear();
    pageOnly.link = "https://example.com/download";
    const auto update = selectUpdate({"", {pageOnly}}, v("1.0"), v("6.1"));
    ASSERT_TRUE(update.has_value());
    EXPECT_EQ(update->downloadUrl(), "https://example.com/download");
}

TEST(UpdateSelection, AmongEqualVersionsTheFirstInTheFeedWins) {
    AppcastItem first = item("2.0");
    first.title = "first";
    AppcastItem second = item("2.0.0");
    second.title = "second";
    const auto update = selectUpdate({"", {first, second}}, v("1.0"), v("6.1"));
    ASSERT_TRUE(update.has_value());
    EXPECT_EQ(update->title, "first");
}

TEST(UpdateSelection, APreReleaseOfTheRunningVersionIsNotOffered) {
    EXPECT_FALSE(selectUpdate({"", {item("1.0b3")}}, v("1.0"), v("6.1")).has_value());
    EXPECT_TRUE(selectUpdate({"", {item("1.0")}}, v("1.0b3"), v("6.1")).has_value());
}

}  // namespace
