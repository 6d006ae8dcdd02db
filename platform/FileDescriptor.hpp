#pragma once

#include <string>
#include <system_error>

namespace vornix::platform {

// Sole owner of an open file descriptor, closed when the owner goes; -1 owns nothing.
class FileDescriptor {
public:
    FileDescriptor() = default;
    explicit FileDescriptor(int descriptor) noexcept : descriptor_(descriptor) {}
    FileDescriptor(FileDescriptor&& other) noexcept;
    FileDescriptor& operator=(FileDescriptor&& other) noexcept;
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    ~FileDescriptor();

    int get() const noexcept { return descriptor_; }

private:
    int descriptor_ = -1;
};

// Both ends of an anonymous pipe, each closed on exec so that no other child inherits them.
struct Pipe {
    FileDescriptor read;
    FileDescriptor write;
};

// Throws std::system_error when the system has no descriptor left.
Pipe makePipe();

// Every byte from `source` up to the end of its stream (retrying reads a signal interrupts).
// On a failed read `error` holds the system's error and the bytes read so far are returned.
std::string readToEnd(const FileDescriptor& source, std::error_code& error);

}  // namespace vornix::platform
