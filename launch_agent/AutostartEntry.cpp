#include "launch_agent/AutostartEntry.hpp"

#include <algorithm>
#include <array>

#include "launch_agent/DesktopEntry.hpp"
#include "plist/KeyedCoding.hpp"

namespace vornix::launch_agent {

namespace {

using Key = LaunchAgent::CodingKeys;

// What an entry carries; every other key a job may have is listed as ignored.
constexpr std::array expressedKeys = {Key::label,     Key::disabled,         Key::program,
                                      Key::programArguments, Key::workingDirectory, Key::environmentVariables,
                                      Key::runAtLoad};

bool isVariableName(const std::string& name) {
    if (name.empty() || (name.front() >= '0' && name.front() <= '9')) {
        return false;
    }
    return std::all_of(name.begin(), name.end(), [](char character) {
        return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
               (character >= '0' && character <= '9') || character == '_';
    });
}

std::vector<std::string> ignoredKeysOf(const LaunchAgent& agent) {
    const plist::Value encoded = plist::encodeValue(agent);
    const plist::Dictionary& present = *encoded.get<plist::Dictionary>();
    std::vector<std::string> ignored;
    for (const auto& [key, text] : plist::RawValues<Key>::table) {
        const bool expressed = std::find(expressedKeys.begin(), expressedKeys.end(), key) != expressedKeys.end();
        if (present.contains(text) && !expressed) {
            ignored.emplace_back(text);
        }
        // launchd runs Program with ProgramArguments as its whole argument vector; an entry
        // cannot name argv[0], so the first argument word is dropped, and said so.
        if (key == Key::programArguments && agent.program && agent.programArguments &&
            !agent.programArguments->empty()) {
            ignored.emplace_back("argv[0]");
        }
    }
    return ignored;
}

}  // namespace

std::vector<std::string> jobProgramWords(const LaunchAgent& agent) {
    std::vector<std::string> words;
    if (agent.program) {
        words.push_back(*agent.program);
    }
    if (agent.programArguments && !agent.programArguments->empty()) {
        const auto& arguments = *agent.programArguments;
        words.insert(words.end(), agent.program ? arguments.begin() + 1 : arguments.begin(), arguments.end());
    }
    if (words.empty()) {
        throw DesktopEntryError("the job " + agent.label + " has no program");
    }
    return words;
}

std::vector<std::string> autostartCommandWords(const LaunchAgent& agent) {
    std::vector<std::string> program = jobProgramWords(agent);
    const bool hasEnvironment = agent.environmentVariables && !agent.environmentVariables->empty();
    // Launchers look for the program before they turn "%%" back into '%', so a program whose
    // path holds '%' is found through env instead.
    if (!hasEnvironment && program.front().find('%') == std::string::npos) {
        return program;
    }
    std::vector<std::string> words{"/usr/bin/env"};
    if (hasEnvironment) {
        for (const auto& [name, value] : *agent.environmentVariables) {
            if (!isVariableName(name)) {
                throw DesktopEntryError("the environment variable name \"" + name + "\" cannot be passed on");
            }
            words.push_back(name + "=" + value);
        }
    }
    if (program.front().find('=') != std::string::npos) {
        throw DesktopEntryError("a program whose path holds '=' cannot be started through env");
    }
    words.insert(words.end(), program.begin(), program.end());
    return words;
}

AutostartEntry autostartEntryFor(const LaunchAgent& agent) {
    try {
        std::string text = "[Desktop Entry]\nType=Application\n";
        text += "Name=" + escapedValue(agent.label) + "\n";
        text += "Exec=" + execValue(autostartCommandWords(agent)) + "\n";
        if (agent.workingDirectory) {
            text += "Path=" + escapedValue(*agent.workingDirectory) + "\n";
        }
        text += "NoDisplay=true\nX-GNOME-Autostart-enabled=true\n";
        return {std::move(text), ignoredKeysOf(agent)};
    } catch (const DesktopEntryError& error) {
        throw DesktopEntryError("cannot write an autostart entry for " + agent.label + ": " + error.what());
    }
}

std::string autostartFileName(const std::string& label) {
    const bool holdsSlashOrNul = label.find_first_of(std::string_view("/\0", 2)) != std::string::npos;
    if (label.empty() || label == "." || label == ".." || holdsSlashOrNul) {
        throw DesktopEntryError("the label \"" + label + "\" cannot name an autostart entry");
    }
    return label + ".desktop";
}

}  // namespace vornix::launch_agent
