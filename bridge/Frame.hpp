#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace vornix::bridge {

using Bytes = std::vector<std::uint8_t>;

// The two kinds of frame on the development engine bridge (docs/ENGINE_BRIDGE.md).
enum class FrameKind : std::uint8_t {
    message = 1,
    reply = 2,
};

// One frame: a message on a named channel, or the reply to the message with the same id.
// Replies carry no channel name.
struct Frame {
    FrameKind kind = FrameKind::message;
    std::uint32_t id = 0;
    std::string channel;
    Bytes payload;

    bool operator==(const Frame&) const = default;
};

// Fixed parts of the wire format: the length prefix, then kind, id and channel-name length.
inline constexpr std::size_t lengthPrefixSize = 4;
inline constexpr std::size_t frameHeaderSize = 1 + 4 + 2;
// The largest frame body either side accepts; a peer announcing more is cut off at once, before
// anything of that size is buffered.
inline constexpr std::size_t maxFrameLength = 16u * 1024u * 1024u;

// The bytes of `frame` on the wire, length prefix included. Throws FrameError when the frame
// cannot be sent as it is (a channel name too long, a reply with a channel, a body too large).
Bytes encodeFrame(const Frame& frame);

}  // namespace vornix::bridge
