#include "platform/XdgDirectories.hpp"

#include <cstdlib>
#include <string>
#include <string_view>
#include <system_error>

#include "platform/FileError.hpp"
#include "platform/Paths.hpp"

namespace vornix::platform {

namespace {

bool isAbsolute(const char* value) { return value != nullptr && std::string_view(value).starts_with('/'); }

// $<variable> when it is absolute, else $HOME/<fallback>; `what` names the folder in the error.
std::string baseDirectory(const char* variable, std::string_view fallback, std::string_view what) {
    if (const char* value = std::getenv(variable); isAbsolute(value)) {
        return value;
    }
    if (const char* home = std::getenv("HOME"); isAbsolute(home)) {
        return joinPath(home, fallback);
    }
    throw FileError(std::make_error_code(std::errc::no_such_file_or_directory),
                    "cannot find the user's " + std::string(what) + ": neither " + variable +
                        " nor HOME holds an absolute path");
}

}  // namespace

std::string XdgDirectories::userLibraryFolder() const {
    return baseDirectory("XDG_DATA_HOME", ".local/share", "Library folder");
}

std::string userConfigFolder() { return baseDirectory("XDG_CONFIG_HOME", ".config", "configuration folder"); }

}  // namespace vornix::platform
