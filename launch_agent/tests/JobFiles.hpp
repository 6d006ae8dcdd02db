#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace vornix::launch_agent::testing {

// The folder of hand-written job files, under the source tree that CTest names.
inline std::filesystem::path fixtureFolder() {
    const char* source = std::getenv("VORNIX_SOURCE_DIR");
    EXPECT_NE(source, nullptr) << "VORNIX_SOURCE_DIR is not set: run the tests through ctest";
    return std::filesystem::path(source != nullptr ? source : ".") / "launch_agent" / "tests" / "fixtures";
}

inline std::string fileBytes(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file) << "cannot open " << path;
    std::ostringstream bytes;
    bytes << file.rdbuf();
    return std::move(bytes).str();
}

inline void writeFile(const std::filesystem::path& path, const std::string& bytes) {
    std::ofstream file(path, std::ios::binary);
    file << bytes;
    EXPECT_TRUE(file) << "cannot write " << path;
}

// A fresh folder under the system's temporary folder, removed with its contents at the end of scope.
class TemporaryFolder {
public:
    TemporaryFolder() {
        std::string pattern = (std::filesystem::temp_directory_path() / "vornix-agent-XXXXXX").string();
        if (::mkdtemp(pattern.data()) == nullptr) {
            ADD_FAILURE() << "cannot make a temporary folder";
        }
        path_ = pattern;
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_;
};

}  // namespace vornix::launch_agent::testing
