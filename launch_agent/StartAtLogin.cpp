#include "launch_agent/StartAtLogin.hpp"

#include <exception>
#include <string>
#include <system_error>
#include <vector>

#include "base/Diagnostics.hpp"
#include "launch_agent/LaunchControl.hpp"
#include "platform/Files.hpp"
#include "platform/Paths.hpp"
#include "plist/DecodingError.hpp"

namespace vornix::launch_agent {

namespace {

constexpr std::string_view jobFileName = "com.vornix.os.launch.plist";

// The job file of an earlier run, decoded with the controller's decoder, its `url` set.
std::shared_ptr<LaunchAgent> readJobFile(const LaunchControl& control) {
    const std::string url = platform::joinPath(control.launchAgentsURL(), jobFileName);
    std::shared_ptr<LaunchAgent> agent = control.decoder.decode(platform::readWholeFile(url));
    agent->url = url;
    return agent;
}

// What the job runs unless the platform replaces it: macOS's "open", waiting on the application bundle.
const std::vector<std::string>& builtInProgram() {
    static const std::vector<std::string> words{"/usr/bin/open", "-W", "/Applications/Vornix OS.app"};
    return words;
}

}  // namespace

StartAtLogin& StartAtLogin::shared() {
    static StartAtLogin* const instance = new StartAtLogin;
    return *instance;
}

StartAtLogin::StartAtLogin()
    : launchAgent(std::make_shared<LaunchAgent>(std::string(jobLabel), builtInProgram())) {}

void StartAtLogin::replaceBuiltInProgram(const std::string& program) {
    launchAgent = std::make_shared<LaunchAgent>(std::string(jobLabel), program);
    const LaunchControl& control = LaunchControl::shared();
    try {
        const std::shared_ptr<LaunchAgent> agent = readJobFile(control);
        if (agent->program || agent->programArguments != builtInProgram()) {
            return;
        }
        agent->programArguments.reset();
        agent->program = program;
        control.write(*agent);
    } catch (const std::exception&) {
        // No job file, or one that cannot be read or written: nothing to carry over.
    }
}

void StartAtLogin::loadLaunchAgent() {
    const LaunchControl& control = LaunchControl::shared();
    try {
        launchAgent = readJobFile(control);
    } catch (const std::system_error&) {
        // No folder or no readable file yet: the current job stays.
    } catch (const plist::DecodingError&) {
        // A file that holds no job is replaced by the current one below.
    }
    launchAgent->runAtLoad = true;
    try {
        control.write(*launchAgent);
        control.load(*launchAgent);
    } catch (const std::exception& error) {
        base::printLine(std::string("Unable to load LaunchAgent: ") + error.what());
    }
}

void StartAtLogin::unloadLaunchAgent() {
    const LaunchControl& control = LaunchControl::shared();
    try {
        const std::shared_ptr<LaunchAgent> agent = readJobFile(control);
        control.unload(*agent);
        agent->runAtLoad = false;
        control.write(*agent);
    } catch (const std::exception& error) {
        base::printLine(std::string("Unable to unload LaunchAgent: ") + error.what());
    }
}

}  // namespace vornix::launch_agent
