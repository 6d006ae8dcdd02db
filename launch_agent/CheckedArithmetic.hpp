#pragma once

#include <cstdint>

namespace vornix::launch_agent {

// Signed 64-bit arithmetic that treats overflow as a caller's defect: the result, or a fatal
// error naming the operation ("arithmetic overflow: 9223372036854775807 + 1").
std::int64_t checkedAdd(std::int64_t left, std::int64_t right);
std::int64_t checkedSubtract(std::int64_t left, std::int64_t right);
std::int64_t checkedMultiply(std::int64_t left, std::int64_t right);

}  // namespace vornix::launch_agent
