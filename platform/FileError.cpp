#include "platform/FileError.hpp"

#include <cerrno>
#include <utility>

namespace vornix::platform {

FileError::FileError(std::error_code code, const std::string& operation, std::string path)
    : std::system_error(code, operation + " \"" + path + "\""), path_(std::move(path)) {}

FileError::FileError(std::error_code code, const std::string& operation) : std::system_error(code, operation) {}

FileError FileError::lastError(const std::string& operation, std::string path) {
    return FileError(std::error_code(errno, std::generic_category()), operation, std::move(path));
}

}  // namespace vornix::platform
