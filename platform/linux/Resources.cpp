#include "platform/linux/Resources.hpp"

#include <string>

namespace vornix::platform::linux {

namespace fs = std::filesystem;

namespace {

// <prefix>, the folder above the running executable's bin/.
fs::path installPrefix() {
    std::error_code error;
    const fs::path executable = fs::read_symlink("/proc/self/exe", error);
    return executable.parent_path().parent_path();
}

}  // namespace

fs::path resourcesFolder() { return installPrefix() / "share" / "vornix-host"; }

fs::path hostExecutable() { return installPrefix() / "bin" / "vornix-host"; }

fs::path modulesFolder() { return installPrefix() / VORNIX_MODULES_FOLDER; }

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
