#pragma once

#include <string>
#include <system_error>

namespace vornix::platform {

// A file, folder or path lookup that failed, with the system's error code and the path it
// concerns. Caught as std::system_error along with the processes port's failures.
class FileError : public std::system_error {
public:
    // what() is `<operation> "<path>": <the system's message>`.
    FileError(std::error_code code, const std::string& operation, std::string path);
    // For a failure that has no path to name: what() is `<operation>: <the system's message>`.
    FileError(std::error_code code, const std::string& operation);

    // The error errno holds, after the system call that set it.
    static FileError lastError(const std::string& operation, std::string path);

    const std::string& path() const noexcept { return path_; }

private:
    std::string path_;
};

}  // namespace vornix::platform
