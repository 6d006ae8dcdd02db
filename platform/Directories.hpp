#pragma once

#include <string>
#include <string_view>

#include "platform/Port.hpp"

namespace vornix::platform {

// Folders that belong to the user and whose place differs between platforms.
class Directories : public Port<Directories> {
public:
    static constexpr std::string_view portName = "directories";

    virtual ~Directories() = default;

    // The user's Library folder (where "LaunchAgents" lives). It is looked up, not created, and
    // may not exist. Throws a FileError (platform/FileError.hpp) when the platform cannot name one.
    virtual std::string userLibraryFolder() const = 0;
};

}  // namespace vornix::platform
