#include <iostream>
#include <string>
#include <vector>

#include "app/CommandLine.hpp"
#include "app/LinuxHost.hpp"
#include "base/Version.hpp"

// The process entry only reads the options meant for this process and hands control to the
// platform's application.
int main(int argc, char** argv) {
    vornix::app::HostOptions options;
    try {
        options = vornix::app::parseCommandLine(std::vector<std::string>(argv + 1, argv + argc));
    } catch (const vornix::app::CommandLineError& error) {
        std::cerr << "vornix-host: " << error.what() << "\n" << vornix::app::usage();
        return 2;
    }
    if (options.help) {
        std::cout << vornix::app::usage();
        return 0;
    }
    if (options.version) {
        std::cout << "vornix-host " << vornix::base::hostVersion() << "\n";
        return 0;
    }
    vornix::app::LinuxHost host;
    return host.run(argc, argv);
}
