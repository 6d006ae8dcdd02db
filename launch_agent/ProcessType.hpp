#pragma once

#include <optional>
#include <string_view>

namespace vornix::launch_agent {

// The "ProcessType" of a job, written as its text value. Compared and hashed by value.
enum class ProcessType {
    standard,
    background,
    adaptive,
    interactive,
};

// The process type whose text is exactly `rawValue` ("Standard", "Background", "Adaptive",
// "Interactive", case-sensitive); nothing for any other text.
std::optional<ProcessType> processTypeFromRawValue(std::string_view rawValue);
std::string_view rawValue(ProcessType type);

}  // namespace vornix::launch_agent
