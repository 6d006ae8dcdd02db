#include "platform/PosixProcesses.hpp"

#include <unistd.h>

#include <array>
#include <cerrno>
#include <stdexcept>
#include <system_error>
#include <vector>

#include "platform/ChildReaper.hpp"
#include "platform/FileDescriptor.hpp"
#include "platform/Spawn.hpp"

namespace vornix::platform {

namespace {

// Hands every child started so far to the reaper, however the pipeline ends.
class Children {
public:
    Children() = default;
    Children(const Children&) = delete;
    Children& operator=(const Children&) = delete;
    ~Children() {
        for (pid_t child : children_) {
            ChildReaper::shared().adopt(child);
        }
    }
    void add(pid_t child) { children_.push_back(child); }

private:
    std::vector<pid_t> children_;
};

std::string readToEnd(const FileDescriptor& source, const Invocation& writer) {
    std::string bytes;
    std::array<char, 64 * 1024> buffer;
    for (;;) {
        const ssize_t count = ::read(source.get(), buffer.data(), buffer.size());
        if (count > 0) {
            bytes.append(buffer.data(), static_cast<std::size_t>(count));
        } else if (count == 0) {
            return bytes;
        } else if (errno != EINTR) {
            throw std::system_error(errno, std::generic_category(), "cannot read the output of " + writer.tool);
        }
    }
}

}  // namespace

void PosixProcesses::launch(const Invocation& invocation) {
    ChildReaper::shared().adopt(spawnChild(invocation, {}));
}

std::string PosixProcesses::runPipeline(std::span<const Invocation> stages) {
    if (stages.empty()) {
        throw std::invalid_argument("a pipeline needs at least one tool");
    }
    Children children;
    FileDescriptor input;
    for (const Invocation& stage : stages) {
        Pipe output = makePipe();
        children.add(spawnChild(stage, {input.get(), output.write.get()}));
        // From here on only the child holds the write end, so the next reader sees the end of
        // the stream exactly when this tool (and whatever it started) has closed its output.
        input = std::move(output.read);
    }
    return readToEnd(input, stages.back());
}

}  // namespace vornix::platform
