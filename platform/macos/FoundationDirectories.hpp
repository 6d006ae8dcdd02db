#pragma once

#include "platform/Directories.hpp"

namespace vornix::platform::macos {

// The user's folders on macOS, as NSFileManager names them.
class FoundationDirectories final : public Directories {
public:
    std::string userLibraryFolder() const override;
};

}  // namespace vornix::platform::macos
