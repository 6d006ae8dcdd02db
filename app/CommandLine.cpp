#include "app/CommandLine.hpp"

namespace vornix::app {

namespace {

constexpr std::string_view engineSocketOption = "--engine-socket";

}  // namespace

HostOptions parseCommandLine(const std::vector<std::string>& arguments) {
    HostOptions options;
    bool optionsEnded = false;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        if (optionsEnded || argument.empty() || argument[0] != '-' || argument == "-") {
            options.urls.push_back(argument);
        } else if (argument == "--") {
            optionsEnded = true;
        } else if (argument == "--help" || argument == "-h") {
            options.help = true;
        } else if (argument == "--version") {
            options.version = true;
        } else if (argument == engineSocketOption) {
            if (i + 1 == arguments.size()) {
                throw CommandLineError("--engine-socket needs the path of the socket to serve");
            }
            options.engineSocket = arguments[++i];
        } else if (argument.starts_with(std::string(engineSocketOption) + "=")) {
            options.engineSocket = argument.substr(engineSocketOption.size() + 1);
        } else {
            throw CommandLineError("unknown option " + argument);
        }
        if (options.engineSocket && options.engineSocket->empty()) {
            throw CommandLineError("--engine-socket needs the path of the socket to serve");
        }
    }
    return options;
}

std::string usage() {
    return "Usage: vornix-host [--engine-socket PATH] [URL...]\n"
           "\n"
           "The Vornix OS desktop host: a background service with an icon in the system tray.\n"
           "Launched again while it runs, it opens its popover; given a URL of its scheme, it\n"
           "hands the URL to the running host.\n"
           "\n"
           "Options:\n"
           "  --engine-socket PATH  let the process that connects to the Unix-domain socket PATH\n"
           "                        play the engine (see docs/ENGINE_BRIDGE.md); without it the\n"
           "                        host runs with no engine\n"
           "  --version             print the version and exit\n"
           "  -h, --help            print this help and exit\n";
}

}  // namespace vornix::app
