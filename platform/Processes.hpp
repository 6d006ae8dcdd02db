#pragma once

#include <span>
#include <string>
#include <string_view>

#include "platform/Invocation.hpp"
#include "platform/Port.hpp"

namespace vornix::platform {

// Child processes of the host: tools started by absolute path with an argument vector, never
// through a shell. Every child the port starts is reaped by the port without blocking the caller.
//
// A tool that cannot be started at all (missing, not executable) is reported as a
// std::system_error carrying the system's error code; what the tool does once started is not
// the port's concern.
class Processes : public Port<Processes> {
public:
    static constexpr std::string_view portName = "processes";

    virtual ~Processes() = default;

    // Starts the tool and returns at once: its output, exit status and lifetime are not observed.
    virtual void launch(const Invocation& invocation) = 0;

    // Starts the tools in order, each one's standard output joined by a pipe to the next one's
    // standard input, and returns everything the last one writes to its standard output, read
    // to its end. Exit statuses are not looked at. The first tool inherits the host's standard
    // input and every tool its standard error. An empty list is an std::invalid_argument.
    virtual std::string runPipeline(std::span<const Invocation> stages) = 0;
};

}  // namespace vornix::platform
