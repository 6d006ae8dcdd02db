#pragma once

#include <filesystem>
#include <string_view>

#include "platform/Port.hpp"

namespace vornix::platform {

// Folders that belong to the user and whose place differs between platforms.
class Directories : public Port<Directories> {
public:
    static constexpr std::string_view portName = "directories";

    virtual ~Directories() = default;

    // The user's Library folder (where "LaunchAgents" lives). It is looked up, not created, and
    // may not exist. Throws std::filesystem::filesystem_error when the platform cannot name one.
    virtual std::filesystem::path userLibraryFolder() const = 0;
};

}  // namespace vornix::platform
