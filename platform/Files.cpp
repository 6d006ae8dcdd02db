#include "platform/Files.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <system_error>

#include "platform/FileDescriptor.hpp"

namespace vornix::platform {

namespace {

[[noreturn]] void fail(const char* what, const std::filesystem::path& path) {
    throw std::filesystem::filesystem_error(what, path, std::error_code(errno, std::generic_category()));
}

FileDescriptor openOrFail(const std::filesystem::path& path, int flags, const char* what) {
    for (;;) {
        const int descriptor = ::open(path.c_str(), flags | O_CLOEXEC, 0666);
        if (descriptor >= 0) {
            return FileDescriptor(descriptor);
        }
        if (errno != EINTR) {
            fail(what, path);
        }
    }
}

}  // namespace

std::string readWholeFile(const std::filesystem::path& path) {
    const FileDescriptor file = openOrFail(path, O_RDONLY, "cannot read file");
    std::error_code error;
    std::string bytes = readToEnd(file, error);
    if (error) {
        throw std::filesystem::filesystem_error("cannot read file", path, error);
    }
    return bytes;
}

void writeWholeFile(const std::filesystem::path& path, std::string_view bytes) {
    const FileDescriptor file = openOrFail(path, O_WRONLY | O_CREAT | O_TRUNC, "cannot write file");
    while (!bytes.empty()) {
        const ssize_t count = ::write(file.get(), bytes.data(), bytes.size());
        if (count >= 0) {
            bytes.remove_prefix(static_cast<std::size_t>(count));
        } else if (errno != EINTR) {
            fail("cannot write file", path);
        }
    }
}

std::vector<std::filesystem::path> visibleEntries(const std::filesystem::path& folder) {
    std::vector<std::filesystem::path> entries;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (!entry.path().filename().native().starts_with('.')) {
            entries.push_back(entry.path());
        }
    }
    std::sort(entries.begin(), entries.end(), [](const auto& a, const auto& b) {
        return a.filename().native() < b.filename().native();
    });
    return entries;
}

}  // namespace vornix::platform
