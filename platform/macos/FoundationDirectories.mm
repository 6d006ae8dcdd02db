#include "platform/macos/FoundationDirectories.hpp"

#import <Foundation/Foundation.h>

#include <system_error>

#include "platform/macos/Conversions.hpp"

namespace vornix::platform::macos {

std::filesystem::path FoundationDirectories::userLibraryFolder() const {
    NSURL* library = [NSFileManager.defaultManager URLsForDirectory:NSLibraryDirectory inDomains:NSUserDomainMask].firstObject;
    if (library == nil || library.path == nil) {
        throw std::filesystem::filesystem_error("the user's Library folder",
                                                std::make_error_code(std::errc::no_such_file_or_directory));
    }
    return toString(library.path);
}

}  // namespace vornix::platform::macos
