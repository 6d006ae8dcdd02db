#include "platform/doubles/RecordingProcesses.hpp"

#include <stdexcept>
#include <system_error>

namespace vornix::platform::doubles {

void RecordingProcesses::refuseMissing(const Invocation& invocation) const {
    if (missing_.contains(invocation.tool)) {
        throw std::system_error(std::make_error_code(std::errc::no_such_file_or_directory),
                                "cannot start " + invocation.tool);
    }
}

void RecordingProcesses::launch(const Invocation& invocation) {
    std::lock_guard lock(mutex_);
    refuseMissing(invocation);
    launches_.push_back(invocation);
}

std::string RecordingProcesses::runPipeline(std::span<const Invocation> stages) {
    std::lock_guard lock(mutex_);
    if (stages.empty()) {
        throw std::invalid_argument("a pipeline needs at least one tool");
    }
    for (const Invocation& stage : stages) {
        refuseMissing(stage);
    }
    pipelines_.emplace_back(stages.begin(), stages.end());
    return answer_;
}

void RecordingProcesses::answerPipelinesWith(std::string output) {
    std::lock_guard lock(mutex_);
    answer_ = std::move(output);
}

void RecordingProcesses::treatAsMissing(std::string tool) {
    std::lock_guard lock(mutex_);
    missing_.insert(std::move(tool));
}

std::vector<Invocation> RecordingProcesses::launches() const {
    std::lock_guard lock(mutex_);
    return launches_;
}

std::vector<std::vector<Invocation>> RecordingProcesses::pipelines() const {
    std::lock_guard lock(mutex_);
    return pipelines_;
}

}  // namespace vornix::platform::doubles
