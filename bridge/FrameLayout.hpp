#pragma once

#include <cstddef>
#include <cstdint>

#include "bridge/Frame.hpp"

namespace vornix::bridge {

// The checks and byte orders shared by the frame writer and the frame reader, so that both
// sides of the bridge hold the same rules.

void appendLittleEndian(Bytes& bytes, std::uint32_t value, std::size_t width);
std::uint32_t readLittleEndian(const std::uint8_t* bytes, std::size_t width);

// Throws FrameError unless `length` (the frame body, without the prefix) fits the format.
void checkFrameLength(std::size_t length);
// Throws FrameError when a message has no channel name or a reply has one.
void checkChannelForKind(FrameKind kind, std::size_t channelLength);

}  // namespace vornix::bridge
