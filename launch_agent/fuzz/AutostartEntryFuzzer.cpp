// Any bytes, read as a job file and turned into an autostart entry: either the job or the entry
// is refused with its own error, or the entry is well formed (UTF-8, one "[Desktop Entry]"
// group of Key=value lines without control characters, the keys the writer promises) and its
// Exec reads back to exactly the job's command words.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>

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

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::shared_ptr<LaunchAgent> agent;
    AutostartEntry entry;
    try {
        const std::string_view bytes(reinterpret_cast<const char*>(data), size);
        agent = plist::decode<std::shared_ptr<LaunchAgent>>(bytes);
        entry = autostartEntryFor(*agent);
    } catch (const plist::DecodingError&) {
        return 0;
    } catch (const DesktopEntryError&) {
        return 0;
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
