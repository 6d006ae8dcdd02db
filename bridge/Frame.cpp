#include "bridge/Frame.hpp"

#include <limits>

#include "bridge/FrameError.hpp"
#include "bridge/FrameLayout.hpp"

namespace vornix::bridge {

Bytes encodeFrame(const Frame& frame) {
    checkChannelForKind(frame.kind, frame.channel.size());
    if (frame.channel.size() > std::numeric_limits<std::uint16_t>::max()) {
        throw FrameError("channel name of " + std::to_string(frame.channel.size()) +
                         " bytes is longer than the 65535 bytes a frame can name");
    }
    const std::size_t length = frameHeaderSize + frame.channel.size() + frame.payload.size();
    checkFrameLength(length);

    Bytes bytes;
    bytes.reserve(lengthPrefixSize + length);
    appendLittleEndian(bytes, static_cast<std::uint32_t>(length), 4);
    bytes.push_back(static_cast<std::uint8_t>(frame.kind));
    appendLittleEndian(bytes, frame.id, 4);
    appendLittleEndian(bytes, static_cast<std::uint32_t>(frame.channel.size()), 2);
    bytes.insert(bytes.end(), frame.channel.begin(), frame.channel.end());
    bytes.insert(bytes.end(), frame.payload.begin(), frame.payload.end());
    return bytes;
}

}  // namespace vornix::bridge
