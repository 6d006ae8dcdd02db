#pragma once

#include <optional>
#include <string>

#include "platform/Directories.hpp"

namespace vornix::platform::doubles {

// A directories port whose Library folder is whatever the test says, typically a folder in a
// temporary home; with none set it fails as a platform without one would.
class FixedDirectories : public Directories {
public:
    FixedDirectories() = default;
    explicit FixedDirectories(std::string libraryFolder);

    std::string userLibraryFolder() const override;

private:
    std::optional<std::string> libraryFolder_;
};

}  // namespace vornix::platform::doubles
