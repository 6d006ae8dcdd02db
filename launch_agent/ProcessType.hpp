#pragma once

#include <string_view>
#include <utility>

#include "launch_agent/RawValue.hpp"

namespace vornix::launch_agent {

// The "ProcessType" of a job, written as its text value, matched exactly and case-sensitively.
// Compared and hashed by value.
enum class ProcessType {
    standard,
    background,
    adaptive,
    interactive,
};

}  // namespace vornix::launch_agent

template <>
struct vornix::plist::RawValues<vornix::launch_agent::ProcessType> {
    using ProcessType = vornix::launch_agent::ProcessType;
    static constexpr std::pair<ProcessType, std::string_view> table[] = {
        {ProcessType::standard, "Standard"},
        {ProcessType::background, "Background"},
        {ProcessType::adaptive, "Adaptive"},
        {ProcessType::interactive, "Interactive"},
    };
};
