#include "launch_agent/LaunchControl.hpp"

#include <system_error>
#include <utility>

#include "launch_agent/LaunchctlJobManager.hpp"
#include "platform/Directories.hpp"
#include "platform/Files.hpp"
#include "platform/Paths.hpp"
#include "plist/PropertyList.hpp"

namespace vornix::launch_agent {

namespace {

// Appends `name` to `folder` as a path component. A leading slash does not leave the folder.
std::string appendingComponent(const std::string& folder, const std::string& name) {
    return platform::joinPath(folder, platform::relativePath(name));
}

const std::string& jobFilePath(const LaunchAgent& agent) {
    if (!agent.url) {
        throw LaunchControlError::urlNotSet(agent.label);
    }
    return *agent.url;
}

}  // namespace

LaunchControlError LaunchControlError::urlNotSet(std::string label) {
    const std::string description = "The URL is not set for agent " + label;
    return LaunchControlError(Kind::urlNotSet, std::move(label), description);
}

LaunchControlError::LaunchControlError(Kind kind, std::string label, const std::string& description)
    : std::runtime_error(description), kind_(kind), label_(std::move(label)) {}

std::string LaunchControl::Encoder::encode(const LaunchAgent& agent) const { return plist::encode(agent); }

std::shared_ptr<LaunchAgent> LaunchControl::Decoder::decode(std::string_view bytes) const {
    return plist::decode<std::shared_ptr<LaunchAgent>>(bytes);
}

LaunchControl& LaunchControl::shared() {
    static LaunchControl* const instance = new LaunchControl;
    return *instance;
}

std::string LaunchControl::launchAgentsURL() const {
    return platform::joinPath(platform::Directories::current().userLibraryFolder(), "LaunchAgents");
}

std::shared_ptr<LaunchAgent> LaunchControl::readAgent(const std::string& name) const {
    return readFrom(appendingComponent(launchAgentsURL(), name));
}

std::shared_ptr<LaunchAgent> LaunchControl::readFrom(const std::string& url) const {
    std::shared_ptr<LaunchAgent> agent = decoder.decode(platform::readWholeFile(url));
    agent->url = url;
    return agent;
}

void LaunchControl::write(LaunchAgent& agent) const {
    writeAgent(agent, appendingComponent(launchAgentsURL(), agent.label + ".plist"));
}

void LaunchControl::writeCalled(LaunchAgent& agent, const std::string& name) const {
    writeAgent(agent, appendingComponent(launchAgentsURL(), name));
}

void LaunchControl::writeTo(LaunchAgent& agent, const std::string& url) const { writeAgent(agent, url); }

void LaunchControl::writeAgent(LaunchAgent& agent, std::string target) const {
    if (platform::extension(target) != ".plist") {
        target += ".plist";
    }
    platform::writeWholeFile(target, encoder.encode(agent));
    agent.url = std::move(target);
}

void LaunchControl::setURLFor(LaunchAgent& agent) const {
    for (const std::string& entry : platform::visibleEntries(launchAgentsURL())) {
        try {
            if (decoder.decode(platform::readWholeFile(entry))->label == agent.label) {
                agent.url = entry;
            }
        } catch (const std::system_error&) {
            // Unreadable entries (folders, broken links, files without permission) are not ours.
        } catch (const plist::DecodingError&) {
            // Nor are files that hold no job description.
        }
    }
}

JobManager& LaunchControl::jobManager() {
    static LaunchctlJobManager* const launchd = new LaunchctlJobManager;
    JobManager* installed = JobManager::installed();
    return installed != nullptr ? *installed : *launchd;
}

void LaunchControl::load(const LaunchAgent& agent) const { jobManager().load(jobFilePath(agent)); }

void LaunchControl::unload(const LaunchAgent& agent) const { jobManager().unload(jobFilePath(agent)); }

void LaunchControl::start(const LaunchAgent& agent) const { jobManager().start(agent); }

void LaunchControl::stop(const LaunchAgent& agent) const { jobManager().stop(agent); }

AgentStatus LaunchControl::status(const LaunchAgent& agent) const { return jobManager().status(agent); }

bool LaunchControl::startsAtLogin(const LaunchAgent& agent) const { return jobManager().startsAtLogin(agent); }

}  // namespace vornix::launch_agent
