#include "bridge/PendingMessages.hpp"

#include <gtest/gtest.h>

namespace vornix::bridge {
namespace {

std::vector<std::string> channelsAndFirstBytes(std::deque<PendingMessages::Message> messages) {
    std::vector<std::string> out;
    for (const auto& message : messages) {
        out.push_back(message.channel + ":" + std::to_string(message.payload.at(0)));
    }
    return out;
}

TEST(PendingMessagesTest, ByDefaultEachChannelKeepsOneMessageAsTheEngineDoes) {
    EXPECT_EQ(PendingMessages().perChannel(), 1u);
}

TEST(PendingMessagesTest, MessagesComeOutInTheOrderTheyWereSentAcrossChannels) {
    PendingMessages pending(2);
    pending.keep({"a", {1}, {}});
    pending.keep({"b", {2}, {}});
    pending.keep({"a", {3}, {}});
    EXPECT_EQ(channelsAndFirstBytes(pending.takeAll()), (std::vector<std::string>{"a:1", "b:2", "a:3"}));
    EXPECT_EQ(pending.size(), 0u);
}

TEST(PendingMessagesTest, AFullChannelLosesItsOldestMessageAndHandsItBack) {
    PendingMessages pending(2);
    pending.keep({"a", {1}, {}});
    pending.keep({"b", {2}, {}});
    pending.keep({"a", {3}, {}});
    const auto dropped = pending.keep({"a", {4}, {}});
    ASSERT_TRUE(dropped);
    EXPECT_EQ(dropped->payload, Bytes{1});
    EXPECT_EQ(channelsAndFirstBytes(pending.takeAll()), (std::vector<std::string>{"b:2", "a:3", "a:4"}));
}

TEST(PendingMessagesTest, OneChannelOverflowingLeavesTheOthersAlone) {
    PendingMessages pending;
    pending.keep({"custom", {1}, {}});
    pending.keep({"ui", {2}, {}});
    pending.keep({"ui", {3}, {}});
    EXPECT_EQ(channelsAndFirstBytes(pending.takeAll()), (std::vector<std::string>{"custom:1", "ui:3"}));
}

TEST(PendingMessagesTest, AfterTakingAllTheChannelsStartEmptyAgain) {
    PendingMessages pending;
    pending.keep({"a", {1}, {}});
    pending.takeAll();
    EXPECT_FALSE(pending.keep({"a", {2}, {}}));
}

}  // namespace
}  // namespace vornix::bridge
