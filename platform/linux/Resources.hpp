#pragma once

#include <filesystem>
#include <optional>
#include <string_view>

namespace vornix::platform::linux {

// The application's resources: <prefix>/share/vornix-host beside <prefix>/bin/vornix-host, the
// same layout in the build tree and in an installed tree.
std::filesystem::path resourcesFolder();

// The application's modules, loaded when first needed: <prefix>/<libdir>/vornix-host, laid out
// like the resources.
std::filesystem::path modulesFolder();

// The installed host, <prefix>/bin/vornix-host, by its absolute path: what a login runs to
// start the application.
std::filesystem::path hostExecutable();

// The file of the image called `name` in the resources (an SVG, or else a PNG), if there is one.
std::optional<std::filesystem::path> imageFile(std::string_view name);

}  // namespace vornix::platform::linux
