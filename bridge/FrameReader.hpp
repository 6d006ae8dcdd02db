#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "bridge/Frame.hpp"

namespace vornix::bridge {

// Cuts a stream of untrusted bytes into frames. Bytes may arrive in any pieces; `next()` gives
// each complete frame once. A malformed frame throws FrameError, as soon as its header shows it
// (an oversized length is refused before its body is waited for), and the reader stays failed:
// the stream has lost its framing and the connection should be closed.
class FrameReader {
public:
    void feed(std::span<const std::uint8_t> bytes);
    std::optional<Frame> next();

    // Bytes received and not yet taken as frames.
    std::size_t buffered() const { return buffer_.size() - consumed_; }

private:
    Bytes buffer_;
    std::size_t consumed_ = 0;
    bool failed_ = false;
};

}  // namespace vornix::bridge
