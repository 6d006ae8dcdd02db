#include "engine/MethodResult.hpp"

#include <gtest/gtest.h>

#include <optional>
#include <vector>

#include "engine/tests/Hex.hpp"

namespace {

using namespace vornix::engine;
using vornix::engine::testing::hex;

struct Replies {
    std::vector<Bytes> sent;
    MethodResult result() {
        return MethodResult([this](const Bytes& envelope) { sent.push_back(envelope); });
    }
};

TEST(MethodResult, SuccessRepliesWithASuccessEnvelope) {
    Replies replies;
    replies.result().success(true);
    EXPECT_EQ(replies.sent, std::vector<Bytes>{hex("00 01")});
}

TEST(MethodResult, SuccessWithoutAValueRepliesNull) {
    Replies replies;
    replies.result().success();
    EXPECT_EQ(replies.sent, std::vector<Bytes>{hex("00 00")});
}

TEST(MethodResult, ErrorRepliesWithAnErrorEnvelope) {
    Replies replies;
    replies.result().error("E", "msg");
    EXPECT_EQ(replies.sent, std::vector<Bytes>{hex("01 07 01 45 07 03 6d7367 00")});
}

TEST(MethodResult, NotImplementedRepliesWithZeroBytes) {
    Replies replies;
    replies.result().notImplemented();
    EXPECT_EQ(replies.sent, std::vector<Bytes>{Bytes()});
}

TEST(MethodResult, AResultDroppedUnansweredRepliesNotImplemented) {
    Replies replies;
    { MethodResult dropped = replies.result(); }
    EXPECT_EQ(replies.sent, std::vector<Bytes>{Bytes()});
}

TEST(MethodResult, AMovedResultAnswersOnceFromWhereItWent) {
    Replies replies;
    std::optional<MethodResult> kept;
    {
        MethodResult original = replies.result();
        kept.emplace(std::move(original));
    }
    EXPECT_TRUE(replies.sent.empty());
    kept->success(1);
    kept.reset();
    EXPECT_EQ(replies.sent, std::vector<Bytes>{hex("00 03 01000000")});
}

TEST(MethodResult, AssigningOverAnUnansweredResultAnswersItNotImplemented) {
    Replies first;
    Replies second;
    MethodResult result = first.result();
    result = second.result();
    EXPECT_EQ(first.sent, std::vector<Bytes>{Bytes()});
    result.success(false);
    EXPECT_EQ(second.sent, std::vector<Bytes>{hex("00 02")});
}

TEST(MethodResultDeathTest, ASecondAnswerStopsTheProcess) {
    Replies replies;
    MethodResult result = replies.result();
    result.success(true);
    EXPECT_DEATH(result.notImplemented(), "Fatal error: a method call was answered twice");
    EXPECT_DEATH(result.error("E"), "Fatal error: a method call was answered twice");
}

}  // namespace
