#include "platform/XdgDirectories.hpp"

#include <cstdlib>
#include <string_view>
#include <system_error>

namespace vornix::platform {

namespace {

bool isAbsolute(const char* value) { return value != nullptr && std::string_view(value).starts_with('/'); }

}  // namespace

std::filesystem::path XdgDirectories::userLibraryFolder() const {
    if (const char* data = std::getenv("XDG_DATA_HOME"); isAbsolute(data)) {
        return std::filesystem::path(data);
    }
    if (const char* home = std::getenv("HOME"); isAbsolute(home)) {
        return std::filesystem::path(home) / ".local" / "share";
    }
    throw std::filesystem::filesystem_error(
        "cannot find the user's Library folder: neither XDG_DATA_HOME nor HOME holds an absolute path",
        std::make_error_code(std::errc::no_such_file_or_directory));
}

}  // namespace vornix::platform
