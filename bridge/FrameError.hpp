#pragma once

#include <stdexcept>
#include <string>

namespace vornix::bridge {

// Bytes on the engine bridge that do not form a valid frame. The message says what is wrong in
// terms of the wire format, so that whoever writes an engine stand-in can fix their side.
class FrameError : public std::runtime_error {
public:
    explicit FrameError(const std::string& what) : std::runtime_error(what) {}
};

}  // namespace vornix::bridge
