#include "platform/FileDescriptor.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <system_error>
#include <utility>

namespace vornix::platform {

FileDescriptor::FileDescriptor(FileDescriptor&& other) noexcept
    : descriptor_(std::exchange(other.descriptor_, -1)) {}

FileDescriptor& FileDescriptor::operator=(FileDescriptor&& other) noexcept {
    if (this != &other) {
        FileDescriptor old(std::move(*this));
        descriptor_ = std::exchange(other.descriptor_, -1);
    }
    return *this;
}

FileDescriptor::~FileDescriptor() {
    if (descriptor_ >= 0) {
        // A close interrupted by a signal has still released the descriptor on Linux and
        // macOS, so it is never retried (a retry could close a descriptor opened meanwhile).
        ::close(descriptor_);
    }
}

Pipe makePipe() {
    int ends[2];
#if defined(__linux__) || defined(__FreeBSD__)
    if (::pipe2(ends, O_CLOEXEC) != 0) {
        throw std::system_error(errno, std::generic_category(), "cannot create a pipe");
    }
#else
    // No pipe2 here: the flag is set right after. Children the port starts are spawned with
    // every descriptor closed by default, so the short window does not leak into them.
    if (::pipe(ends) != 0) {
        throw std::system_error(errno, std::generic_category(), "cannot create a pipe");
    }
    ::fcntl(ends[0], F_SETFD, FD_CLOEXEC);
    ::fcntl(ends[1], F_SETFD, FD_CLOEXEC);
#endif
    return Pipe{FileDescriptor(ends[0]), FileDescriptor(ends[1])};
}

std::string readToEnd(const FileDescriptor& source, std::error_code& error) {
    error.clear();
    std::string bytes;
    std::array<char, 64 * 1024> buffer;
    for (;;) {
        const ssize_t count = ::read(source.get(), buffer.data(), buffer.size());
        if (count > 0) {
            bytes.append(buffer.data(), static_cast<std::size_t>(count));
        } else if (count == 0) {
            return bytes;
        } else if (errno != EINTR) {
            error = std::error_code(errno, std::generic_category());
            return bytes;
        }
    }
}

}  // namespace vornix::platform
