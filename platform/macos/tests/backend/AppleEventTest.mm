// A get-URL Apple Event sent by the process to itself reaches the handler installed through the
// Apple Event port, with the URL as its direct object; once the handler is removed, no later event
// reaches it.
#include "platform/macos/AppKitAppleEventManager.hpp"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "platform/macos/Conversions.hpp"
#include "platform/macos/tests/backend/RunEvents.hpp"

namespace {

namespace platform = vornix::platform;

// Whether the system took the event (an event no handler is installed for may be refused).
NSError* sendGetURLToItself(const std::string& url) {
    NSAppleEventDescriptor* event =
        [NSAppleEventDescriptor appleEventWithEventClass:platform::internetEventClass
                                                 eventID:platform::getURLEventID
                                        targetDescriptor:[NSAppleEventDescriptor currentProcessDescriptor]
                                                returnID:kAutoGenerateReturnID
                                           transactionID:kAnyTransactionID];
    [event setParamDescriptor:[NSAppleEventDescriptor descriptorWithString:platform::macos::toNSString(url)]
                   forKeyword:keyDirectObject];
    NSError* error = nil;
    [event sendEventWithOptions:NSAppleEventSendNoReply | NSAppleEventSendNeverInteract timeout:5.0 error:&error];
    return error;
}

TEST(AppKitAppleEventManager, AGetURLEventSentToItselfReachesTheHandler) {
    platform::macos::AppKitAppleEventManager manager;
    std::vector<std::optional<std::string>> received;
    manager.setEventHandler(
        [&received](const platform::AppleEvent& event, platform::AppleEvent&) {
            const auto url = event.paramDescriptorForKeyword(platform::directObjectKeyword);
            received.push_back(url ? url->stringValue : std::nullopt);
        },
        platform::internetEventClass, platform::getURLEventID);

    NSError* error = sendGetURLToItself("vornix-os://open?user=someone&asset=a1&share=s1");
    EXPECT_TRUE(error == nil) << platform::macos::toString(error.description);
    ASSERT_TRUE(vornix::platform::macos::tests::runEventsUntil([&received] { return !received.empty(); }, 10.0));
    EXPECT_EQ(received, (std::vector<std::optional<std::string>>{"vornix-os://open?user=someone&asset=a1&share=s1"}));

    manager.removeEventHandler(platform::internetEventClass, platform::getURLEventID);
    (void)sendGetURLToItself("vornix-os://?update");
    EXPECT_FALSE(vornix::platform::macos::tests::runEventsUntil([&received] { return received.size() > 1; }, 1.0));
}

}  // namespace
