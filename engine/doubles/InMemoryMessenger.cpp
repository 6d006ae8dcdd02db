#include "engine/doubles/InMemoryMessenger.hpp"

#include <memory>

#include "engine/StandardMethodCodec.hpp"

namespace vornix::engine::doubles {

void InMemoryMessenger::send(std::string_view channel, std::span<const std::uint8_t> message) {
    sent_.push_back({std::string(channel), Bytes(message.begin(), message.end())});
}

void InMemoryMessenger::setMessageHandler(std::string_view channel, BinaryMessageHandler handler) {
    if (handler) {
        handlers_.insert_or_assign(std::string(channel), std::move(handler));
    } else if (const auto found = handlers_.find(channel); found != handlers_.end()) {
        handlers_.erase(found);
    }
}

std::vector<MethodCall> InMemoryMessenger::sentCalls(std::string_view channel) const {
    std::vector<MethodCall> calls;
    for (const Message& message : sent_) {
        if (message.channel == channel) {
            calls.push_back(StandardMethodCodec::decodeMethodCall(message.bytes));
        }
    }
    return calls;
}

bool InMemoryMessenger::hasHandler(std::string_view channel) const { return handlers_.contains(channel); }

std::optional<Bytes> InMemoryMessenger::deliver(std::string_view channel, std::span<const std::uint8_t> message) {
    const auto found = handlers_.find(channel);
    if (found == handlers_.end()) {
        replies_.push_back({std::string(channel), Bytes()});
        return Bytes();
    }
    auto replyNow = std::make_shared<std::optional<Bytes>>();
    // A copy of the handler, so that a handler that replaces itself does not pull the rug from under its own call.
    const BinaryMessageHandler handler = found->second;
    handler(message, [this, name = std::string(channel), replyNow](std::span<const std::uint8_t> reply) {
        replies_.push_back({name, Bytes(reply.begin(), reply.end())});
        *replyNow = Bytes(reply.begin(), reply.end());
    });
    std::optional<Bytes> reply = std::move(*replyNow);
    // Replies that come later are still recorded, but no longer returned from here.
    replyNow->reset();
    return reply;
}

std::optional<MethodEnvelope> InMemoryMessenger::deliverCall(std::string_view channel, const MethodCall& call) {
    const std::optional<Bytes> reply = deliver(channel, StandardMethodCodec::encodeMethodCall(call));
    if (!reply) {
        return std::nullopt;
    }
    return StandardMethodCodec::decodeEnvelope(*reply);
}

}  // namespace vornix::engine::doubles
