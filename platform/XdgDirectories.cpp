#include "platform/XdgDirectories.hpp"

#include <cstdlib>
#include <string>
#include <string_view>
#include <system_error>

namespace vornix::platform {

namespace {

bool isAbsolute(const char* value) { return value != nullptr && std::string_view(value).starts_with('/'); }

// $<variable> when it is absolute, else $HOME/<fallback>; `what` names the folder in the error.
std::filesystem::path baseDirectory(const char* variable, const std::filesystem::path& fallback,
                                    std::string_view what) {
    if (const char* value = std::getenv(variable); isAbsolute(value)) {
        return std::filesystem::path(value);
    }
    if (const char* home = std::getenv("HOME"); isAbsolute(home)) {
        return std::filesystem::path(home) / fallback;
    }
    throw std::filesystem::filesystem_error("cannot find the user's " + std::string(what) + ": neither " +
                                                variable + " nor HOME holds an absolute path",
                                            std::make_error_code(std::errc::no_such_file_or_directory));
}

}  // namespace

std::filesystem::path XdgDirectories::userLibraryFolder() const {
    return baseDirectory("XDG_DATA_HOME", std::filesystem::path(".local") / "share", "Library folder");
}

std::filesystem::path userConfigFolder() { return baseDirectory("XDG_CONFIG_HOME", ".config", "configuration folder"); }

}  // namespace vornix::platform
