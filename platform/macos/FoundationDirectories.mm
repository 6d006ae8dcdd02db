#include "platform/macos/FoundationDirectories.hpp"

#import <Foundation/Foundation.h>

#include <system_error>

#include "platform/FileError.hpp"
#include "platform/macos/Conversions.hpp"

namespace vornix::platform::macos {

std::string FoundationDirectories::userLibraryFolder() const {
    NSURL* library = [NSFileManager.defaultManager URLsForDirectory:NSLibraryDirectory inDomains:NSUserDomainMask].firstObject;
    if (library == nil || library.path == nil) {
        throw FileError(std::make_error_code(std::errc::no_such_file_or_directory), "the user's Library folder");
    }
    return toString(library.path);
}

}  // namespace vornix::platform::macos
