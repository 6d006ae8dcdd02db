#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace vornix::app {

// What a launch of the host asks for.
struct HostOptions {
    bool help = false;
    bool version = false;
    // --engine-socket PATH: serve the development engine bridge at PATH.
    std::optional<std::string> engineSocket;
    // URLs to open (the desktop's x-scheme-handler launches give one).
    std::vector<std::string> urls;

    friend bool operator==(const HostOptions&, const HostOptions&) = default;
};

class CommandLineError : public std::runtime_error {
public:
    explicit CommandLineError(const std::string& what) : std::runtime_error(what) {}
};

// Reads the arguments after the program name. Throws CommandLineError for an unknown option or
// an option without its value.
HostOptions parseCommandLine(const std::vector<std::string>& arguments);

// The --help text.
std::string usage();

}  // namespace vornix::app
