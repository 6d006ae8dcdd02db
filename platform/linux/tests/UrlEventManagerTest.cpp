#include "platform/linux/UrlEventManager.hpp"

#include <gtest/gtest.h>

namespace vornix::platform::linux {
namespace {

TEST(UrlEventManagerTest, AnOpenedUrlReachesTheGetUrlHandlerAsTheDirectObject) {
    UrlEventManager manager;
    std::optional<std::string> received;
    manager.setEventHandler(
        [&](const AppleEvent& event, AppleEvent&) {
            received = event.paramDescriptorForKeyword(directObjectKeyword)->stringValue;
        },
        internetEventClass, getURLEventID);
    EXPECT_TRUE(manager.openURL("vornix-os://open?user=1&asset=2&share=3"));
    EXPECT_EQ(received, "vornix-os://open?user=1&asset=2&share=3");
}

TEST(UrlEventManagerTest, AfterTheHandlerIsRemovedAUrlIsNotDelivered) {
    UrlEventManager manager;
    int calls = 0;
    manager.setEventHandler([&](const AppleEvent&, AppleEvent&) { ++calls; }, internetEventClass, getURLEventID);
    manager.removeEventHandler(internetEventClass, getURLEventID);
    EXPECT_FALSE(manager.openURL("vornix-os://launch?launch"));
    EXPECT_EQ(calls, 0);
}

TEST(UrlEventManagerTest, AHandlerForAnotherEventDoesNotGetUrls) {
    UrlEventManager manager;
    int calls = 0;
    manager.setEventHandler([&](const AppleEvent&, AppleEvent&) { ++calls; }, fourCharCode("aevt"), fourCharCode("odoc"));
    EXPECT_FALSE(manager.openURL("vornix-os://x?update"));
    EXPECT_EQ(calls, 0);
}

TEST(UrlEventManagerTest, ANewHandlerReplacesTheOldOne) {
    UrlEventManager manager;
    std::string who;
    manager.setEventHandler([&](const AppleEvent&, AppleEvent&) { who = "first"; }, internetEventClass, getURLEventID);
    manager.setEventHandler([&](const AppleEvent&, AppleEvent&) { who = "second"; }, internetEventClass, getURLEventID);
    manager.openURL("vornix-os://x?launch");
    EXPECT_EQ(who, "second");
}

}  // namespace
}  // namespace vornix::platform::linux
