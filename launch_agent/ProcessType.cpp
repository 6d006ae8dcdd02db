#include "launch_agent/ProcessType.hpp"

#include <algorithm>
#include <array>
#include <utility>

namespace vornix::launch_agent {
namespace {

constexpr std::array<std::pair<ProcessType, std::string_view>, 4> processTypeTexts{{
    {ProcessType::standard, "Standard"},
    {ProcessType::background, "Background"},
    {ProcessType::adaptive, "Adaptive"},
    {ProcessType::interactive, "Interactive"},
}};

}  // namespace

std::optional<ProcessType> processTypeFromRawValue(std::string_view text) {
    const auto found = std::ranges::find(processTypeTexts, text, &std::pair<ProcessType, std::string_view>::second);
    if (found == processTypeTexts.end()) {
        return std::nullopt;
    }
    return found->first;
}

std::string_view rawValue(ProcessType type) {
    return std::ranges::find(processTypeTexts, type, &std::pair<ProcessType, std::string_view>::first)->second;
}

}  // namespace vornix::launch_agent
