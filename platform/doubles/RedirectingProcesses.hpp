#pragma once

#include <map>
#include <string>

#include "platform/Processes.hpp"

namespace vornix::platform::doubles {

// Puts stand-ins in place of chosen tools and passes everything on to a real port, so that a
// test runs the real pipeline with, say, a script in a temporary folder answering for the
// system's job manager. The stand-in sees the same arguments; other tools run as asked.
class RedirectingProcesses : public Processes {
public:
    // `standIns` maps a tool's path to the path of the program that runs in its place.
    RedirectingProcesses(Processes& target, std::map<std::string, std::string> standIns);

    void launch(const Invocation& invocation) override;
    std::string runPipeline(std::span<const Invocation> stages) override;

private:
    Invocation redirected(const Invocation& invocation) const;

    Processes& target_;
    std::map<std::string, std::string> standIns_;
};

}  // namespace vornix::platform::doubles
