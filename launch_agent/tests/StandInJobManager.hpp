#pragma once

#include <filesystem>
#include <string>

#include "platform/doubles/TemporaryFolder.hpp"

namespace vornix::launch_agent::testing {

// A stand-in for the system's job manager: a script in a temporary folder that answers "list"
// with the listing it was given, byte for byte, and fails any other command.
class StandInJobManager {
public:
    explicit StandInJobManager(const std::string& listing)
        : listing_(folder_.write("listing", listing)),
          tool_(folder_.writeExecutable("launchctl", "#!/bin/sh\n[ \"$1\" = list ] || exit 64\nexec /bin/cat '" +
                                                         listing_.string() + "'\n")) {}

    const std::filesystem::path& tool() const { return tool_; }

private:
    platform::doubles::TemporaryFolder folder_;
    std::filesystem::path listing_;
    std::filesystem::path tool_;
};

}  // namespace vornix::launch_agent::testing
