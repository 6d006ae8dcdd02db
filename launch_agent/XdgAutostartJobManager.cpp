#include "launch_agent/XdgAutostartJobManager.hpp"

#include <signal.h>
#include <unistd.h>

#include <cstdio>
#include <system_error>
#include <utility>

#include "base/Diagnostics.hpp"
#include "launch_agent/AutostartEntry.hpp"
#include "launch_agent/DesktopEntry.hpp"
#include "platform/ChildReaper.hpp"
#include "platform/Files.hpp"
#include "platform/Paths.hpp"
#include "platform/Spawn.hpp"
#include "plist/PropertyList.hpp"

namespace vornix::launch_agent {

namespace {

std::shared_ptr<LaunchAgent> readJobFile(const std::string& jobFile) {
    return plist::decode<std::shared_ptr<LaunchAgent>>(platform::readWholeFile(jobFile));
}

// Writes beside `target` and renames over it, so that a failure leaves what was there whole.
void replaceFile(const std::string& target, std::string_view bytes) {
    const std::string written =
        platform::joinPath(platform::parentPath(target), "." + std::string(platform::fileName(target)) + "." +
                                                             std::to_string(::getpid()) + ".new");
    try {
        platform::writeWholeFile(written, bytes);
        platform::renameEntry(written, target);
    } catch (const platform::FileError&) {
        // Whether the stray file goes or not, the failure to pass on is the first one.
        std::remove(written.c_str());
        throw;
    }
}

void mentionIgnoredKeys(const std::string& label, const std::vector<std::string>& keys) {
    if (keys.empty()) {
        return;
    }
    std::string line = "The autostart entry of " + label + " starts it at login and ignores:";
    for (const std::string& key : keys) {
        line += " " + key;
    }
    base::printLine(line);
}

}  // namespace

XdgAutostartJobManager::XdgAutostartJobManager(std::function<std::string()> autostartFolder)
    : autostartFolder_(std::move(autostartFolder)) {}

std::string XdgAutostartJobManager::entryPath(const std::string& label) const {
    return platform::joinPath(autostartFolder_(), autostartFileName(label));
}

void XdgAutostartJobManager::load(const std::string& jobFile) {
    const std::shared_ptr<LaunchAgent> agent = readJobFile(jobFile);
    const std::string entry = entryPath(agent->label);
    if (!agent->runAtLoad.value_or(false) || agent->disabled.value_or(false)) {
        platform::removeEntry(entry);
        return;
    }
    const AutostartEntry written = autostartEntryFor(*agent);
    platform::makeFolders(std::string(platform::parentPath(entry)));
    replaceFile(entry, written.text);
    mentionIgnoredKeys(agent->label, written.ignoredKeys);
}

void XdgAutostartJobManager::unload(const std::string& jobFile) {
    platform::removeEntry(entryPath(readJobFile(jobFile)->label));
}

std::optional<pid_t> XdgAutostartJobManager::runningChild(const std::string& label) {
    std::lock_guard lock(mutex_);
    const auto child = started_.find(label);
    if (child == started_.end()) {
        return std::nullopt;
    }
    if (!platform::ChildReaper::shared().isRunning(child->second)) {
        started_.erase(child);
        return std::nullopt;
    }
    return child->second;
}

void XdgAutostartJobManager::start(const LaunchAgent& agent) {
    if (runningChild(agent.label)) {
        return;
    }
    try {
        std::vector<std::string> words = jobProgramWords(agent);
        platform::Invocation invocation{words.front(), {words.begin() + 1, words.end()}};
        platform::ChildSettings settings{agent.workingDirectory, agent.environmentVariables.value_or(
                                                                     std::map<std::string, std::string>{})};
        const pid_t child = platform::spawnChild(invocation, {}, settings);
        platform::ChildReaper::shared().adopt(child);
        std::lock_guard lock(mutex_);
        started_[agent.label] = child;
    } catch (const std::exception&) {
        // As with launchd, a job that cannot be started is not the caller's failure.
    }
}

void XdgAutostartJobManager::stop(const LaunchAgent& agent) {
    if (const std::optional<pid_t> child = runningChild(agent.label)) {
        ::kill(*child, SIGTERM);
    }
}

AgentStatus XdgAutostartJobManager::status(const LaunchAgent& agent) {
    if (const std::optional<pid_t> child = runningChild(agent.label)) {
        return AgentStatus::running(*child);
    }
    try {
        if (platform::entryExists(entryPath(agent.label))) {
            return AgentStatus::loaded();
        }
    } catch (const std::exception&) {
        // No autostart folder to look in or none that can be looked at, or no entry name for
        // this label: nothing is loaded.
    }
    return AgentStatus::unloaded();
}

bool XdgAutostartJobManager::startsAtLogin(const LaunchAgent& agent) {
    if (!agent.runAtLoad.value_or(false) || agent.disabled.value_or(false)) {
        return false;
    }
    try {
        const auto keys = desktopEntryKeys(platform::readWholeFile(entryPath(agent.label)));
        const auto hidden = keys.find("Hidden");
        const auto enabled = keys.find("X-GNOME-Autostart-enabled");
        return (hidden == keys.end() || hidden->second != "true") &&
               (enabled == keys.end() || enabled->second != "false");
    } catch (const std::exception&) {
        // No entry, or none that can be read: nothing starts the job at login.
        return false;
    }
}

}  // namespace vornix::launch_agent
