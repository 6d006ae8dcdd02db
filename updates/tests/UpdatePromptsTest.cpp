#include "updates/UpdatePrompts.hpp"

#include <gtest/gtest.h>

namespace {

using vornix::platform::AlertStyle;
using vornix::updates::AppcastItem;
using vornix::updates::CheckFailed;
using vornix::updates::noticeFor;
using vornix::updates::promptFor;
using vornix::updates::UpdateAvailable;
using vornix::updates::UpToDate;
using vornix::updates::Version;

const Version running = *Version::parse("1.0.0");

AppcastItem release() {
    AppcastItem item;
    item.version = "1200";
    item.shortVersionString = "1.2";
    item.enclosureUrl = "https://example.com/Vornix-1.2.zip";
    item.releaseNotesLink = "https://example.com/notes/1.2";
    return item;
}

TEST(UpdatePrompts, UpToDateSaysTheInstalledVersionIsTheNewest) {
    const auto prompt = promptFor(UpToDate{}, running);
    EXPECT_EQ(prompt.alert.messageText, "Vornix OS is up to date");
    EXPECT_EQ(prompt.alert.informativeText, "Version 1.0.0 is the newest version available.");
    EXPECT_EQ(prompt.alert.alertStyle, AlertStyle::informational);
    EXPECT_EQ(prompt.alert.buttons, (std::vector<std::string>{"OK"}));
    EXPECT_EQ(prompt.urlForAnswer(1000), "");
}

TEST(UpdatePrompts, AnAvailableReleaseOffersItsDownloadAndReleaseNotes) {
    const auto prompt = promptFor(UpdateAvailable{release()}, running);
    EXPECT_EQ(prompt.alert.messageText, "Vornix OS 1.2 is available");
    EXPECT_EQ(prompt.alert.informativeText, "You have version 1.0.0. Download the new version to update.");
    EXPECT_EQ(prompt.alert.buttons, (std::vector<std::string>{"Download", "Release Notes", "Later"}));
    EXPECT_EQ(prompt.urlForAnswer(1000), "https://example.com/Vornix-1.2.zip");
    EXPECT_EQ(prompt.urlForAnswer(1001), "https://example.com/notes/1.2");
    EXPECT_EQ(prompt.urlForAnswer(1002), "");
    EXPECT_EQ(prompt.urlForAnswer(1003), "");
    EXPECT_EQ(prompt.urlForAnswer(0), "");
}

TEST(UpdatePrompts, AReleaseWithoutNotesHasNoReleaseNotesButton) {
    AppcastItem item = release();
    item.releaseNotesLink.clear();
    const auto prompt = promptFor(UpdateAvailable{item}, running);
    EXPECT_EQ(prompt.alert.buttons, (std::vector<std::string>{"Download", "Later"}));
    EXPECT_EQ(prompt.urlForAnswer(1001), "");
}

TEST(UpdatePrompts, AFailedCheckSaysSoInPlainWords) {
    const auto prompt = promptFor(CheckFailed{"The update server did not answer in time. Try again later.", "x"}, running);
    EXPECT_EQ(prompt.alert.messageText, "Vornix OS could not check for updates");
    EXPECT_EQ(prompt.alert.informativeText, "The update server did not answer in time. Try again later.");
    EXPECT_EQ(prompt.alert.alertStyle, AlertStyle::warning);
    EXPECT_EQ(prompt.alert.buttons, (std::vector<std::string>{"OK"}));
}

TEST(UpdatePrompts, TheNotificationOffersTheReleaseAndClickingItDownloads) {
    const auto notice = noticeFor(release(), running);
    EXPECT_EQ(notice.notification.title, "Vornix OS 1.2 is available");
    EXPECT_EQ(notice.notification.body, "You have version 1.0.0. Click to download the new version.");
    ASSERT_EQ(notice.notification.actions.size(), 2u);
    EXPECT_EQ(notice.notification.actions[0].label, "Download");
    EXPECT_EQ(notice.notification.actions[1].label, "Release Notes");
    EXPECT_EQ(notice.urlForAction("default"), "https://example.com/Vornix-1.2.zip");
    EXPECT_EQ(notice.urlForAction(notice.notification.actions[0].key), "https://example.com/Vornix-1.2.zip");
    EXPECT_EQ(notice.urlForAction(notice.notification.actions[1].key), "https://example.com/notes/1.2");
    EXPECT_EQ(notice.urlForAction("unknown"), "");
}

TEST(UpdatePrompts, ANotificationForAReleaseWithoutNotesOffersOnlyTheDownload) {
    AppcastItem item = release();
    item.releaseNotesLink.clear();
    const auto notice = noticeFor(item, running);
    ASSERT_EQ(notice.notification.actions.size(), 1u);
    EXPECT_EQ(notice.notification.actions[0].label, "Download");
}

}  // namespace
