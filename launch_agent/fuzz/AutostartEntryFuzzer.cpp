// Any bytes, read as a job file and turned into an autostart entry: either the job or the entry
// is refused with its own error, or the entry is well formed (UTF-8, one "[Desktop Entry]"
// group of Key=value lines without control characters, the keys the writer promises), its file
// is named after the label, and its Exec reads back to exactly the job's command words.
// The same bytes are also read as an entry that someone else wrote or edited (the host reads
// its entry back to tell whether the desktop's settings switched it off): its Exec is refused
// with DesktopEntryError, or its words, written again, read back as the same words.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/Utf8.hpp"
#include "launch_agent/AutostartEntry.hpp"
#include "launch_agent/DesktopEntry.hpp"
#include "launch_agent/LaunchAgent.hpp"
#include "plist/PropertyList.hpp"

namespace {

using namespace vornix::launch_agent;
namespace plist = vornix::plist;

void require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

void checkLines(std::string_view text) {
    require(text.starts_with("[Desktop Entry]\n") && text.ends_with('\n'));
    text.remove_prefix(std::string_view("[Desktop Entry]\n").size());
    while (!text.empty()) {
        const std::string_view line = text.substr(0, text.find('\n'));
        text.remove_prefix(line.size() + 1);
        const std::size_t equals = line.find('=');
        require(equals != std::string_view::npos && equals > 0);
        for (char character : line) {
            require(static_cast<unsigned char>(character) >= 0x20 && character != 0x7F);
        }
        const std::string_view value = line.substr(equals + 1);
        require(!value.starts_with(' ') && !value.ends_with(' '));
    }
}

void readAsEntry(std::string_view bytes) {
    const auto keys = desktopEntryKeys(bytes);
    const auto exec = keys.find("Exec");
    if (exec == keys.end()) {
        return;
    }
    std::vector<std::string> words;
    try {
        words = execWords(exec->second);
    } catch (const DesktopEntryError&) {
        return;
    }
    std::string written;
    try {
        written = execValue(words);
    } catch (const DesktopEntryError&) {
        // Words that no entry can hold (escapes can make control characters): refused, not lost.
        return;
    }
    require(execWords(written) == words);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    readAsEntry(bytes);
    std::shared_ptr<LaunchAgent> agent;
    AutostartEntry entry;
    try {
        agent = plist::decode<std::shared_ptr<LaunchAgent>>(bytes);
        entry = autostartEntryFor(*agent);
    } catch (const plist::DecodingError&) {
        return 0;
    } catch (const DesktopEntryError&) {
        return 0;
    }
    try {
        require(autostartFileName(agent->label) == agent->label + ".desktop");
        require(agent->label.find('/') == std::string::npos);
    } catch (const DesktopEntryError&) {
        require(agent->label.empty() || agent->label == "." || agent->label == ".." ||
                agent->label.find_first_of(std::string_view("/\0", 2)) != std::string::npos);
    }
    require(vornix::base::isUtf8(entry.text));
    checkLines(entry.text);
    const auto keys = desktopEntryKeys(entry.text);
    require(keys.at("Type") == "Application" && keys.at("NoDisplay") == "true" &&
            keys.at("X-GNOME-Autostart-enabled") == "true");
    require(keys.at("Name") == escapedValue(agent->label));
    require(keys.size() == (agent->workingDirectory ? 6u : 5u));
    require(execWords(keys.at("Exec")) == autostartCommandWords(*agent));
    return 0;
}
