#include "bridge/FrameReader.hpp"

#include <string>

#include "bridge/FrameError.hpp"
#include "bridge/FrameLayout.hpp"

namespace vornix::bridge {

void FrameReader::feed(std::span<const std::uint8_t> bytes) {
    if (consumed_ > 0) {
        buffer_.erase(buffer_.begin(), buffer_.begin() + static_cast<std::ptrdiff_t>(consumed_));
        consumed_ = 0;
    }
    buffer_.insert(buffer_.end(), bytes.begin(), bytes.end());
}

std::optional<Frame> FrameReader::next() {
    if (failed_) {
        throw FrameError("the stream already held a malformed frame");
    }
    const std::uint8_t* start = buffer_.data() + consumed_;
    const std::size_t available = buffer_.size() - consumed_;
    if (available < lengthPrefixSize) {
        return std::nullopt;
    }
    const std::size_t length = readLittleEndian(start, 4);
    try {
        checkFrameLength(length);
        if (available < lengthPrefixSize + frameHeaderSize) {
            return std::nullopt;
        }
        const std::uint8_t* header = start + lengthPrefixSize;
        const std::uint8_t kind = header[0];
        if (kind != static_cast<std::uint8_t>(FrameKind::message) && kind != static_cast<std::uint8_t>(FrameKind::reply)) {
            throw FrameError("frame kind " + std::to_string(kind) + " is neither a message (1) nor a reply (2)");
        }
        const std::size_t channelLength = readLittleEndian(header + 5, 2);
        if (channelLength > length - frameHeaderSize) {
            throw FrameError("channel name of " + std::to_string(channelLength) + " bytes runs past the end of the " +
                             std::to_string(length) + "-byte frame");
        }
        checkChannelForKind(static_cast<FrameKind>(kind), channelLength);
        if (available < lengthPrefixSize + length) {
            return std::nullopt;
        }

        Frame frame;
        frame.kind = static_cast<FrameKind>(kind);
        frame.id = readLittleEndian(header + 1, 4);
        const std::uint8_t* channel = header + frameHeaderSize;
        frame.channel.assign(channel, channel + channelLength);
        frame.payload.assign(channel + channelLength, header + length);
        consumed_ += lengthPrefixSize + length;
        return frame;
    } catch (const FrameError&) {
        failed_ = true;
        throw;
    }
}

}  // namespace vornix::bridge
