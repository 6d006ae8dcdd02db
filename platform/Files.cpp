#include "platform/Files.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
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
    std::string bytes;
    std::array<char, 16 * 1024> buffer;
    for (;;) {
        const ssize_t count = ::read(file.get(), buffer.data(), buffer.size());
        if (count > 0) {
            bytes.append(buffer.data(), static_cast<std::size_t>(count));
        } else if (count == 0) {
            return bytes;
        } else if (errno != EINTR) {
            fail("cannot read file", path);
        }
    }
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
