#include "launch_agent/LaunchctlJobManager.hpp"

#include <array>
#include <charconv>
#include <cstdint>
#include <optional>
#include <system_error>
#include <utility>

#include "base/FatalError.hpp"
#include "base/Utf8.hpp"
#include "platform/Processes.hpp"

namespace vornix::launch_agent {

namespace {

constexpr std::string_view launchctlTool = "/bin/launchctl";
constexpr std::string_view grepTool = "/usr/bin/grep";
constexpr std::string_view cutTool = "/usr/bin/cut";

// The line-end characters: LF, VT, FF, CR, NEL, LINE SEPARATOR and PARAGRAPH SEPARATOR, in UTF-8.
constexpr std::array<std::string_view, 7> lineEnds = {"\n", "\v", "\f", "\r", "\xC2\x85", "\xE2\x80\xA8", "\xE2\x80\xA9"};

// `text` without line-end characters at either end; blanks and tabs stay.
std::string_view trimmingLineEnds(std::string_view text) {
    for (bool trimmed = true; trimmed;) {
        trimmed = false;
        for (std::string_view end : lineEnds) {
            if (text.starts_with(end)) {
                text.remove_prefix(end.size());
                trimmed = true;
            }
            if (text.ends_with(end)) {
                text.remove_suffix(end.size());
                trimmed = true;
            }
        }
    }
    return text;
}

// A whole text read as a signed 64-bit decimal: an optional "+" or "-", then digits only.
std::optional<std::int64_t> decimalInteger(std::string_view text) {
    if (text.starts_with('+')) {
        text.remove_prefix(1);
        if (text.starts_with('-')) {
            return std::nullopt;
        }
    }
    std::int64_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size() || text.empty()) {
        return std::nullopt;
    }
    return value;
}

// `text` on one line, its line ends and tabs shown as escapes.
std::string oneLine(std::string_view text) {
    std::string line;
    for (char character : text) {
        switch (character) {
            case '\n':
                line += "\\n";
                break;
            case '\r':
                line += "\\r";
                break;
            case '\t':
                line += "\\t";
                break;
            default:
                line += character;
        }
    }
    return line;
}

}  // namespace

void LaunchctlJobManager::runLaunchctl(std::string verb, std::string operand) {
    try {
        platform::Processes::current().launch({std::string(launchctlTool), {std::move(verb), std::move(operand)}});
    } catch (const std::system_error&) {
        // Fire and forget: the job manager's failures go unnoticed, including failing to start at all.
    }
}

void LaunchctlJobManager::load(const std::string& jobFile) { runLaunchctl("load", jobFile); }

void LaunchctlJobManager::unload(const std::string& jobFile) { runLaunchctl("unload", jobFile); }

void LaunchctlJobManager::start(const LaunchAgent& agent) { runLaunchctl("start", agent.label); }

void LaunchctlJobManager::stop(const LaunchAgent& agent) { runLaunchctl("stop", agent.label); }

AgentStatus LaunchctlJobManager::status(const LaunchAgent& agent) {
    const std::array<platform::Invocation, 3> pipeline{
        platform::Invocation{std::string(launchctlTool), {"list"}},
        platform::Invocation{std::string(grepTool), {agent.label}},
        platform::Invocation{std::string(cutTool), {"-f1"}},
    };
    std::string output;
    try {
        output = platform::Processes::current().runPipeline(pipeline);
    } catch (const std::system_error&) {
        // A pipeline that cannot start prints nothing, which reads as a job the manager does not know.
    }
    const std::string_view text = trimmingLineEnds(base::isUtf8(output) ? std::string_view(output) : std::string_view());
    if (text == "-") {
        return AgentStatus::loaded();
    }
    if (text.empty()) {
        return AgentStatus::unloaded();
    }
    if (const std::optional<std::int64_t> pid = decimalInteger(text)) {
        return AgentStatus::running(*pid);
    }
    base::fatalError("the job manager's list gave no process id for " + agent.label + ": \"" + oneLine(text) + "\"");
}

bool LaunchctlJobManager::startsAtLogin(const LaunchAgent& agent) { return agent.runAtLoad.value_or(false); }

}  // namespace vornix::launch_agent
