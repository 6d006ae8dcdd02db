#pragma once

#include <filesystem>
#include <string>

namespace vornix::platform::doubles {

// A fresh, empty folder under the system's temporary folder, removed with everything in it
// when the object goes. Tests use it as a throw-away home.
class TemporaryFolder {
public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& path() const { return path_; }

    // Writes `contents` to `name` inside the folder (creating folders on the way) and returns its path.
    std::filesystem::path write(const std::filesystem::path& name, const std::string& contents) const;
    // Like write, and makes the file executable: a stand-in tool.
    std::filesystem::path writeExecutable(const std::filesystem::path& name, const std::string& contents) const;

private:
    std::filesystem::path path_;
};

}  // namespace vornix::platform::doubles
