#include "launch_agent/LaunchControl.hpp"

#include <array>
#include <charconv>
#include <optional>
#include <system_error>
#include <utility>

#include "base/FatalError.hpp"
#include "platform/Directories.hpp"
#include "platform/Files.hpp"
#include "platform/Processes.hpp"
#include "plist/PropertyList.hpp"

namespace vornix::launch_agent {

namespace {

constexpr std::string_view launchctlTool = "/bin/launchctl";
constexpr std::string_view grepTool = "/usr/bin/grep";
constexpr std::string_view cutTool = "/usr/bin/cut";

// Appends `name` to `folder` as a path component. A leading slash does not leave the folder.
std::filesystem::path appendingComponent(const std::filesystem::path& folder, const std::string& name) {
    return folder / std::filesystem::path(name).relative_path();
}

// Whether `bytes` is well-formed UTF-8: no stray continuation byte, no overlong form, no
// surrogate, nothing beyond U+10FFFF.
bool isUtf8(std::string_view bytes) {
    std::size_t index = 0;
    while (index < bytes.size()) {
        const auto lead = static_cast<unsigned char>(bytes[index]);
        std::size_t length = 0;
        unsigned char low = 0x80;
        unsigned char high = 0xBF;
        if (lead < 0x80) {
            length = 1;
        } else if (lead >= 0xC2 && lead <= 0xDF) {
            length = 2;
        } else if (lead >= 0xE0 && lead <= 0xEF) {
            length = 3;
            low = lead == 0xE0 ? 0xA0 : 0x80;
            high = lead == 0xED ? 0x9F : 0xBF;
        } else if (lead >= 0xF0 && lead <= 0xF4) {
            length = 4;
            low = lead == 0xF0 ? 0x90 : 0x80;
            high = lead == 0xF4 ? 0x8F : 0xBF;
        } else {
            return false;
        }
        if (bytes.size() - index < length) {
            return false;
        }
        for (std::size_t offset = 1; offset < length; ++offset) {
            const auto next = static_cast<unsigned char>(bytes[index + offset]);
            const unsigned char from = offset == 1 ? low : 0x80;
            const unsigned char to = offset == 1 ? high : 0xBF;
            if (next < from || next > to) {
                return false;
            }
        }
        index += length;
    }
    return true;
}

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

std::string jobFilePath(const LaunchAgent& agent) {
    if (!agent.url) {
        throw LaunchControlError::urlNotSet(agent.label);
    }
    return agent.url->string();
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

std::filesystem::path LaunchControl::launchAgentsURL() const {
    return platform::Directories::current().userLibraryFolder() / "LaunchAgents";
}

std::shared_ptr<LaunchAgent> LaunchControl::readAgent(const std::string& name) const {
    return readFrom(appendingComponent(launchAgentsURL(), name));
}

std::shared_ptr<LaunchAgent> LaunchControl::readFrom(const std::filesystem::path& url) const {
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

void LaunchControl::writeTo(LaunchAgent& agent, const std::filesystem::path& url) const { writeAgent(agent, url); }

void LaunchControl::writeAgent(LaunchAgent& agent, std::filesystem::path target) const {
    if (target.extension() != ".plist") {
        target += ".plist";
    }
    platform::writeWholeFile(target, encoder.encode(agent));
    agent.url = std::move(target);
}

void LaunchControl::setURLFor(LaunchAgent& agent) const {
    for (const std::filesystem::path& entry : platform::visibleEntries(launchAgentsURL())) {
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

void LaunchControl::runLaunchctl(std::string verb, std::string operand) const {
    try {
        platform::Processes::current().launch({std::string(launchctlTool), {std::move(verb), std::move(operand)}});
    } catch (const std::system_error&) {
        // Fire and forget: the job manager's failures go unnoticed, including failing to start at all.
    }
}

void LaunchControl::load(const LaunchAgent& agent) const { runLaunchctl("load", jobFilePath(agent)); }

void LaunchControl::unload(const LaunchAgent& agent) const { runLaunchctl("unload", jobFilePath(agent)); }

void LaunchControl::start(const LaunchAgent& agent) const { runLaunchctl("start", agent.label); }

void LaunchControl::stop(const LaunchAgent& agent) const { runLaunchctl("stop", agent.label); }

AgentStatus LaunchControl::status(const LaunchAgent& agent) const {
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
    const std::string_view text = trimmingLineEnds(isUtf8(output) ? std::string_view(output) : std::string_view());
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

}  // namespace vornix::launch_agent
