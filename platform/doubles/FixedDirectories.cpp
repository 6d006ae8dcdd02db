#include "platform/doubles/FixedDirectories.hpp"

#include <system_error>
#include <utility>

#include "platform/FileError.hpp"

namespace vornix::platform::doubles {

FixedDirectories::FixedDirectories(std::string libraryFolder) : libraryFolder_(std::move(libraryFolder)) {}

std::string FixedDirectories::userLibraryFolder() const {
    if (!libraryFolder_) {
        throw FileError(std::make_error_code(std::errc::no_such_file_or_directory), "no Library folder in this test");
    }
    return *libraryFolder_;
}

}  // namespace vornix::platform::doubles
