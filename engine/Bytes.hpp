#pragma once

#include <cstdint>
#include <vector>

namespace vornix::engine {

// Raw bytes as they cross the engine boundary: encoded messages, calls and replies.
using Bytes = std::vector<std::uint8_t>;

}  // namespace vornix::engine
