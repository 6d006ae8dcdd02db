#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string_view>

namespace vornix::engine {

// What the engine gives the host to talk over named channels: bytes only. A backend moves the
// bytes; encoding and decoding happen above it, in the codecs.
class BinaryMessenger {
public:
    // Sends the reply to one incoming message; zero bytes mean "not implemented".
    using BinaryReply = std::function<void(std::span<const std::uint8_t> reply)>;
    // Gets each message that arrives on a channel, with the means to reply to it exactly once.
    using BinaryMessageHandler = std::function<void(std::span<const std::uint8_t> message, BinaryReply reply)>;

    virtual ~BinaryMessenger() = default;

    // Sends `message` to the engine on `channel`; no answer is awaited.
    virtual void send(std::string_view channel, std::span<const std::uint8_t> message) = 0;
    // Makes `handler` the receiver of the engine's messages on `channel`; an empty handler
    // removes the one there was. Messages on a channel without a handler get an empty reply.
    virtual void setMessageHandler(std::string_view channel, BinaryMessageHandler handler) = 0;
};

}  // namespace vornix::engine
