#pragma once

#include <mutex>
#include <set>
#include <string>
#include <vector>

#include "platform/Processes.hpp"

namespace vornix::platform::doubles {

// A processes port that starts nothing: it records every invocation it is given and answers
// every pipeline with output a test scripted. Tools a test declares missing fail to start the
// way the real port reports it (std::system_error, "No such file or directory").
class RecordingProcesses : public Processes {
public:
    void launch(const Invocation& invocation) override;
    std::string runPipeline(std::span<const Invocation> stages) override;

    // What every later pipeline prints; empty until set.
    void answerPipelinesWith(std::string output);
    void treatAsMissing(std::string tool);

    std::vector<Invocation> launches() const;
    std::vector<std::vector<Invocation>> pipelines() const;

private:
    void refuseMissing(const Invocation& invocation) const;

    mutable std::mutex mutex_;
    std::string answer_;
    std::set<std::string> missing_;
    std::vector<Invocation> launches_;
    std::vector<std::vector<Invocation>> pipelines_;
};

}  // namespace vornix::platform::doubles
