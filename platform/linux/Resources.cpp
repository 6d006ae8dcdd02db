#include "platform/linux/Resources.hpp"

#include <string>

namespace vornix::platform::linux {

namespace fs = std::filesystem;

fs::path resourcesFolder() {
    std::error_code error;
    const fs::path executable = fs::read_symlink("/proc/self/exe", error);
    return executable.parent_path().parent_path() / "share" / "vornix-host";
}

std::optional<fs::path> imageFile(std::string_view name) {
    for (const char* extension : {".svg", ".png"}) {
        fs::path candidate = resourcesFolder() / "icons" / (std::string(name) + extension);
        if (fs::is_regular_file(candidate)) {
            return candidate;
        }
    }
    return std::nullopt;
}

}  // namespace vornix::platform::linux
