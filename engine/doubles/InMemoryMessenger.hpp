#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/BinaryMessenger.hpp"
#include "engine/Bytes.hpp"
#include "engine/MethodCall.hpp"
#include "engine/MethodEnvelope.hpp"

namespace vornix::engine::doubles {

// An engine's messenger in memory, for tests: it records what the host sends on which
// channel, and lets a test play the engine's side by delivering messages or method calls to
// the host's handlers and reading their replies.
class InMemoryMessenger : public BinaryMessenger {
public:
    struct Message {
        std::string channel;
        Bytes bytes;
    };

    void send(std::string_view channel, std::span<const std::uint8_t> message) override;
    void setMessageHandler(std::string_view channel, BinaryMessageHandler handler) override;

    // Everything the host sent, in order.
    const std::vector<Message>& sent() const { return sent_; }
    // The calls the host sent on `channel`, decoded, in order.
    std::vector<MethodCall> sentCalls(std::string_view channel) const;
    void clearSent() { sent_.clear(); }

    bool hasHandler(std::string_view channel) const;

    // Delivers `message` from the engine on `channel`. Returns the reply when the handler gave
    // it before returning; a channel without a handler replies with zero bytes, as the engine does.
    std::optional<Bytes> deliver(std::string_view channel, std::span<const std::uint8_t> message);
    // Delivers an encoded method call and decodes the reply given before returning.
    std::optional<MethodEnvelope> deliverCall(std::string_view channel, const MethodCall& call);
    // Every reply the host gave, in order, also those given after their delivery returned.
    const std::vector<Message>& replies() const { return replies_; }

private:
    std::vector<Message> sent_;
    std::vector<Message> replies_;
    std::map<std::string, BinaryMessageHandler, std::less<>> handlers_;
};

}  // namespace vornix::engine::doubles
