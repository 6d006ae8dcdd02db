#include "launch_agent/StartMonth.hpp"

namespace vornix::launch_agent {

std::optional<StartMonth> startMonthFromRawValue(std::int64_t value) {
    if (value < rawValue(StartMonth::january) || value > rawValue(StartMonth::december)) {
        return std::nullopt;
    }
    return static_cast<StartMonth>(value);
}

std::int64_t rawValue(StartMonth month) { return static_cast<std::int64_t>(month); }

}  // namespace vornix::launch_agent
