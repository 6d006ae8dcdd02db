#include "platform/doubles/RedirectingProcesses.hpp"

#include <vector>

namespace vornix::platform::doubles {

RedirectingProcesses::RedirectingProcesses(Processes& target, std::map<std::string, std::string> standIns)
    : target_(target), standIns_(std::move(standIns)) {}

Invocation RedirectingProcesses::redirected(const Invocation& invocation) const {
    Invocation result = invocation;
    if (auto standIn = standIns_.find(invocation.tool); standIn != standIns_.end()) {
        result.tool = standIn->second;
    }
    return result;
}

void RedirectingProcesses::launch(const Invocation& invocation) { target_.launch(redirected(invocation)); }

std::string RedirectingProcesses::runPipeline(std::span<const Invocation> stages) {
    std::vector<Invocation> actual;
    actual.reserve(stages.size());
    for (const Invocation& stage : stages) {
        actual.push_back(redirected(stage));
    }
    return target_.runPipeline(actual);
}

}  // namespace vornix::platform::doubles
