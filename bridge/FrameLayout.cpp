#include "bridge/FrameLayout.hpp"

#include <string>

#include "bridge/FrameError.hpp"

namespace vornix::bridge {

void appendLittleEndian(Bytes& bytes, std::uint32_t value, std::size_t width) {
    for (std::size_t i = 0; i < width; ++i) {
        bytes.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
    }
}

std::uint32_t readLittleEndian(const std::uint8_t* bytes, std::size_t width) {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < width; ++i) {
        value |= static_cast<std::uint32_t>(bytes[i]) << (8 * i);
    }
    return value;
}

void checkFrameLength(std::size_t length) {
    if (length < frameHeaderSize) {
        throw FrameError("frame of " + std::to_string(length) + " bytes is shorter than the " +
                         std::to_string(frameHeaderSize) + "-byte header (kind, id, channel-name length)");
    }
    if (length > maxFrameLength) {
        throw FrameError("frame of " + std::to_string(length) + " bytes exceeds the limit of " +
                         std::to_string(maxFrameLength) + " bytes");
    }
}

void checkChannelForKind(FrameKind kind, std::size_t channelLength) {
    if (kind == FrameKind::message && channelLength == 0) {
        throw FrameError("message frame has no channel name");
    }
    if (kind == FrameKind::reply && channelLength != 0) {
        throw FrameError("reply frame carries a channel name of " + std::to_string(channelLength) +
                         " bytes; replies name none");
    }
}

}  // namespace vornix::bridge
