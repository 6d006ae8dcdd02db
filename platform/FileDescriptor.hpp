#pragma once

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

}  // namespace vornix::platform
