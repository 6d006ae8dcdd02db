#include "platform/doubles/FixedDirectories.hpp"

#include <system_error>

namespace vornix::platform::doubles {

FixedDirectories::FixedDirectories(std::filesystem::path libraryFolder) : libraryFolder_(std::move(libraryFolder)) {}

std::filesystem::path FixedDirectories::userLibraryFolder() const {
    if (!libraryFolder_) {
        throw std::filesystem::filesystem_error("no Library folder in this test",
                                                std::make_error_code(std::errc::no_such_file_or_directory));
    }
    return *libraryFolder_;
}

}  // namespace vornix::platform::doubles
